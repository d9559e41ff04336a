#include "search/TieOrder.h"

#include "base/Collation.h"

namespace pello::TieOrder {

int kindPriority(LaunchItem::Kind kind) {
    switch (kind) {
    case LaunchItem::Kind::calculation:
    case LaunchItem::Kind::bang:
        return 3;
    case LaunchItem::Kind::application:
        return 2;
    case LaunchItem::Kind::command:
    case LaunchItem::Kind::script:
    case LaunchItem::Kind::menuItem:
    case LaunchItem::Kind::window:
        return 1;
    case LaunchItem::Kind::url:
        return 0;
    case LaunchItem::Kind::webSearch:
        return -1;
    }
    return 0;
}

int compare(const LaunchItem& left, const LaunchItem& right) {
    const int kinds = kindPriority(right.kind) - kindPriority(left.kind);
    return kinds != 0 ? kinds : userCollation().compare(left.title, right.title);
}

} // namespace pello::TieOrder
