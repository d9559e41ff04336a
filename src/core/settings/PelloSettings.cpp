#include "core/settings/PelloSettings.h"

#include <algorithm>

namespace pello {
namespace {

/// What a fresh user gets where an absent key would read as false, 0 or nothing.
PropertyDictionary registeredValues() {
    return {
        {"activation", rawValue(Activation::rightCommand)},
        {"searchEngine", rawValue(WebSearchEngine::duckDuckGo)},
        {"maximumResults", 8},
        {"fontSize", 16.0},
        {"usesGlass", true},
        {"includesSystemCommands", true},
        {"includesShortcuts", true},
        {"includesScripts", true},
        {"includesMenuItems", true},
        {"switcherIconSize", 26.0},
        {"switcherHasBackground", true},
        {"commandTabIconSize", 26.0},
        {"commandTabPosition", rawValue(CommandTabPosition::withLauncher)},
    };
}

UserDefaults& registering(UserDefaults& defaults) {
    defaults.registerDefaults(registeredValues());
    return defaults;
}

} // namespace

PelloSettings::PelloSettings(UserDefaults& defaults, LoginItem& loginItem)
    : scope_{.defaults = registering(defaults), .changed = changed},
      launchAtLogin(loginItem, changed),
      changedElsewhere_(defaults.changedElsewhere.connect(
          [this](const std::vector<std::string>& keys) { reload(keys); })) {}

std::vector<std::filesystem::path>
PelloSettings::searchDirectories(std::span<const std::filesystem::path> standardFolders) const {
    std::vector<std::filesystem::path> folders(standardFolders.begin(), standardFolders.end());
    folders.insert(folders.end(), extraDirectories().begin(), extraDirectories().end());
    return folders;
}

void PelloSettings::reload(const std::vector<std::string>& keys) {
    forEach([&keys](auto& setting) {
        const auto concernsIt = [&](const std::string& key) { return setting.isReadFrom(key); };
        if (std::any_of(keys.begin(), keys.end(), concernsIt)) {
            setting.reload();
        }
    });
}

} // namespace pello
