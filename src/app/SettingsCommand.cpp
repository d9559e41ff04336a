#include "app/SettingsCommand.h"

#include "app/StoreSession.h"
#include "core/settings/SettingsArchive.h"
#include "core/settings/SettingsText.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>

namespace pello {
namespace {

constexpr std::string_view kStandardStream = "-";

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
int finish(const std::optional<SettingsText::Problem>& problem, StoreSession& session) {
    if (problem) {
        std::cerr << "pello: " << problem->sentence << '\n';
        return problem->kind == SettingsText::Problem::Kind::refused ? ExitStatus::kNothing
                                                                     : ExitStatus::kUsage;
    }
    return session.finish();
}

int complain(const std::string& file, std::string_view what) {
    std::cerr << "pello: \"" << file << "\" cannot be " << what << '\n';
    return ExitStatus::kNothing;
}

int exportTo(const std::string& file, SettingsText& settings) {
    const std::string text = SettingsArchive(settings).exported();
    if (file == kStandardStream) {
        std::cout << text << std::flush;
        return std::cout ? ExitStatus::kSuccess : complain("standard output", "written");
    }
    std::ofstream output(file, std::ios::binary);
    output << text;
    output.close();
    return output ? ExitStatus::kSuccess : complain(file, "written");
}

int importFrom(const std::string& file, SettingsText& settings, StoreSession& session) {
    std::ifstream input;
    if (file != kStandardStream) {
        input.open(file, std::ios::binary);
    }
    std::istream& source = file == kStandardStream ? std::cin : input;
    const std::string text(std::istreambuf_iterator<char>(source), {});
    if (!input || source.bad()) {
        return complain(file, "read");
    }
    return finish(SettingsArchive(settings).import(text), session);
}

} // namespace

int run(const SettingsCommand& command) {
    StoreSession session;
    PelloSettings store(session.defaults(), session.loginItem());
    SettingsText settings(store);
    switch (command.action) {
    case SettingsCommand::Action::list:
        return list(settings);
    case SettingsCommand::Action::get:
        return get(settings, command.key);
    case SettingsCommand::Action::set:
        return finish(settings.set(command.key, command.value), session);
    case SettingsCommand::Action::reset:
        return finish(settings.reset(command.key), session);
    case SettingsCommand::Action::exportAll:
        return exportTo(command.file, settings);
    case SettingsCommand::Action::importAll:
        return importFrom(command.file, settings, session);
    }
    return ExitStatus::kUsage;
}

} // namespace pello
