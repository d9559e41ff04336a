#include "ui/terminal/TerminalFailures.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>

namespace pello {

/// Failures come and go on their own.
std::optional<int> TerminalFailures::selection() const {
    const int last = static_cast<int>(all().size()) - 1;
    if (!selection_ || *selection_ < 0 || last < 0) {
        return std::nullopt;
    }
    return std::min(*selection_, last);
}

const ScriptFailure* TerminalFailures::chosen() const {
    if (opened_) {
        return &*opened_;
    }
    const auto row = selection();
    return row ? &all()[static_cast<std::size_t>(*row)] : nullptr;
}

void TerminalFailures::open() {
    if (const ScriptFailure* failure = chosen()) {
        opened_ = ScriptFailure(*failure);
        firstLine_ = 0;
    }
}

void TerminalFailures::scroll(int lines) {
    const int last = opened_ ? static_cast<int>(text::lines(opened_->detail).size()) - 1 : 0;
    firstLine_ = std::clamp(firstLine_ + lines, 0, std::max(0, last));
}

bool TerminalFailures::dismiss() {
    const ScriptFailure* failure = chosen();
    if (failure == nullptr) {
        return false;
    }
    const ScriptFailure gone = *failure; // the log changes under the pointer
    close();
    log_.dismiss(gone);
    return true;
}

} // namespace pello
