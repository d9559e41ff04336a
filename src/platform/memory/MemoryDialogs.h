#pragma once

#include "platform/Dialogs.h"

#include <cassert>
#include <deque>
#include <utility>

namespace pello {

/// Questions that wait until the owner answers them.
class MemoryDialogs final : public Dialogs {
public:
    void confirm(const Confirmation& question,
                 std::function<void(Answer answer)> answered) override {
        open_.push_back({question, std::move(answered)});
    }

    [[nodiscard]] std::size_t openCount() const { return open_.size(); }

    /// The question that has been open the longest; there must be one.
    [[nodiscard]] const Confirmation& question() const {
        assert(!open_.empty());
        return open_.front().question;
    }

    /// Answers that question.
    void answer(Answer answer) {
        assert(!open_.empty());
        const Open asked = std::move(open_.front());
        open_.pop_front();
        asked.answered(answer);
    }

private:
    struct Open {
        Confirmation question;
        std::function<void(Answer)> answered;
    };

    std::deque<Open> open_;
};

} // namespace pello
