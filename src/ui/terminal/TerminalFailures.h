#pragma once

#include "scripts/ScriptFailureLog.h"

#include <optional>
#include <vector>

namespace pello {

/// Which of the scripts' failures keys are about, and which is read. Main thread only.
class TerminalFailures {
public:
    /// `log` must outlive this object.
    explicit TerminalFailures(ScriptFailureLog& log) : log_(log) {}

    [[nodiscard]] const std::vector<ScriptFailure>& all() const { return log_.failures(); }

    /// Nothing while keys are about the results; always an existing one.
    [[nodiscard]] std::optional<int> selection() const;
    void select(std::optional<int> failure) { selection_ = failure; }

    /// The one that is read; null when none is.
    [[nodiscard]] const ScriptFailure* opened() const { return opened_ ? &*opened_ : nullptr; }
    void open();
    void close() { opened_.reset(); }

    /// From which line on it is read.
    [[nodiscard]] int firstLine() const { return firstLine_; }
    void scroll(int lines);

    /// The one that is read, or else selected; null when neither is.
    [[nodiscard]] const ScriptFailure* chosen() const;
    /// Does away with the chosen one. False when there is none.
    bool dismiss();

private:
    ScriptFailureLog& log_;
    std::optional<int> selection_;
    std::optional<ScriptFailure> opened_;
    int firstLine_ = 0;
};

} // namespace pello
