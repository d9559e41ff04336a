#include "core/settings/SettingsText.h"

#include "base/Text.h"
#include "core/settings/SettingForm.h"

#include <algorithm>

namespace pello {
namespace {

using Problem = SettingsText::Problem;

constexpr std::string_view kLaunchAtLogin = "launchAtLogin";
constexpr std::size_t kQuotedCharacters = 40;

template <class T>
SettingsText::Entry entryOf(const Setting<T>& setting) {
    return {.key = setting.key(), .value = SettingForm<T>::text(setting.get())};
}

SettingsText::Entry entryOf(const LaunchAtLogin& setting) {
    return {.key = std::string(kLaunchAtLogin), .value = SettingForm<bool>::text(setting.get())};
}

std::string quoted(std::string_view text) {
    const auto characters = text::characterViews(text);
    std::string shown;
    for (std::size_t i = 0; i < std::min(characters.size(), kQuotedCharacters); ++i) {
        shown += characters[i];
    }
    return '"' + shown + (characters.size() > kQuotedCharacters ? "…\"" : "\"");
}

Problem unknown(std::string_view key) {
    return {.kind = Problem::Kind::notUnderstood, .sentence = "there is no setting " + quoted(key)};
}

template <class T>
Problem unfit(std::string_view key, std::string_view text) {
    return {.kind = Problem::Kind::notUnderstood,
            .sentence =
                quoted(key) + " takes " + SettingForm<T>::expected(key) + ", not " + quoted(text)};
}

/// The value that `text` says for `setting`, or nothing and why in `problem`.
template <class T>
std::optional<T> valueFor(const Setting<T>& setting, std::string_view text,
                          std::optional<Problem>& problem) {
    auto value = SettingForm<T>::parse(text, setting.key());
    problem = value ? std::nullopt : std::optional(unfit<T>(setting.key(), text));
    return value;
}

} // namespace

std::vector<SettingsText::Entry> SettingsText::list() const {
    std::vector<Entry> entries;
    settings_.forEach([&entries](const auto& setting) { entries.push_back(entryOf(setting)); });
    entries.push_back(entryOf(settings_.launchAtLogin));
    return entries;
}

std::optional<SettingsText::Entry> SettingsText::get(std::string_view key) const {
    auto entries = list();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [key](const Entry& entry) { return entry.key == key; });
    return found != entries.end() ? std::optional(std::move(*found)) : std::nullopt;
}

std::optional<SettingsText::Problem> SettingsText::problemOf(std::string_view key,
                                                             std::string_view text) const {
    if (key == kLaunchAtLogin) {
        return SettingForm<bool>::parse(text, key) ? std::nullopt
                                                   : std::optional(unfit<bool>(key, text));
    }
    std::optional<Problem> problem = unknown(key);
    settings_.forEach([&](const auto& setting) {
        if (setting.key() == key) {
            (void)valueFor(setting, text, problem);
        }
    });
    return problem;
}

std::optional<SettingsText::Problem> SettingsText::set(std::string_view key,
                                                       std::string_view text) {
    if (key == kLaunchAtLogin) {
        const auto value = SettingForm<bool>::parse(text, key);
        return value ? setLaunchAtLogin(*value) : unfit<bool>(key, text);
    }
    std::optional<Problem> problem = unknown(key);
    settings_.forEach([&](auto& setting) {
        if (setting.key() == key) {
            if (auto value = valueFor(setting, text, problem)) {
                setting.set(std::move(*value));
            }
        }
    });
    return problem;
}

std::optional<SettingsText::Problem> SettingsText::reset(std::string_view key) {
    if (key == kLaunchAtLogin) {
        return setLaunchAtLogin(false);
    }
    std::optional<Problem> problem = unknown(key);
    settings_.forEach([&](auto& setting) {
        if (setting.key() == key) {
            setting.reset();
            problem.reset();
        }
    });
    return problem;
}

std::optional<SettingsText::Problem> SettingsText::setLaunchAtLogin(bool value) {
    settings_.launchAtLogin.set(value);
    if (settings_.launchAtLogin.get() != value) {
        return Problem{.kind = Problem::Kind::refused,
                       .sentence = "the system refused to change " + quoted(kLaunchAtLogin)};
    }
    return std::nullopt;
}

} // namespace pello
