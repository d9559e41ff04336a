#pragma once

#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryPreferenceDomains.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "ui/settings/SettingsServices.h"

namespace pello {

/// Settings in memory, and what the windows about them need of a desktop.
class PreviewSettings {
public:
    /// The least that such a window works with, over these settings.
    [[nodiscard]] SettingsServices services() {
        return {.settings = settings,
                .layout = layout_,
                .preferences = preferences_,
                .modifierNames = {.command = "Super", .option = "Alt", .control = "Ctrl"},
                .virtualKey = [](std::uint32_t) { return std::uint16_t{0}; }};
    }

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};

private:
    MemoryKeyboardLayout layout_;
    MemoryPreferenceDomains preferences_;
};

} // namespace pello
