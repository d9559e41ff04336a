#include "platform/linux/DesktopEntry.h"

#include "platform/bundles/SmallFile.h"

#include <utility>

namespace pello {

namespace {

constexpr std::string_view kMainGroup = "Desktop Entry";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r\v\f";
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the next line off `rest`.
std::string_view nextLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return trimmed(line);
}

/// What the escape `\c` stands for; a backslash before anything else is one.
void appendUnescaped(std::string& text, char c) {
    constexpr std::string_view kCodes = "sntr\\";
    constexpr std::string_view kMeanings = " \n\t\r\\";
    if (const std::size_t code = kCodes.find(c); code != std::string_view::npos) {
        text += kMeanings[code];
    } else {
        text += '\\';
        text += c;
    }
}

std::string unescaped(std::string_view raw) {
    std::string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] == '\\' && i + 1 < raw.size()) {
            appendUnescaped(text, raw[++i]);
        } else {
            text += raw[i];
        }
    }
    return text;
}

/// The elements between semicolons; "\;" is a semicolon within an element.
std::vector<std::string> elements(std::string_view raw) {
    std::vector<std::string> found;
    std::string element;
    const auto close = [&] {
        if (!element.empty()) {
            found.push_back(std::exchange(element, {}));
        }
    };
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const bool isEscaped = raw[i] == '\\' && i + 1 < raw.size();
        i += static_cast<std::size_t>(isEscaped);
        if (isEscaped && raw[i] != ';') {
            appendUnescaped(element, raw[i]);
        } else if (!isEscaped && raw[i] == ';') {
            close();
        } else {
            element += raw[i];
        }
    }
    close();
    return found;
}

/// Adds the locales to try for a POSIX locale name: lang_COUNTRY.ENCODING@MODIFIER.
void addLocales(std::vector<std::string>& locales, std::string_view name) {
    const std::size_t at = name.find('@');
    const std::string modifier(at == std::string_view::npos ? "" : name.substr(at));
    const std::string place(name.substr(0, std::min(at, name.find('.'))));
    const std::string language = place.substr(0, place.find('_'));
    for (const std::string& base : {place, language}) {
        for (const std::string& locale : {base + modifier, base}) {
            if (locales.empty() || locales.back() != locale) {
                locales.push_back(locale);
            }
        }
    }
}

} // namespace

std::vector<std::string> messageLocales(const Environment& environment) {
    std::string_view chosen;
    for (const std::string_view variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        chosen = chosen.empty() ? environment.value(variable) : chosen;
    }
    if (chosen.empty() || chosen == "POSIX" || chosen == "C" || chosen.starts_with("C.")) {
        return {};
    }
    std::vector<std::string> locales;
    for (const std::string& preferred : environment.list("LANGUAGE")) {
        addLocales(locales, preferred);
    }
    addLocales(locales, chosen);
    return locales;
}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) {
        bytes.remove_prefix(kByteOrderMark.size());
    }
    DesktopEntry entry;
    bool isFound = false;
    bool isInMainGroup = false;
    while (!bytes.empty()) {
        const std::string_view line = nextLine(bytes);
        if (line.starts_with('[') && line.ends_with(']')) {
            isInMainGroup = line.substr(1, line.size() - 2) == kMainGroup;
            isFound = isFound || isInMainGroup;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInMainGroup && !line.starts_with('#') && equals != std::string_view::npos) {
            entry.values_.insert_or_assign(std::string(trimmed(line.substr(0, equals))),
                                           std::string(trimmed(line.substr(equals + 1))));
        }
    }
    return isFound ? std::optional(std::move(entry)) : std::nullopt;
}

std::optional<std::string> DesktopEntry::string(std::string_view key) const {
    const std::string* raw = find(key);
    return raw != nullptr ? std::optional(unescaped(*raw)) : std::nullopt;
}

std::optional<std::string>
DesktopEntry::localizedString(std::string_view key, const std::vector<std::string>& locales) const {
    const std::string* raw = findLocalized(key, locales);
    return raw != nullptr ? std::optional(unescaped(*raw)) : std::nullopt;
}

std::optional<std::vector<std::string>> DesktopEntry::list(std::string_view key) const {
    return localizedList(key, {});
}

std::optional<std::vector<std::string>>
DesktopEntry::localizedList(std::string_view key, const std::vector<std::string>& locales) const {
    const std::string* raw = findLocalized(key, locales);
    return raw != nullptr ? std::optional(elements(*raw)) : std::nullopt;
}

bool DesktopEntry::flag(std::string_view key) const {
    const std::string* raw = find(key);
    return raw != nullptr && *raw == "true";
}

const std::string* DesktopEntry::find(std::string_view key) const {
    const auto found = values_.find(key);
    return found != values_.end() ? &found->second : nullptr;
}

const std::string* DesktopEntry::findLocalized(std::string_view key,
                                               const std::vector<std::string>& locales) const {
    for (const std::string& locale : locales) {
        const std::string* translated = find(std::string(key) + '[' + locale + ']');
        if (translated != nullptr && !translated->empty()) { // left empty by a translator
            return translated;
        }
    }
    return find(key);
}

std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& file) {
    const auto bytes = readSmallFile(file);
    return bytes ? DesktopEntry::parse(*bytes) : std::nullopt;
}

} // namespace pello
