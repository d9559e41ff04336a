#include "ui/terminal/TerminalScreen.h"

#include <algorithm>
#include <cstddef>

namespace pello {

TerminalScreen::TerminalScreen(TerminalSize size)
    : size_{.rows = std::max(1, size.rows), .columns = std::max(1, size.columns)},
      cells_(static_cast<std::size_t>(size_.rows) * static_cast<std::size_t>(size_.columns)) {}

std::span<TerminalCell> TerminalScreen::cells(int row) {
    const auto columns = static_cast<std::size_t>(size_.columns);
    return std::span(cells_).subspan(static_cast<std::size_t>(row) * columns, columns);
}

std::span<const TerminalCell> TerminalScreen::line(int row) const {
    const auto columns = static_cast<std::size_t>(size_.columns);
    return std::span(cells_).subspan(static_cast<std::size_t>(row) * columns, columns);
}

std::string TerminalScreen::text(int row) const {
    std::string whole;
    for (const TerminalCell& cell : line(row)) {
        whole += cell.text;
    }
    whole.erase(whole.find_last_not_of(' ') + 1);
    return whole;
}

TerminalScreen::Place TerminalScreen::put(Place place, std::span<const TerminalGlyph> glyphs,
                                          TerminalCell::Style style) {
    if (place.row < 0 || place.row >= size_.rows || place.column < 0) {
        return place;
    }
    const auto line = cells(place.row);
    for (const TerminalGlyph& glyph : glyphs) {
        if (place.column + glyph.width > size_.columns) {
            break;
        }
        const auto shown = glyph.isMarked ? TerminalCell::Style::marked : style;
        auto begin = static_cast<std::size_t>(place.column);
        line[begin] = {.text = glyph.text, .style = shown};
        for (int more = 1; more < glyph.width; ++more) {
            line[++begin] = {.text = "", .style = shown};
        }
        place.column += glyph.width;
    }
    return place;
}

TerminalScreen::Place TerminalScreen::put(Place place, std::string_view utf8,
                                          TerminalCell::Style style) {
    return put(place, terminal::glyphs(utf8), style);
}

void TerminalScreen::select(int row) {
    if (row >= 0 && row < size_.rows) {
        for (TerminalCell& cell : cells(row)) {
            cell.isSelected = true;
        }
    }
}

} // namespace pello
