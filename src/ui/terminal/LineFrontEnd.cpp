#include "ui/terminal/LineFrontEnd.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <iomanip>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

namespace pello {
namespace {

/// As many as fit into a terminal's window.
constexpr std::size_t kRowsAtOnce = 20;

/// The row that `line` names, counted from 0; nothing when it is not a plain number of one.
std::optional<int> rowNumber(std::string_view line, std::size_t rows) {
    int number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    const bool isWhole = error == std::errc() && end == line.data() + line.size();
    if (!isWhole || number < 1 || static_cast<std::size_t>(number) > rows) {
        return std::nullopt;
    }
    return number - 1;
}

} // namespace

LineFrontEnd::LineFrontEnd(PelloController& controller, std::function<void()> turn,
                           std::istream& input, std::ostream& output)
    : controller_(controller), turn_(std::move(turn)), input_(input), output_(output) {}

void LineFrontEnd::run() {
    output_ << "Type to search, a number to run that row, Return to run the first. Ctrl+D ends.\n";
    turn_();
    showRows();
    std::string line;
    for (;;) {
        output_ << "> " << std::flush;
        if (!std::getline(input_, line)) {
            output_ << '\n';
            return;
        }
        turn_();
        answer(line);
    }
}

void LineFrontEnd::answer(std::string_view line) {
    const auto trimmed = text::trimmingBlanks(line);
    if (trimmed.empty()) {
        runRow(0);
        return;
    }
    if (const auto row = rowNumber(trimmed, controller_.results().size())) {
        runRow(*row);
        return;
    }
    controller_.setQuery(line);
    showRows();
}

void LineFrontEnd::runRow(int row) {
    if (controller_.results().empty()) {
        return;
    }
    controller_.setSelection(row);
    const LaunchItem& item = *controller_.results()[static_cast<std::size_t>(row)].item;
    const bool isAnswer = item.kind == LaunchItem::Kind::calculation;
    output_ << (isAnswer ? "Copying " : "Running ") << item.title << '\n';
    controller_.runSelection();
    turn_();
    showNotice();
    controller_.show();
}

void LineFrontEnd::showRows() {
    int number = 0;
    const auto all = controller_.results();
    for (const SearchResult& result : all.first(std::min(all.size(), kRowsAtOnce))) {
        ++number;
        output_ << std::setw(2) << number << "  " << result.item->title;
        if (const auto& subtitle = result.item->subtitle; subtitle) {
            output_ << "  (" << *subtitle << ')';
        }
        output_ << '\n';
    }
    if (all.size() > kRowsAtOnce) {
        output_ << "and " << all.size() - kRowsAtOnce << " more\n";
    }
    if (number == 0 && !controller_.query().empty()) {
        output_ << "Nothing matches.\n";
    }
    showNotice();
}

void LineFrontEnd::showNotice() {
    if (const auto& notice = controller_.notice(); notice) {
        output_ << "! " << *notice << '\n';
        controller_.dismissNotice();
    }
}

} // namespace pello
