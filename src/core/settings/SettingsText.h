#pragma once

#include "core/settings/PelloSettings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The settings as text, for the command line. Main thread only.
class SettingsText {
public:
    struct Entry {
        std::string key;
        std::string value;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// Why a setting was not changed.
    struct Problem {
        enum class Kind {
            notUnderstood, ///< no such setting, or a value that it does not take
            refused        ///< understood, but the system does not do it
        };
        Kind kind = Kind::notUnderstood;
        std::string sentence;
    };

    /// `settings` must outlive this object.
    explicit SettingsText(PelloSettings& settings) : settings_(settings) {}

    /// All settings, in their own order.
    [[nodiscard]] std::vector<Entry> list() const;

    /// The setting called `key`; nothing when there is none.
    [[nodiscard]] std::optional<Entry> get(std::string_view key) const;

    /// Why `set` would not understand these. Nothing when it would.
    [[nodiscard]] std::optional<Problem> problemOf(std::string_view key,
                                                   std::string_view text) const;

    /// Sets or resets a setting. Nothing when that was done; else the setting is as before.
    [[nodiscard]] std::optional<Problem> set(std::string_view key, std::string_view text);
    [[nodiscard]] std::optional<Problem> reset(std::string_view key);

private:
    [[nodiscard]] std::optional<Problem> setLaunchAtLogin(bool value);

    PelloSettings& settings_;
};

} // namespace pello
