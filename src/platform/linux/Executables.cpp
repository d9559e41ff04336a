#include "platform/linux/Executables.h"

#include <system_error>
#include <unistd.h>

namespace pello {

namespace {

bool isExecutable(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
}

} // namespace

std::optional<std::filesystem::path> findExecutable(std::string_view program,
                                                    const Environment& environment) {
    const std::filesystem::path named(program);
    if (named.is_absolute()) {
        return isExecutable(named) ? std::optional(named) : std::nullopt;
    }
    if (program.empty() || program.find('/') != std::string_view::npos) {
        return std::nullopt;
    }
    auto folders = environment.list("PATH");
    if (folders.empty()) {
        folders = {"/usr/local/bin", "/usr/bin", "/bin"};
    }
    for (const std::filesystem::path folder : folders) {
        if (folder.is_absolute() && isExecutable(folder / named)) {
            return folder / named;
        }
    }
    return std::nullopt;
}

} // namespace pello
