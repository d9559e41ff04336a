#pragma once

#include "base/Signal.h"
#include "keyboard/hotkeys/HotkeyManager.h"
#include "platform/Dialogs.h"
#include "ui/guide/GuideCheck.h"
#include "ui/settings/SettingsServices.h"

#include <functional>
#include <string>
#include <vector>

namespace pello {

/// What the guide works with. Everything referred to must outlive it. A function that is not given
/// leaves out the control that is for it.
struct GuideServices {
    /// How the keyboard is listened to.
    struct Listener {
        HotkeyManager::Health health = HotkeyManager::Health::listening;
        /// Why it does not work, in sentences; empty when it does.
        std::string failure;
    };

    /// For the controls that the guide has from the settings.
    SettingsServices settings;
    std::function<Listener()> listener;
    /// Emitted when what `listener` says may be another, and when a shortcut may have been freed.
    Signal<>& listenerChanged;
    /// Looks at the desktop, and tells `done`, now or later, what it found.
    std::function<void(std::function<void(std::vector<GuideCheck>)> done)> check;
    /// Starts the program anew.
    std::function<void()> relaunch;
    /// Takes the program off the system's lists of permissions and starts it anew; tells `done`
    /// when that is refused.
    std::function<void(std::function<void(bool succeeded)> done)> resetPermissions;
    Dialogs& dialogs;
    std::function<void()> openSettings;
};

} // namespace pello
