#include "platform/memory/MemoryShell.h"

#include "base/Text.h"

#include <utility>

namespace pello {

void MemoryShell::run(const std::string& path, const std::vector<std::string>& arguments,
                      Completion completion) {
    loop_.post([this, weak = std::weak_ptr(alive_), path, arguments, done = std::move(completion)] {
        if (!weak.expired()) {
            done(runSynchronously(path, arguments));
        }
    });
}

Shell::Result MemoryShell::runSynchronously(const std::string& path,
                                            const std::vector<std::string>& arguments) {
    std::string command = path;
    for (const std::string& argument : arguments) {
        command += ' ' + argument;
    }
    commands.push_back(std::move(command));
    const auto tool = tools.find(path);
    if (tool == tools.end()) {
        return {.status = 127};
    }
    Result result = tool->second(arguments);
    result.output = text::trimmingWhitespaceAndControls(result.output);
    return result;
}

} // namespace pello
