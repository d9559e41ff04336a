#include "app/LogsCommand.h"

#include "platform/linux/SystemLog.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace pello {
namespace {

namespace fs = std::filesystem;

/// Becomes another program; comes back only when that fails.
int become(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& word : command) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    ::execvp(arguments.front(), arguments.data());
    std::cerr << "pello: the log could not be read with " << command.front() << ": "
              << std::generic_category().message(errno) << '\n';
    return ExitStatus::kNothing;
}

int readJournal(LogsCommand::Extent extent) {
    std::vector<std::string> command = {"journalctl", "--identifier=pello", "--quiet",
                                        "_UID=" + std::to_string(::getuid()), "--output=short-iso"};
    if (extent == LogsCommand::Extent::following) {
        command.emplace_back("--follow");
    }
    return become(std::move(command));
}

/// Prints a file that may not exist.
bool print(const fs::path& file) {
    std::ifstream lines(file, std::ios::binary);
    if (!lines) {
        return false;
    }
    if (lines.peek() != std::ifstream::traits_type::eof()) {
        std::cout << lines.rdbuf() << std::flush;
    }
    return true;
}

int readFile(const fs::path& file, LogsCommand::Extent extent) {
    const bool hasOlder = print(file.string() + ".1");
    if (extent == LogsCommand::Extent::following) {
        // By name, so that a file that begins anew is followed too.
        return become(
            {"tail", "--lines=+1", "--follow=name", "--retry", "--silent", file.string()});
    }
    if (!print(file) && !hasOlder) {
        std::cerr << "pello: nothing has been logged; without a journal here, it would be in \""
                  << file.string() << "\"\n";
        return ExitStatus::kNothing;
    }
    return ExitStatus::kSuccess;
}

} // namespace

int run(const LogsCommand& command) {
    if (hasJournal()) {
        return readJournal(command.extent);
    }
    return readFile(logFile(xdgFolders(Environment::ofThisProcess())), command.extent);
}

} // namespace pello
