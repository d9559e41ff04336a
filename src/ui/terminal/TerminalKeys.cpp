#include "ui/terminal/TerminalKeys.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace pello {
namespace {

using Name = TerminalKey::Name;
using With = TerminalKey::With;

} // namespace

/// A key and what it does; of characters, which one.
struct TerminalKeys::Binding {
    Name name;
    With with;
    std::string_view text;
    void (TerminalKeys::*action)();
};

TerminalKeys::TerminalKeys(PelloController& controller, EditLine& line, TerminalFailures& failures,
                           Window window)
    : controller_(controller), line_(line), failures_(failures), window_(std::move(window)) {
    onChange_ = controller_.changed.connect([this] {
        if (line_.text() != controller_.query()) {
            line_.setText(controller_.query());
        }
    });
}

void TerminalKeys::handle(const TerminalKey& key) {
    if (failures_.opened() != nullptr) {
        handleReading(key);
        return;
    }
    handleTyping(key);
    controller_.setQuery(line_.text());
}

/// While a failure is read.
void TerminalKeys::handleReading(const TerminalKey& key) {
    const bool isControl = key.with == With::control;
    if (key.name == Name::up) {
        failures_.scroll(-1);
    } else if (key.name == Name::down) {
        failures_.scroll(1);
    } else if (key.name == Name::pageUp) {
        failures_.scroll(-window_.rowsAtOnce());
    } else if (key.name == Name::pageDown) {
        failures_.scroll(window_.rowsAtOnce());
    } else if (key.name == Name::forwardDelete) {
        failures_.dismiss();
    } else if (isControl && key.text == "r") {
        reveal();
    } else if (isControl && key.text == "l") {
        redraw();
    } else if (key.name == Name::escape || key.name == Name::enter ||
               (isControl && key.text == "c")) {
        failures_.close();
    }
}

void TerminalKeys::handleTyping(const TerminalKey& key) {
    // Terminals cannot tell Shift+Return and Ctrl+1 from the plain keys, but they can with Alt.
    static constexpr auto kBindings = std::to_array<Binding>({
        {Name::enter, With::nothing, "", &TerminalKeys::run},
        {Name::enter, With::alt, "", &TerminalKeys::runOtherwise},
        {Name::enter, With::shift, "", &TerminalKeys::runOtherwise},
        {Name::up, With::nothing, "", &TerminalKeys::previousOrOlder},
        {Name::down, With::nothing, "", &TerminalKeys::nextOrNewer},
        {Name::character, With::control, "p", &TerminalKeys::previous},
        {Name::character, With::control, "n", &TerminalKeys::next},
        {Name::up, With::alt, "", &TerminalKeys::older},
        {Name::down, With::alt, "", &TerminalKeys::newer},
        {Name::character, With::alt, "p", &TerminalKeys::older},
        {Name::character, With::alt, "n", &TerminalKeys::newer},
        {Name::pageUp, With::nothing, "", &TerminalKeys::pageUp},
        {Name::pageDown, With::nothing, "", &TerminalKeys::pageDown},
        {Name::home, With::nothing, "", &TerminalKeys::homeOrFirst},
        {Name::end, With::nothing, "", &TerminalKeys::endOrLast},
        {Name::tab, With::nothing, "", &TerminalKeys::complete},
        {Name::right, With::nothing, "", &TerminalKeys::rightOrComplete},
        {Name::character, With::control, "f", &TerminalKeys::rightOrComplete},
        {Name::escape, With::nothing, "", &TerminalKeys::clearOrEnd},
        {Name::character, With::control, "r", &TerminalKeys::reveal},
        {Name::character, With::control, "c", &TerminalKeys::copyOrEnd},
        {Name::character, With::control, "d", &TerminalKeys::eraseOrEnd},
        {Name::character, With::control, "l", &TerminalKeys::redraw},
        {Name::character, With::control, "z", &TerminalKeys::suspend},
        {Name::left, With::nothing, "", &TerminalKeys::left},
        {Name::character, With::control, "b", &TerminalKeys::left},
        {Name::left, With::control, "", &TerminalKeys::wordLeft},
        {Name::left, With::alt, "", &TerminalKeys::wordLeft},
        {Name::character, With::alt, "b", &TerminalKeys::wordLeft},
        {Name::right, With::control, "", &TerminalKeys::wordRight},
        {Name::right, With::alt, "", &TerminalKeys::wordRight},
        {Name::character, With::alt, "f", &TerminalKeys::wordRight},
        {Name::character, With::control, "a", &TerminalKeys::lineStart},
        {Name::character, With::control, "e", &TerminalKeys::lineEnd},
        {Name::backspace, With::nothing, "", &TerminalKeys::backspace},
        {Name::backspace, With::alt, "", &TerminalKeys::eraseWord},
        {Name::forwardDelete, With::nothing, "", &TerminalKeys::deleteOrDismiss},
        {Name::forwardDelete, With::shift, "", &TerminalKeys::forget},
        {Name::character, With::control, "w", &TerminalKeys::eraseWord},
        {Name::character, With::control, "u", &TerminalKeys::eraseToStart},
        {Name::character, With::control, "k", &TerminalKeys::eraseToEndOrExplain},
        {Name::character, With::alt, "k", &TerminalKeys::explain},
    });
    if (key.name == Name::character && key.with == With::nothing) {
        failures_.select(std::nullopt);
        line_.insert(key.text);
        return;
    }
    if (isRowKey(key)) {
        runRow(key.text.front() - '1');
        return;
    }
    const auto* const found = std::ranges::find_if(kBindings, [&](const Binding& binding) {
        return binding.name == key.name && binding.with == key.with && binding.text == key.text;
    });
    if (found != kBindings.end()) {
        (this->*found->action)();
    }
}

bool TerminalKeys::isRowKey(const TerminalKey& key) {
    const bool isHeld = key.with == With::alt || key.with == With::control;
    return key.name == Name::character && isHeld && key.text.size() == 1 && key.text >= "1" &&
           key.text <= "9";
}

void TerminalKeys::run() {
    if (failures_.selection()) {
        failures_.open();
        return;
    }
    tellOfSelection();
    controller_.runSelection();
}

void TerminalKeys::runOtherwise() {
    if (!failures_.selection() && !controller_.offerVariants()) {
        controller_.runAgain();
    }
}

void TerminalKeys::runRow(int row) {
    if (row <= lastRow()) {
        select(row);
        run();
    }
}

void TerminalKeys::reveal() {
    if (const ScriptFailure* failure = failures_.chosen()) {
        controller_.revealScript(failure->fileName);
    } else {
        controller_.revealSelection();
    }
}

void TerminalKeys::copyOrEnd() {
    if (failures_.selection() || !controller_.copySelection()) {
        window_.end();
    }
}

void TerminalKeys::eraseOrEnd() {
    if (line_.text().empty() && !controller_.argumentPrompt()) {
        window_.end();
    }
    line_.eraseRight();
}

void TerminalKeys::clearOrEnd() {
    if (controller_.withdrawVariants()) {
        return;
    }
    if (controller_.argumentPrompt()) {
        controller_.leaveArgumentPrompt();
    } else if (controller_.notice()) {
        controller_.dismissNotice();
    } else if (line_.text().empty()) {
        window_.end();
    } else {
        line_.setText("");
    }
}

void TerminalKeys::complete() {
    if (!failures_.selection()) {
        controller_.acceptCompletion();
    }
}

void TerminalKeys::rightOrComplete() {
    if (line_.isCaretAtEnd()) {
        complete();
    } else {
        line_.moveRight();
    }
}

void TerminalKeys::backspace() {
    if (controller_.argumentPrompt() && line_.text().empty()) {
        controller_.leaveArgumentPrompt();
    } else {
        line_.eraseLeft();
    }
}

void TerminalKeys::deleteOrDismiss() {
    if (!failures_.dismiss()) {
        line_.eraseRight();
    }
}

void TerminalKeys::eraseToEndOrExplain() {
    if (line_.isCaretAtEnd()) {
        explain();
    } else {
        line_.eraseToEnd();
    }
}

void TerminalKeys::forget() {
    if (!failures_.selection()) {
        controller_.forgetSelection();
    }
}

void TerminalKeys::previous() {
    if (const auto failure = failures_.selection()) {
        // Above the first are the results.
        failures_.select(*failure > 0 ? std::optional(*failure - 1) : std::nullopt);
    } else {
        select(controller_.selection() - 1);
    }
}

/// Below the last result are the failures.
void TerminalKeys::next() {
    if (const auto failure = failures_.selection()) {
        failures_.select(*failure + 1);
    } else if (!failures_.all().empty() && controller_.selection() >= lastRow()) {
        failures_.select(0);
    } else {
        select(controller_.selection() + 1);
    }
}

void TerminalKeys::previousOrOlder() {
    const bool isAtTop = controller_.selection() == 0 && !failures_.selection();
    if (isAtTop) {
        older();
    } else {
        previous();
    }
}

void TerminalKeys::nextOrNewer() {
    const bool isRecalling = controller_.historyCursor().has_value();
    if (isRecalling && controller_.selection() == 0) {
        newer();
    } else {
        next();
    }
}

void TerminalKeys::pageUp() {
    select(controller_.selection() - window_.rowsAtOnce());
}

void TerminalKeys::pageDown() {
    select(controller_.selection() + window_.rowsAtOnce());
}

void TerminalKeys::homeOrFirst() {
    if (line_.isCaretAtStart()) {
        select(0);
    }
    line_.moveToStart();
}

void TerminalKeys::endOrLast() {
    if (line_.isCaretAtEnd()) {
        select(lastRow());
    }
    line_.moveToEnd();
}

// NOLINTBEGIN(*-make-member-function-const): they stand in a table of members
void TerminalKeys::redraw() {
    window_.redraw();
}

void TerminalKeys::suspend() {
    window_.suspend();
}
// NOLINTEND(*-make-member-function-const)

void TerminalKeys::select(int row) {
    failures_.select(std::nullopt);
    controller_.setSelection(std::clamp(row, 0, std::max(0, lastRow())));
}

void TerminalKeys::tellOfSelection() {
    const auto results = controller_.results();
    if (!results.empty()) {
        const LaunchItem& item = *results[static_cast<std::size_t>(controller_.selection())].item;
        const bool isAnswer = item.kind == LaunchItem::Kind::calculation;
        window_.tell((isAnswer ? "Copying " : "Running ") + item.title);
    }
}

int TerminalKeys::lastRow() const {
    return static_cast<int>(controller_.results().size()) - 1;
}

} // namespace pello
