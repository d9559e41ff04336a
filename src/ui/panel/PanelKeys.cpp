#include "ui/panel/PanelKeys.h"

#include <algorithm>
#include <array>

namespace pello {

struct PanelKeys::Binding {
    int key;
    Qt::KeyboardModifiers modifiers;
    bool (PanelKeys::*action)();
};

bool PanelKeys::handle(const QKeyEvent& event) {
    static const auto kBindings = std::to_array<Binding>({
        {Qt::Key_Return, Qt::NoModifier, &PanelKeys::run},
        {Qt::Key_Enter, Qt::NoModifier, &PanelKeys::run},
        {Qt::Key_Return, Qt::ShiftModifier, &PanelKeys::runOtherwise},
        {Qt::Key_Enter, Qt::ShiftModifier, &PanelKeys::runOtherwise},
        {Qt::Key_Up, Qt::NoModifier, &PanelKeys::previousOrOlder},
        {Qt::Key_Down, Qt::NoModifier, &PanelKeys::nextOrNewer},
        {Qt::Key_P, Qt::ControlModifier, &PanelKeys::previous},
        {Qt::Key_N, Qt::ControlModifier, &PanelKeys::next},
        {Qt::Key_Up, Qt::AltModifier, &PanelKeys::older},
        {Qt::Key_Down, Qt::AltModifier, &PanelKeys::newer},
        {Qt::Key_PageUp, Qt::NoModifier, &PanelKeys::pageUp},
        {Qt::Key_PageDown, Qt::NoModifier, &PanelKeys::pageDown},
        {Qt::Key_Home, Qt::NoModifier, &PanelKeys::toFirst},
        {Qt::Key_End, Qt::NoModifier, &PanelKeys::toLast},
        {Qt::Key_Tab, Qt::NoModifier, &PanelKeys::complete},
        {Qt::Key_Backtab, Qt::ShiftModifier, &PanelKeys::swallow},
        {Qt::Key_Right, Qt::NoModifier, &PanelKeys::completeByRight},
        {Qt::Key_Left, Qt::NoModifier, &PanelKeys::completeByLeft},
        {Qt::Key_Escape, Qt::NoModifier, &PanelKeys::clearOrClose},
        {Qt::Key_Backspace, Qt::NoModifier, &PanelKeys::leavePrompt},
        {Qt::Key_Delete, Qt::NoModifier, &PanelKeys::dismissFailure},
        {Qt::Key_Delete, Qt::ShiftModifier, &PanelKeys::forget},
        {Qt::Key_K, Qt::ControlModifier, &PanelKeys::explain},
        {Qt::Key_R, Qt::ControlModifier, &PanelKeys::reveal},
        {Qt::Key_C, Qt::ControlModifier, &PanelKeys::copy},
        {Qt::Key_Comma, Qt::ControlModifier, &PanelKeys::openSettings},
    });
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier && event.key() >= Qt::Key_1 && event.key() <= Qt::Key_9) {
        return runRow(event.key() - Qt::Key_1);
    }
    const auto* const found = std::ranges::find_if(kBindings, [&](const Binding& binding) {
        return binding.key == event.key() && binding.modifiers == modifiers;
    });
    return found != kBindings.end() && (this->*found->action)();
}

bool PanelKeys::run() {
    if (failures_.openSelected()) {
        return true;
    }
    controller_.runSelection();
    return true;
}

bool PanelKeys::runOtherwise() {
    if (!failures_.selection() && !controller_.offerVariants()) {
        controller_.runAgain();
    }
    return true;
}

bool PanelKeys::previous() {
    if (const auto failure = failures_.selection()) {
        failures_.select(*failure - 1); // above the first are the results
        return true;
    }
    select(controller_.selection() - 1);
    return true;
}

/// Below the last result are the failures.
bool PanelKeys::next() {
    if (const auto failure = failures_.selection()) {
        failures_.select(std::min(*failure + 1, failures_.count() - 1));
    } else if (failures_.count() > 0 && isLastResultSelected()) {
        failures_.select(0);
    } else {
        select(controller_.selection() + 1);
    }
    return true;
}

bool PanelKeys::isLastResultSelected() const {
    return controller_.selection() + 1 >= static_cast<int>(controller_.results().size());
}

bool PanelKeys::dismissFailure() {
    return failures_.dismissSelected();
}

bool PanelKeys::previousOrOlder() {
    const bool isAtTop = controller_.selection() == 0 && !failures_.selection();
    return isAtTop ? older() : previous();
}

bool PanelKeys::nextOrNewer() {
    const bool isRecalling = controller_.historyCursor().has_value();
    return isRecalling && controller_.selection() == 0 ? newer() : next();
}

bool PanelKeys::older() {
    controller_.recallOlder();
    return true;
}

bool PanelKeys::newer() {
    controller_.recallNewer();
    return true;
}

bool PanelKeys::pageUp() {
    select(controller_.selection() - list_.rowsInView());
    return true;
}

bool PanelKeys::pageDown() {
    select(controller_.selection() + list_.rowsInView());
    return true;
}

bool PanelKeys::toFirst() {
    if (!field_.isCaretAtStart()) {
        return false;
    }
    select(0);
    return true;
}

bool PanelKeys::toLast() {
    if (!field_.isCaretAtEnd()) {
        return false;
    }
    select(static_cast<int>(controller_.results().size()) - 1);
    return true;
}

bool PanelKeys::complete() {
    if (!failures_.selection()) {
        controller_.acceptCompletion();
    }
    return true;
}

bool PanelKeys::completeByRight() {
    return !field_.runsRightToLeft() && completeAtEnd();
}

bool PanelKeys::completeByLeft() {
    return field_.runsRightToLeft() && completeAtEnd();
}

bool PanelKeys::completeAtEnd() {
    return field_.isCaretAtEnd() && controller_.inlineCompletion() && complete();
}

bool PanelKeys::clearOrClose() {
    if (controller_.withdrawVariants()) {
        return true;
    }
    if (controller_.argumentPrompt()) {
        controller_.leaveArgumentPrompt();
    } else if (controller_.query().empty()) {
        controller_.hide();
    } else {
        controller_.setQuery("");
    }
    return true;
}

bool PanelKeys::leavePrompt() {
    const bool isAsked = controller_.argumentPrompt() && controller_.query().empty();
    if (isAsked) {
        controller_.leaveArgumentPrompt();
    }
    return isAsked;
}

bool PanelKeys::reveal() {
    if (!failures_.revealSelected()) {
        controller_.revealSelection();
    }
    return true;
}

/// Selected text is what the user wants to copy, if there is any.
bool PanelKeys::copy() {
    return !field_.hasSelectedText() && !failures_.selection() && controller_.copySelection();
}

/// Selected text is what the user wants to cut, as Shift+Delete does elsewhere.
bool PanelKeys::forget() {
    if (field_.hasSelectedText() || failures_.selection()) {
        return false;
    }
    controller_.forgetSelection();
    return true;
}

bool PanelKeys::explain() {
    controller_.toggleReasons();
    return true;
}

bool PanelKeys::openSettings() { // NOLINT(*-function-const): stands in a table of members
    if (onSettings) {
        onSettings();
    }
    return true;
}

bool PanelKeys::runRow(int row) {
    const auto results = controller_.results();
    if (static_cast<std::size_t>(row) < results.size()) {
        controller_.run(LaunchItemRef(results[static_cast<std::size_t>(row)].item));
    }
    return true;
}

void PanelKeys::select(int row) {
    failures_.select(std::nullopt);
    const int last = static_cast<int>(controller_.results().size()) - 1;
    controller_.setSelection(std::clamp(row, 0, std::max(0, last)));
}

} // namespace pello
