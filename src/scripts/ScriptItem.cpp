#include "scripts/ScriptItem.h"

#include "base/Text.h"

namespace pello {

std::string ScriptItem::id(const ScriptCommand& command) {
    return "script:" + text::wellFormed(command.url.string());
}

std::string ScriptItem::id(const ScriptCommand& command, std::string_view argument) {
    if (argument.empty()) {
        return id(command);
    }
    return "script-run:" + text::wellFormed(command.url.filename().string()) + ':' +
           std::string(argument);
}

} // namespace pello
