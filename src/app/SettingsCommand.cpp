#include "app/SettingsCommand.h"

#include "app/HeadlessPlatform.h"
#include "core/settings/SettingsText.h"

#include <iostream>

namespace pello {
namespace {

int list(const SettingsText& settings) {
    for (const SettingsText::Entry& entry : settings.list()) {
        std::cout << entry.key << " = " << entry.value << '\n';
    }
    return ExitStatus::kSuccess;
}

int get(const SettingsText& settings, const std::string& key) {
    const auto entry = settings.get(key);
    if (!entry) {
        std::cerr << "pello: there is no setting \"" << key << "\"\n";
        return ExitStatus::kUsage;
    }
    std::cout << entry->value << '\n';
    return ExitStatus::kSuccess;
}

/// Reports a change that was not made, or writes one that was to the disk.
int finish(const std::optional<SettingsText::Problem>& problem, UserDefaults& defaults) {
    if (problem) {
        std::cerr << "pello: " << problem->sentence << '\n';
        return problem->kind == SettingsText::Problem::Kind::refused ? ExitStatus::kNothing
                                                                     : ExitStatus::kUsage;
    }
    return defaults.flush() ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

} // namespace

int run(const SettingsCommand& command) {
    HeadlessPlatform platform({});
    const auto complaining = platform.defaults().problem.connect(
        [](const std::string& sentence) { std::cerr << "pello: " << sentence << '\n'; });
    platform.turn();
    PelloSettings store(platform.defaults(), platform.loginItem());
    SettingsText settings(store);
    switch (command.action) {
    case SettingsCommand::Action::list:
        return list(settings);
    case SettingsCommand::Action::get:
        return get(settings, command.key);
    case SettingsCommand::Action::set:
        return finish(settings.set(command.key, command.value), platform.defaults());
    case SettingsCommand::Action::reset:
        return finish(settings.reset(command.key), platform.defaults());
    }
    return ExitStatus::kUsage;
}

} // namespace pello
