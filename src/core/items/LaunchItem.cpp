#include "core/items/LaunchItem.h"

namespace pello {

std::string_view kindName(LaunchItem::Kind kind) {
    switch (kind) {
    case LaunchItem::Kind::application:
        return "application";
    case LaunchItem::Kind::command:
        return "command";
    case LaunchItem::Kind::calculation:
        return "calculation";
    case LaunchItem::Kind::url:
        return "url";
    case LaunchItem::Kind::bang:
        return "bang";
    case LaunchItem::Kind::script:
        return "script";
    case LaunchItem::Kind::menuItem:
        return "menuItem";
    case LaunchItem::Kind::window:
        return "window";
    case LaunchItem::Kind::webSearch:
        return "webSearch";
    }
    return "application";
}

} // namespace pello
