#include "ui/terminal/TerminalLayout.h"

#include "base/Text.h"
#include "ui/terminal/TerminalRow.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace pello::terminal {
namespace {

using Place = TerminalScreen::Place;
using Style = TerminalCell::Style;

constexpr int kMargin = 4;    // the texts of the field and of the rows begin below each other
constexpr int kRoomyRows = 8; // a window from here on has lines to spare
constexpr int kMostToldLines = 3;
constexpr std::string_view kHints =
    "Return run · Tab complete · Ctrl+R reveal · Alt+Up history · Esc leave";

struct FootLine {
    Glyphs text;
    Style style = Style::plain;
};

/// How the lines of the window are shared.
struct Plan {
    std::vector<FootLine> foot;
    int header = 1;
    int rows = 0;
    int failures = 0;
};

void append(std::vector<FootLine>& foot, std::string_view text, int columns, Style style) {
    for (Glyphs& line : wrapped(glyphs(text), columns, kMostToldLines)) {
        foot.push_back({.text = std::move(line), .style = style});
    }
}

std::vector<FootLine> footOf(const TerminalView& view, TerminalSize size) {
    const int columns = size.columns - 2;
    std::vector<FootLine> foot;
    if (view.question) {
        append(foot, view.question->title, columns, Style::strong);
        append(foot, view.question->message, columns, Style::plain);
        const std::string answers = "y: " + view.question->confirmTitle + "   n: Cancel";
        foot.push_back({.text = elidedAtEnd(glyphs(answers), columns), .style = Style::strong});
    } else if (view.notice) {
        append(foot, "! " + *view.notice, columns, Style::failure);
    } else if (!view.status.empty()) {
        foot.push_back({.text = elidedInMiddle(glyphs(view.status), columns)});
    } else if (size.rows >= kRoomyRows) {
        const std::string_view hints =
            view.opened != nullptr ? "Esc back · Delete dismiss · Ctrl+R reveal" : kHints;
        foot.push_back({.text = elidedAtEnd(glyphs(hints), columns), .style = Style::dim});
    }
    const auto most = static_cast<std::size_t>(std::max(0, size.rows - 1));
    if (foot.size() > most) { // what can be answered matters most
        foot.erase(foot.begin(), foot.end() - static_cast<std::ptrdiff_t>(most));
    }
    return foot;
}

Plan planned(const TerminalView& view, TerminalSize size) {
    Plan plan{.foot = footOf(view, size), .header = size.rows >= kRoomyRows ? 2 : 1};
    const int left = std::max(0, size.rows - plan.header - static_cast<int>(plan.foot.size()));
    if (view.opened == nullptr) {
        const int most = view.results.empty() ? left : left / 2;
        plan.failures = std::min(static_cast<int>(view.failures.size()), most);
    }
    plan.rows = left - plan.failures;
    return plan;
}

/// Rows turn over page by page: that writes less than moving each by one line.
int firstShown(int selection, int rows) {
    return rows > 0 ? selection / rows * rows : 0;
}

/// The end of `text` that leaves room for the caret behind it.
Glyphs endThatFits(Glyphs text, int columns) {
    auto begin = text.begin();
    for (int all = width(text); all >= columns && begin != text.end(); ++begin) {
        all -= begin->width;
    }
    text.erase(text.begin(), begin);
    return text;
}

void putField(TerminalScreen& screen, const TerminalView& view) {
    const int columns = screen.size().columns;
    Place place = screen.put({.row = 0, .column = 1}, "›", Style::strong);
    place.column = std::min(kMargin, std::max(2, columns / 4));
    if (!view.prompt.empty()) {
        const auto prompt = elidedAtEnd(glyphs(view.prompt + ": "), columns / 2);
        place = screen.put(place, prompt, Style::dim);
    }
    const Glyphs before = endThatFits(glyphs(view.beforeCaret), columns - place.column);
    place = screen.put(place, before, Style::strong);
    screen.caret = Place{.row = 0, .column = std::min(place.column, columns - 1)};
    if (view.beforeCaret.empty() && view.afterCaret.empty() && view.prompt.empty()) {
        screen.put(place, "Type to search", Style::dim);
        return;
    }
    place = screen.put(place, view.afterCaret, Style::strong);
    screen.put(place, view.completion, Style::dim);
}

void putRule(TerminalScreen& screen) {
    for (int column = 0; column < screen.size().columns; ++column) {
        screen.put({.row = 1, .column = column}, "─", Style::dim);
    }
}

RowLook lookOf(const TerminalView& view, int index) {
    const auto place = static_cast<std::size_t>(index);
    return {.isSelected = index == view.selection && !view.selectedFailure,
            .remark = view.remark,
            .reason = place < view.reasons.size() ? view.reasons[place] : std::string_view()};
}

void putRows(TerminalScreen& screen, const TerminalView& view, const Plan& plan) {
    const int first = firstShown(view.selection, plan.rows);
    const int last = std::min(first + plan.rows, static_cast<int>(view.results.size()));
    for (int index = first; index < last; ++index) {
        const int row = plan.header + index - first;
        putResult(screen, row, view.results[static_cast<std::size_t>(index)], lookOf(view, index));
    }
    if (view.results.empty() && view.failures.empty() && !view.beforeCaret.empty() &&
        plan.rows > 0) {
        screen.put({.row = plan.header, .column = kMargin}, "Nothing matches.", Style::dim);
    }
}

/// The newest first; the selected one always among them.
void putFailures(TerminalScreen& screen, const TerminalView& view, const Plan& plan) {
    const int first = firstShown(view.selectedFailure.value_or(0), plan.failures);
    const int last = std::min(first + plan.failures, static_cast<int>(view.failures.size()));
    const int top = screen.size().rows - static_cast<int>(plan.foot.size()) - plan.failures;
    for (int index = first; index < last; ++index) {
        const int row = top + index - first;
        putFailure(screen, row, view.failures[static_cast<std::size_t>(index)]);
        if (view.selectedFailure == index) {
            screen.select(row);
        }
    }
}

/// All of what a script said.
void putDetail(TerminalScreen& screen, const TerminalView& view, const Plan& plan) {
    const ScriptFailure& failure = *view.opened;
    const int columns = screen.size().columns - 2;
    int row = plan.header;
    const int end = plan.header + plan.rows;
    if (row < end) {
        const std::string heading = failure.name + " failed: " + failure.fileName + ", status " +
                                    std::to_string(failure.status);
        screen.put({.row = row++, .column = 1}, elidedInMiddle(glyphs(heading), columns),
                   Style::failure);
    }
    const auto lines = text::lines(failure.detail);
    const auto count = static_cast<int>(lines.size());
    for (int line = view.firstLine; line < count; ++line) {
        const auto whole = glyphs(lines[static_cast<std::size_t>(line)]);
        for (const Glyphs& part : wrapped(whole, columns, std::max(0, end - row))) {
            screen.put({.row = row++, .column = 1}, part);
        }
    }
}

void putFoot(TerminalScreen& screen, const Plan& plan) {
    int row = screen.size().rows - static_cast<int>(plan.foot.size());
    for (const FootLine& line : plan.foot) {
        screen.put({.row = row++, .column = 1}, line.text, line.style);
    }
}

} // namespace

TerminalScreen layOut(const TerminalView& view, TerminalSize size) {
    TerminalScreen screen(size);
    const Plan plan = planned(view, screen.size());
    putField(screen, view);
    if (plan.header > 1) {
        putRule(screen);
    }
    if (view.opened != nullptr) {
        putDetail(screen, view, plan);
    } else {
        putRows(screen, view, plan);
        putFailures(screen, view, plan);
    }
    putFoot(screen, plan);
    if (view.question || view.opened != nullptr) {
        screen.caret.reset();
    }
    return screen;
}

int rowsAtOnce(const TerminalView& view, TerminalSize size) {
    return std::max(1, planned(view, size).rows);
}

} // namespace pello::terminal
