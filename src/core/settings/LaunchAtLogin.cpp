#include "core/settings/LaunchAtLogin.h"

namespace pello {

LaunchAtLogin::LaunchAtLogin(LoginItem& item, const Signal<>& anyChanged)
    : item_(item), anyChanged_(anyChanged), value_(item.isEnabled()) {}

void LaunchAtLogin::set(bool value) {
    if (value != item_.isEnabled()) {
        const bool done = value ? item_.registerItem() : item_.unregisterItem();
        if (!done) {
            value = item_.isEnabled();
        }
    }
    take(value);
}

void LaunchAtLogin::reload() {
    take(item_.isEnabled());
}

void LaunchAtLogin::take(bool value) {
    if (value == value_) {
        return;
    }
    value_ = value;
    changed.emit();
    anyChanged_.emit();
}

} // namespace pello
