#include "app/client/ProgramFiles.h"

#include <array>
#include <climits>
#include <unistd.h>

namespace pello {
namespace {

/// `path` without its last name: "/usr" for "/usr/bin"; empty when nothing is left.
std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

bool isProgram(const std::string& path) {
    return ::access(path.c_str(), X_OK) == 0;
}

} // namespace

std::string programOfThisProcess() {
    std::array<char, PATH_MAX> path = {};
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    return length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : std::string();
}

std::string launcherFor(const std::string& program) {
    const std::string folder = parent(program);
    for (const std::string& candidate :
         {folder + "/pello-launcher", parent(folder) + "/libexec/pello/pello-launcher"}) {
        if (isProgram(candidate)) {
            return candidate;
        }
    }
    return {};
}

std::string clientFor(const std::string& program) {
    const std::string folder = parent(program);
    for (const std::string& candidate :
         {folder + "/pello", parent(parent(folder)) + "/bin/pello"}) {
        if (isProgram(candidate)) {
            return candidate;
        }
    }
    return program;
}

} // namespace pello
