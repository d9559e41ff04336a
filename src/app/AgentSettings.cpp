#include "app/AgentSettings.h"

#include "platform/linux/X11KeyCodes.h"

#include <utility>

namespace pello {

AgentSettings::AgentSettings(Launcher& launcher, Platform platform, AgentKeyboard& keyboard)
    : launcher_(launcher),
      platform_(std::move(platform)),
      keyboard_(keyboard),
      onChange_(launcher.controller().changed.connect([this] { foundChanged_.emit(); })) {}

void AgentSettings::present(std::optional<SettingsTab> tab) {
    if (!window_) {
        window_ = std::make_unique<SettingsWindow>(services());
    }
    launcher_.controller().hide();
    window_->present(tab);
}

std::optional<std::size_t> AgentSettings::found(SettingsSource source) const {
    switch (source) {
    case SettingsSource::applications:
        return launcher_.applications().items()->items().size();
    case SettingsSource::scripts:
        return launcher_.scripts().commands().size();
    default:
        return std::nullopt;
    }
}

SettingsServices AgentSettings::services() {
    return {.settings = launcher_.settings(),
            .layout = keyboard_.layout(),
            .preferences = preferences_,
            .modifierNames = {.command = "Super", .option = "Alt", .control = "Ctrl"},
            .switchers = {.strip = false, .commandTab = false},
            .virtualKey =
                [](std::uint32_t scanCode) {
                    return x11Keys::virtualKey(static_cast<xcb_keycode_t>(scanCode));
                },
            .suspendShortcuts = [this] { return keyboard_.suspend(); },
            .comboProblem = [this](const KeyCombo& combo) { return keyboard_.problemOf(combo); },
            .checkHyperMapping =
                [this](std::function<void(bool)> done) {
                    keyboard_.checkHyperMapping(std::move(done));
                },
            .openGuide =
                [this] {
                    if (onGuide) {
                        onGuide();
                    }
                },
            .historyCount = [this] { return launcher_.queryHistory().entries().size(); },
            .clearHistory = [this] { launcher_.queryHistory().clear(); },
            .learnedCount = [this] { return launcher_.usage().records().size(); },
            .forgetLearnedOrder = [this] { launcher_.usage().forgetAll(); },
            .found = [this](SettingsSource source) { return found(source); },
            .foundChanged = &foundChanged_,
            .rescan = [this] { launcher_.controller().reindex(); },
            .scriptsFolder = launcher_.scripts().directory(),
            .openFolder =
                [this](const std::filesystem::path& folder) {
                    platform_.workspace.openAddress("file://" + folder.string());
                },
            .writeSampleScript = [this] { launcher_.controller().writeSampleScript(); }};
}

} // namespace pello
