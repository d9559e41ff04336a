#pragma once

#include "platform/linux/Environment.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The locales to try for a translated value, best first: de_AT@euro, de_AT, de@euro, de. Empty
/// where the environment asks for untranslated messages.
[[nodiscard]] std::vector<std::string> messageLocales(const Environment& environment);

/// The main group of a desktop entry file. Values are bytes as in the file: text that should be
/// UTF-8 may be malformed.
class DesktopEntry {
public:
    /// Reads the file's content: skips what is not a group, a key or a comment, takes either line
    /// ending, and of keys that stand twice the last. Nothing when there is no "[Desktop Entry]".
    [[nodiscard]] static std::optional<DesktopEntry> parse(std::string_view bytes);

    /// The value of `key`, its escapes resolved.
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const;

    /// The value of `key` in the first of `locales` that has one, else untranslated.
    [[nodiscard]] std::optional<std::string>
    localizedString(std::string_view key, const std::vector<std::string>& locales) const;

    /// The non-empty elements of a list; nothing when there is no such key.
    [[nodiscard]] std::optional<std::vector<std::string>> list(std::string_view key) const;
    [[nodiscard]] std::optional<std::vector<std::string>>
    localizedList(std::string_view key, const std::vector<std::string>& locales) const;

    /// Whether the value of `key` is "true".
    [[nodiscard]] bool flag(std::string_view key) const;

private:
    [[nodiscard]] const std::string* find(std::string_view key) const;
    [[nodiscard]] const std::string* findLocalized(std::string_view key,
                                                   const std::vector<std::string>& locales) const;

    std::map<std::string, std::string, std::less<>> values_; // raw, by key with its locale
};

/// The entry in `file`; nothing when it is unreadable, too large or no desktop entry. Any thread.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& file);

} // namespace pello
