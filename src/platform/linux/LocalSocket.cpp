#include "platform/linux/LocalSocket.h"

#include <sys/socket.h>

#include <cstring>

namespace pello {

std::optional<sockaddr_un> localAddress(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        return std::nullopt;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    return address;
}

FileDescriptor connectedTo(const std::string& path) {
    const auto address = localAddress(path);
    if (!address) {
        return FileDescriptor();
    }
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const auto* target = reinterpret_cast<const sockaddr*>(&*address);
    const bool isConnected = socket && ::connect(socket.number(), target, sizeof *address) == 0;
    return isConnected ? std::move(socket) : FileDescriptor();
}

} // namespace pello
