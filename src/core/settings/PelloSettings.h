#pragma once

#include "answers/WebSearchEngine.h"
#include "core/settings/Activation.h"
#include "core/settings/CommandTabPosition.h"
#include "core/settings/LaunchAtLogin.h"
#include "core/settings/Setting.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Every preference of the user, each observable by itself and kept under its own key.
///
/// Registers the defaults of a fresh user, then reads all values once. Values that another process
/// changes are read again as it happens. Unreadable values read as the defaults given here.
/// Main thread only.
class PelloSettings {
public:
    /// Both must outlive the settings.
    PelloSettings(UserDefaults& defaults, LoginItem& loginItem);

    /// Emitted after any setting changed, after that setting's own signal.
    Signal<> changed;

private:
    SettingsScope scope_;

    // Three switches were once part of this one: until the user sets such a switch by itself, it
    // starts as this one stands. Nothing is written for it before that.
    static constexpr std::string_view kSplitFrom = "includesSystemCommands";

public:
    Setting<Activation> activation{scope_, "activation", Activation::rightCommand};
    Setting<KeyCombo> keyCombo{scope_, "keyCombo",
                               KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kOption)};
    Setting<std::optional<KeyCombo>> glyphCombo{scope_, "glyphCombo", std::nullopt};
    Setting<bool> capsLockIsHyper{scope_, "capsLockIsHyper", false};
    /// This program has installed the Caps Lock mapping.
    Setting<bool> ownsHyperMapping{scope_, "ownsHyperMapping", false};
    Setting<PanelPlacement> panelPlacement{scope_, "panelPlacement", PanelPlacement{}};
    Setting<WebSearchEngine> searchEngine{scope_, "searchEngine", WebSearchEngine::duckDuckGo};
    /// Folders searched for applications besides the platform's own.
    Setting<std::vector<std::filesystem::path>> extraDirectories{scope_, "extraDirectories", {}};
    Setting<std::int64_t> maximumResults{scope_, "maximumResults", 8};
    /// In points, as all sizes here.
    Setting<double> fontSize{scope_, "fontSize", 16};
    Setting<bool> usesGlass{scope_, "usesGlass", true};
    Setting<bool> startsCompact{scope_, "startsCompact", false};
    Setting<bool> showsAppSwitcher{scope_, "showsAppSwitcher", false};
    Setting<double> switcherIconSize{scope_, "switcherIconSize", 26};
    Setting<bool> switcherHasBackground{scope_, "switcherHasBackground", true};
    Setting<bool> replacesCommandTab{scope_, "replacesCommandTab", false};
    Setting<double> commandTabIconSize{scope_, "commandTabIconSize", 26};
    Setting<CommandTabPosition> commandTabPosition{scope_, "commandTabPosition",
                                                   CommandTabPosition::withLauncher};
    Setting<bool> includesSystemCommands{scope_, "includesSystemCommands", true};
    Setting<bool> includesShortcuts{scope_, "includesShortcuts", true};
    Setting<bool> includesSettingsPanes{scope_, "includesSettingsPanes", true, kSplitFrom};
    Setting<bool> includesAudioOutputs{scope_, "includesAudioOutputs", true, kSplitFrom};
    Setting<bool> includesRunningApps{scope_, "includesRunningApps", true, kSplitFrom};
    Setting<bool> includesScripts{scope_, "includesScripts", true};
    Setting<bool> includesMenuItems{scope_, "includesMenuItems", true};
    Setting<std::vector<Bang>> bangs{scope_, "bangs", Bang::starters()};
    Setting<std::vector<URLAlias>> urlAliases{scope_, "urlAliases", {}};
    LaunchAtLogin launchAtLogin;

    /// The store that the settings live in.
    [[nodiscard]] UserDefaults& defaults() const { return scope_.defaults; }

    /// The folders to search for applications: `standardFolders`, then the user's own.
    [[nodiscard]] std::vector<std::filesystem::path>
    searchDirectories(std::span<const std::filesystem::path> standardFolders) const;

    /// Calls `visit` with each setting that has a key, in the order above.
    template <class Visit>
    void forEach(const Visit& visit) {
        const auto visitAll = [&visit](auto&... settings) { (visit(settings), ...); };
        visitAll(activation, keyCombo, glyphCombo, capsLockIsHyper, ownsHyperMapping,
                 panelPlacement, searchEngine, extraDirectories, maximumResults, fontSize,
                 usesGlass, startsCompact, showsAppSwitcher, switcherIconSize,
                 switcherHasBackground, replacesCommandTab, commandTabIconSize, commandTabPosition,
                 includesSystemCommands, includesShortcuts, includesSettingsPanes,
                 includesAudioOutputs, includesRunningApps, includesScripts, includesMenuItems,
                 bangs, urlAliases);
    }

private:
    void reload(const std::vector<std::string>& keys);

    Subscription changedElsewhere_;
};

} // namespace pello
