#include "core/controller/ArgumentRow.h"

#include "base/Text.h"

#include <memory>
#include <utility>

namespace pello {

std::vector<SearchResult> argumentRow(const ScriptsIndex& scripts, const ScriptCommand& command,
                                      std::string_view typed) {
    const std::string_view argument = text::trimmingBlanks(typed);
    if (argument.empty()) {
        return {};
    }
    auto item = std::make_shared<const LaunchItem>(scripts.itemWithArgument(command, argument));
    return {{.item = std::move(item), .score = 0, .titleMatches = {}}};
}

} // namespace pello
