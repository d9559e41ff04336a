#pragma once

namespace pello {

/// What the launcher finds, as the settings window names it.
enum class SettingsSource {
    applications,
    runningApps,
    systemCommands,
    settingsPanes,
    audioOutputs,
    shortcuts,
    menuItems,
    scripts
};

} // namespace pello
