#include "platform/linux/Environment.h"

#include "base/Text.h"

#include <unistd.h>

namespace pello {

Environment Environment::ofThisProcess() {
    Environment environment;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view line = *entry;
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
            environment.variables.emplace(line.substr(0, equals), line.substr(equals + 1));
        }
    }
    return environment;
}

std::string_view Environment::value(std::string_view name) const {
    const auto found = variables.find(name);
    return found != variables.end() ? std::string_view(found->second) : std::string_view();
}

std::vector<std::string> Environment::list(std::string_view name, char separator) const {
    const auto parts = text::split(value(name), separator);
    return {parts.begin(), parts.end()};
}

} // namespace pello
