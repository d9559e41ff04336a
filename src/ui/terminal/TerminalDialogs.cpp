#include "ui/terminal/TerminalDialogs.h"

#include <utility>

namespace pello {

void TerminalDialogs::confirm(const Confirmation& question,
                              std::function<void(Answer answer)> answered) {
    open_.push_back({.question = question, .answered = std::move(answered)});
    if (open_.size() == 1) {
        changed.emit();
    }
}

const Dialogs::Confirmation* TerminalDialogs::current() const {
    return open_.empty() ? nullptr : &open_.front().question;
}

void TerminalDialogs::answer(Answer answer) {
    if (open_.empty()) {
        return;
    }
    const Open answeredNow = std::move(open_.front());
    open_.pop_front();
    loop_.post([answer, answered = answeredNow.answered] { answered(answer); });
    changed.emit();
}

} // namespace pello
