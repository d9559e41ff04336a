#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace pello {

/// One thing that the launcher can show and run, whatever source it comes from.
///
/// A plain value. Its identity is `id` alone: two items with the same id are equal whatever else
/// they hold.
struct LaunchItem {
    /// What an item is; decides ties in the ranking.
    enum class Kind {
        application,
        command,
        calculation,
        url,
        bang,
        script,
        menuItem,
        window,
        webSearch
    };

    /// Drawn as the desktop's icon of this file or application.
    struct FileIcon {
        std::filesystem::path url;
        friend bool operator==(const FileIcon&, const FileIcon&) = default;
    };
    /// Drawn as the named symbol.
    struct SymbolIcon {
        std::string name;
        friend bool operator==(const SymbolIcon&, const SymbolIcon&) = default;
    };
    /// Drawn as this text: an emoji, a key's glyph.
    struct TextIcon {
        std::string text;
        friend bool operator==(const TextIcon&, const TextIcon&) = default;
    };
    using Icon = std::variant<FileIcon, SymbolIcon, TextIcon>;

    /// Source prefix and rest, stable across runs: learned usage is kept under it.
    std::string id;
    /// The primary text, which queries are matched against.
    std::string title;
    std::optional<std::string> subtitle;
    Kind kind = Kind::application;
    Icon icon;
    /// Further words that a query may match.
    std::vector<std::string> keywords;
    /// Short text at the trailing end of the row.
    std::optional<std::string> accessory;
    /// The action asks the user before it does anything.
    bool requiresConfirmation = false;
    /// Made from the query itself: nothing is learned about it.
    bool isEphemeral = false;
    /// What "reveal" shows in the file viewer.
    std::optional<std::filesystem::path> revealURL;
    /// The action. Main thread; owns whatever it captured as long as the item lives.
    std::function<void()> run;

    friend bool operator==(const LaunchItem& left, const LaunchItem& right) {
        return left.id == right.id;
    }
};

/// The kind's name, spelt as its enumerator.
[[nodiscard]] std::string_view kindName(LaunchItem::Kind kind);

} // namespace pello

template <>
struct std::hash<pello::LaunchItem> {
    std::size_t operator()(const pello::LaunchItem& item) const noexcept {
        return std::hash<std::string>{}(item.id);
    }
};
