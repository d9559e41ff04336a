#pragma once

#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <sched.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace pello {

/// A journal that listens where the system's does, for this process alone: the process moves into
/// a mount namespace with a /run of its own.
class JournalSocket {
public:
    using Fields = std::map<std::string, std::string>;
    static constexpr const char* kPath = "/run/systemd/journal/socket";

    /// Whether this process may have such a namespace. Before it starts threads.
    static bool canBeMade() {
        static const bool isMade = moveIntoNamespace();
        return isMade;
    }

    JournalSocket() {
        if (!canBeMade()) {
            return;
        }
        std::filesystem::create_directories(std::filesystem::path(kPath).parent_path());
        ::unlink(kPath);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, kPath, sizeof address.sun_path - 1);
        socket_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        const bool isBound =
            socket_ >= 0 &&
            ::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        if (!isBound && socket_ >= 0) {
            ::close(socket_);
            socket_ = -1;
        }
    }
    ~JournalSocket() {
        if (socket_ >= 0) {
            ::close(socket_);
        }
    }
    JournalSocket(const JournalSocket&) = delete;
    JournalSocket& operator=(const JournalSocket&) = delete;

    /// Waits for `count` entries.
    [[nodiscard]] std::vector<Fields> receive(std::size_t count) const {
        std::vector<Fields> entries;
        while (entries.size() < count) {
            std::string datagram(1 << 16, '\0');
            const ssize_t size = ::recv(socket_, datagram.data(), datagram.size(), 0);
            if (size < 0) {
                break;
            }
            datagram.resize(static_cast<std::size_t>(size));
            entries.push_back(fieldsOf(datagram));
        }
        return entries;
    }

private:
    static bool moveIntoNamespace() {
        if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
               ::mount("tmpfs", "/run", "tmpfs", 0, nullptr) == 0;
    }

    /// The journal's protocol: `NAME=value` lines, or, for a value with line ends, a line with the
    /// name, eight bytes with the little-endian size, the value and a line end.
    static Fields fieldsOf(std::string_view datagram) {
        Fields fields;
        while (!datagram.empty()) {
            const auto end = datagram.find('\n');
            const auto line = datagram.substr(0, end);
            datagram.remove_prefix(end + 1);
            const auto equals = line.find('=');
            if (equals != std::string_view::npos) {
                fields.emplace(line.substr(0, equals), line.substr(equals + 1));
                continue;
            }
            std::uint64_t size = 0;
            std::memcpy(&size, datagram.data(), sizeof size);
            fields.emplace(line, datagram.substr(sizeof size, size));
            datagram.remove_prefix(sizeof size + size + 1);
        }
        return fields;
    }

    int socket_ = -1;
};

} // namespace pello
