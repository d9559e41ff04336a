#include "app/client/ControlClient.h"

#include "platform/linux/LocalSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <array>
#include <cstdlib>
#include <unistd.h>

namespace pello {
namespace {

constexpr timeval kPatience = {.tv_sec = 2, .tv_usec = 0};

std::string readAll(int descriptor) {
    std::string answer;
    std::array<char, 512> buffer = {};
    for (;;) {
        const ssize_t count = ::recv(descriptor, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return answer;
        }
        answer.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

bool sendAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Sends a request and waits for the line that answers it. Nothing without a connection.
std::optional<std::string> ask(const FileDescriptor& socket, std::string_view request) {
    if (!socket || !sendAll(socket.number(), request)) {
        return std::nullopt;
    }
    std::string answer = readAll(socket.number());
    if (answer.ends_with('\n')) {
        answer.pop_back();
    }
    return answer;
}

} // namespace

std::string controlSocketPath() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes the environment
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime == '/') {
        return std::string(runtime) + "/pello.sock";
    }
    const std::string folder = "/tmp/pello-" + std::to_string(::getuid());
    ::mkdir(folder.c_str(), S_IRWXU);
    // Anyone may make folders there: one that others own or can enter is not ours to talk through.
    struct stat status = {};
    const bool isOurs = ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                        status.st_uid == ::getuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return isOurs ? folder + "/pello.sock" : std::string();
}

std::optional<std::string> askRunningLauncher(const std::string& path, std::string_view verb) {
    const FileDescriptor socket = connectedTo(path);
    ::setsockopt(socket.number(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    return ask(socket, std::string(verb) + '\n');
}

std::optional<std::string> askWithText(const std::string& path, std::string_view verb,
                                       std::string_view text) {
    std::string request = '+' + std::to_string(text.size()) + ' ' + std::string(verb) + '\n';
    request += text;
    return ask(connectedTo(path), request);
}

} // namespace pello
