#pragma once

namespace pello {

/// Whether the user lets this program listen to the keyboard, asked afresh each time. Cheap; main
/// thread only. Both are true where the system knows no such permissions.
class KeyPermissions {
public:
    virtual ~KeyPermissions() = default;

    /// May filter input events at all.
    [[nodiscard]] virtual bool isAccessibilityTrusted() const = 0;

    /// Is shown the keys that are pressed in other programs.
    [[nodiscard]] virtual bool hasInputMonitoring() const = 0;
};

} // namespace pello
