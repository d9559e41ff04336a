#pragma once

#include "core/items/LaunchItem.h"

/// Which of two equally scored items comes first.
namespace pello::TieOrder {

/// The higher comes first.
[[nodiscard]] int kindPriority(LaunchItem::Kind kind);

/// Whether the kinds alone decide, so that no title is compared.
[[nodiscard]] inline bool isDecidedByKind(const LaunchItem& left, const LaunchItem& right) {
    return kindPriority(left.kind) != kindPriority(right.kind);
}

/// Negative when `left` comes first by kind and title, positive when `right` does, 0 when the
/// catalogue's order decides.
[[nodiscard]] int compare(const LaunchItem& left, const LaunchItem& right);

} // namespace pello::TieOrder
