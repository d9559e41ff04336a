#include "platform/posix/ExecFailure.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

namespace pello {
namespace {

namespace fs = std::filesystem;

std::string inQuotes(std::string_view name) {
    return "“" + text::wellFormed(name) + "”";
}

/// What a file's first line says, if it begins with "#!": the program that interprets it, or
/// nothing where none is named.
std::optional<std::string> interpreterLine(const fs::path& file) {
    std::array<char, 256> bytes{}; // the system looks no further
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), bytes.size());
    std::string_view head(bytes.data(), static_cast<std::size_t>(stream.gcount()));
    if (!head.starts_with("#!")) {
        return std::nullopt;
    }
    head = head.substr(2, head.find('\n') - 2);
    head.remove_prefix(std::min(head.find_first_not_of(" \t"), head.size()));
    return std::string(head.substr(0, head.find_first_of(" \t")));
}

/// Something is not there: the file, or what runs it.
std::string whatIsMissing(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) {
        return "the file does not exist";
    }
    auto interpreter = interpreterLine(file);
    if (!interpreter) {
        return "the loader that it needs does not exist";
    }
    const bool hasCarriageReturn = interpreter->ends_with('\r');
    if (hasCarriageReturn) {
        interpreter->pop_back();
    }
    return "its interpreter " + inQuotes(*interpreter) +
           (hasCarriageReturn ? " is not found: its lines end with carriage returns"
                              : " does not exist");
}

/// Something must not be run: the file, or what runs it.
std::string whatIsForbidden(const fs::path& file) {
    constexpr auto kAnyone = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::is_directory(status)) {
        return "it is a folder";
    }
    if (fs::exists(status) && (status.permissions() & kAnyone) == fs::perms::none) {
        return "it is not executable";
    }
    const auto interpreter = interpreterLine(file);
    const bool isAllowed =
        !interpreter || interpreter->empty() ||
        (fs::is_regular_file(*interpreter, error) &&
         (fs::status(*interpreter, error).permissions() & kAnyone) != fs::perms::none);
    return isAllowed ? "running it is not permitted"
                     : "its interpreter " + inQuotes(*interpreter) + " is not executable";
}

std::string whatIsNoProgram(const fs::path& file) {
    return interpreterLine(file) ? "its “#!” line names no interpreter"
                                 : "it is not a program: it does not begin with “#!”";
}

} // namespace

std::string whyNotExecuted(const fs::path& file, int error) {
    switch (error) {
    case ENOENT:
        return whatIsMissing(file);
    case EACCES:
        return whatIsForbidden(file);
    case ENOEXEC:
        return whatIsNoProgram(file);
    case E2BIG:
        return "its argument is longer than the system takes";
    case ETXTBSY:
        return "it is still being written";
    default:
        return inTheSystemsWords(error);
    }
}

std::string whyNotEntered(const fs::path& folder) {
    return "the folder " + inQuotes(folder.native()) + " cannot be entered";
}

std::string inTheSystemsWords(int error) {
    return "the system says: " + std::generic_category().message(error);
}

} // namespace pello
