#pragma once

#include "base/Signal.h"
#include "base/Subscription.h"
#include "core/settings/PelloSettings.h"
#include "platform/KeyboardLayout.h"
#include "platform/PreferenceDomains.h"
#include "ui/settings/SettingsSource.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace pello {

/// What the settings window works with. Everything referred to must outlive the window. A function
/// that is not given leaves out the control that is for it.
struct SettingsServices {
    /// What is printed on this desktop's modifier keys.
    struct ModifierNames {
        std::string command = "Command";
        std::string option = "Option";
        std::string control = "Control";
    };

    /// Which of the switchers this desktop has.
    struct Switchers {
        bool strip = true;
        bool commandTab = true;
    };

    PelloSettings& settings;
    const KeyboardLayout& layout;
    const PreferenceDomains& preferences;
    ModifierNames modifierNames;
    Switchers switchers;

    /// The virtual code of the key that the desktop numbers `scanCode` in its key events;
    /// `virtualKeys::kNone` when it has none.
    std::function<std::uint16_t(std::uint32_t scanCode)> virtualKey;
    /// Keeps the launcher's own shortcuts from being taken while what it gives is kept.
    std::function<Subscription()> suspendShortcuts;
    /// Why the combo would not arrive, in a sentence; nothing when it would.
    std::function<std::optional<std::string>(const KeyCombo&)> comboProblem;
    /// Tells `done`, now or later, whether Caps Lock is remapped at the moment.
    std::function<void(std::function<void(bool isActive)> done)> checkHyperMapping;

    /// Opens the guide that sets the program up.
    std::function<void()> openGuide;

    /// How many queries are remembered; and forgets them.
    std::function<std::size_t()> historyCount;
    std::function<void()> clearHistory;
    /// Of how many items it is known how often they ran; and forgets that.
    std::function<std::size_t()> learnedCount;
    std::function<void()> forgetLearnedOrder;

    /// How many items a source has found; nothing when it does not say or there is no such source.
    std::function<std::optional<std::size_t>(SettingsSource)> found;
    /// Emitted when what `found` says may be another; null for never.
    Signal<>* foundChanged = nullptr;
    /// Scans all sources again.
    std::function<void()> rescan;

    std::filesystem::path scriptsFolder;
    /// Shows a folder in the file viewer.
    std::function<void(const std::filesystem::path&)> openFolder;
    /// Writes the sample script, unless it is there, and shows it.
    std::function<void()> writeSampleScript;
};

} // namespace pello
