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
        std::string defaultValue;
        /// The user has set it, to whatever value.
        bool isStored = false;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// `settings` must outlive this object.
    explicit SettingsText(PelloSettings& settings) : settings_(settings) {}

    /// All settings, in their own order.
    [[nodiscard]] std::vector<Entry> list() const;

    /// The setting called `key`; nothing when there is none.
    [[nodiscard]] std::optional<Entry> get(std::string_view key) const;

    /// Sets or resets a setting. Nothing when that was done, else a sentence that says why not; the
    /// setting is then as before.
    [[nodiscard]] std::optional<std::string> set(std::string_view key, std::string_view text);
    [[nodiscard]] std::optional<std::string> reset(std::string_view key);

private:
    [[nodiscard]] std::optional<std::string> setLaunchAtLogin(bool value);

    PelloSettings& settings_;
};

} // namespace pello
