#include "ui/terminal/TerminalRow.h"

#include "base/Text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <variant>

namespace pello::terminal {
namespace {

using Style = TerminalCell::Style;

constexpr int kIconColumn = 1;
constexpr int kTextColumn = 4;
constexpr int kGap = 2;
constexpr int kLeastSubtitle = 8;       // columns; less of one says nothing
constexpr std::size_t kMostRead = 4096; // bytes of a text; no window shows more in a line

std::string_view readable(std::string_view text) {
    return text.substr(0, kMostRead);
}

/// What Return does stands in the selected row.
std::string accessoryOf(const LaunchItem& item, const RowLook& look) {
    std::string own = item.accessory.value_or("");
    if (!look.isSelected) {
        return own;
    }
    if (look.remark) {
        return std::string(remarkText(*look.remark));
    }
    const bool isGlyph = item.kind == LaunchItem::Kind::command &&
                         std::holds_alternative<LaunchItem::TextIcon>(item.icon);
    const bool saysWhatReturnDoes = item.kind == LaunchItem::Kind::calculation || isGlyph;
    if (own.empty()) {
        return "↩";
    }
    return saysWhatReturnDoes ? "↩ " + own : own;
}

/// Writes `text` at the end of the line and returns the column where the room for others ends.
int putAtEnd(TerminalScreen& screen, int row, std::string_view text, Style style) {
    const int columns = screen.size().columns;
    const Glyphs shown = elidedAtEnd(glyphs(readable(text)), columns / 3);
    if (shown.empty()) {
        return columns - 1;
    }
    const int start = columns - 1 - width(shown);
    screen.put({.row = row, .column = start}, shown, style);
    return start - kGap;
}

/// Paths are elided in their middle, where they say least.
Glyphs subtitleIn(std::string_view text, int columns) {
    const bool isPath = text.find('/') != std::string_view::npos;
    const Glyphs whole = glyphs(readable(text));
    return isPath ? elidedInMiddle(whole, columns) : elidedAtEnd(whole, columns);
}

void putTexts(TerminalScreen& screen, int row, const Glyphs& title, Style style,
              std::string_view subtitle, int end) {
    const int room = std::max(0, end - kTextColumn);
    auto place =
        screen.put({.row = row, .column = kTextColumn}, elidedInMiddle(title, room), style);
    place.column += kGap;
    if (end - place.column >= kLeastSubtitle) {
        screen.put(place, subtitleIn(subtitle, end - place.column), Style::dim);
    }
}

} // namespace

void putResult(TerminalScreen& screen, int row, const SearchResult& result, const RowLook& look) {
    const LaunchItem& item = *result.item;
    if (const auto* icon = std::get_if<LaunchItem::TextIcon>(&item.icon)) {
        screen.put({.row = row, .column = kIconColumn},
                   elidedAtEnd(glyphs(icon->text), kTextColumn - kIconColumn - 1));
    }
    const int end = putAtEnd(screen, row, accessoryOf(item, look), Style::dim);
    const bool isAnswer = item.kind == LaunchItem::Kind::calculation;
    putTexts(screen, row, glyphs(readable(item.title), result.titleMatches),
             isAnswer ? Style::strong : Style::plain,
             look.reason.empty() ? item.subtitle.value_or("") : std::string(look.reason), end);
    if (look.isSelected) {
        screen.select(row);
    }
}

void putFailure(TerminalScreen& screen, int row, const ScriptFailure& failure) {
    screen.put({.row = row, .column = kIconColumn}, "!", Style::failure);
    const auto lines = text::lines(failure.detail);
    const int end = putAtEnd(screen, row, std::to_string(failure.status), Style::dim);
    putTexts(screen, row, glyphs(failure.name + " failed"), Style::failure,
             lines.empty() ? "" : lines.front(), end);
}

} // namespace pello::terminal
