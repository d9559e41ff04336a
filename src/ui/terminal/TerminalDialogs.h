#pragma once

#include "base/Signal.h"
#include "platform/Dialogs.h"
#include "platform/MainLoop.h"

#include <deque>
#include <functional>

namespace pello {

/// Questions that are asked in the terminal itself, one after the other. Main thread only.
class TerminalDialogs final : public Dialogs {
public:
    /// `loop` must outlive the dialogs.
    explicit TerminalDialogs(MainLoop& loop) : loop_(loop) {}

    void confirm(const Confirmation& question,
                 std::function<void(Answer answer)> answered) override;

    /// The question that waits for its answer; null when none does.
    [[nodiscard]] const Confirmation* current() const;

    /// Answers the current question, if there is one.
    void answer(Answer answer);

    /// Emitted when another question is the current one, or none.
    Signal<> changed;

private:
    struct Open {
        Confirmation question;
        std::function<void(Answer answer)> answered;
    };

    MainLoop& loop_;
    std::deque<Open> open_;
};

} // namespace pello
