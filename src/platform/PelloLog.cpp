#include "platform/PelloLog.h"

namespace pello {

std::string_view categoryName(LogCategory category) {
    switch (category) {
    case LogCategory::hotkey:
        return "hotkey";
    case LogCategory::panel:
        return "panel";
    case LogCategory::menus:
        return "menus";
    case LogCategory::windows:
        return "windows";
    }
    return "panel";
}

} // namespace pello
