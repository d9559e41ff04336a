#pragma once

#include "base/Signal.h"
#include "scripts/ScriptFailure.h"

#include <cstddef>
#include <vector>

namespace pello {

/// The failures of scripts that the user has not dismissed yet.
///
/// A script stands in it at most once, with its latest failure. Kept in memory only. Main thread
/// only.
class ScriptFailureLog {
public:
    using Failure = ScriptFailure;

    /// How many failures are kept; older ones give way.
    static constexpr std::size_t kMost = 5;

    /// Puts a failure at the front, in place of an earlier one of the same file. The failure's `id`
    /// is made here.
    void record(Failure failure);

    /// Removes the failure of this `id`; nothing happens when it has gone already.
    void dismiss(const Failure& failure);

    /// The newest first.
    [[nodiscard]] const std::vector<Failure>& failures() const { return failures_; }

    /// Emitted after every change of the list.
    Signal<> changed;

private:
    std::vector<Failure> failures_;
};

} // namespace pello
