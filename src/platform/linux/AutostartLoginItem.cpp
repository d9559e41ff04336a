#include "platform/linux/AutostartLoginItem.h"

#include "platform/linux/AtomicFile.h"
#include "platform/linux/DesktopEntry.h"

#include <string_view>
#include <system_error>

namespace pello {
namespace {

constexpr std::string_view kEntryName = "is.tolva.pello.desktop";

/// One word of an `Exec` value: quoted, with what is special inside quotes behind a backslash and
/// "%" doubled.
std::string quotedWord(std::string_view word) {
    std::string quoted = "\"";
    for (const char c : word) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
        if (c == '%') {
            quoted += '%';
        }
    }
    return quoted + '"';
}

/// `text` with the escapes that every value of a desktop entry has.
std::string escapedValue(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '\\':
            escaped += R"(\\)";
            break;
        case '\n':
            escaped += R"(\n)";
            break;
        case '\r':
            escaped += R"(\r)";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

std::string execValue(const std::vector<std::string>& command) {
    std::string line;
    for (const std::string& word : command) {
        line += (line.empty() ? "" : " ") + quotedWord(word);
    }
    return escapedValue(line);
}

std::string entryContent(const std::vector<std::string>& command) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Pello\n"
           "Icon=is.tolva.pello\n"
           "Exec=" +
           execValue(command) +
           "\n"
           "X-GNOME-Autostart-enabled=true\n";
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const std::filesystem::path& autostartFolder,
                                       std::vector<std::string> command)
    : entry_(autostartFolder / kEntryName), command_(std::move(command)) {}

bool AutostartLoginItem::isEnabled() const {
    const auto entry = readDesktopEntry(entry_);
    if (!entry || entry->flag("Hidden") || entry->string("Type") != "Application") {
        return false;
    }
    // GNOME's tools switch an entry off by this key of their own.
    return entry->string("Exec").has_value() &&
           entry->string("X-GNOME-Autostart-enabled").value_or("true") != "false";
}

bool AutostartLoginItem::registerItem() {
    const auto entry = followingLinks(entry_);
    return !makePrivateFolder(entry.parent_path()) && !replaceFile(entry, entryContent(command_));
}

bool AutostartLoginItem::unregisterItem() {
    std::error_code error;
    std::filesystem::remove(entry_, error);
    return !error;
}

} // namespace pello
