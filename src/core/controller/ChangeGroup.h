#pragma once

#include "base/Signal.h"

#include <utility>

namespace pello {

/// Emits a signal once at the end of an operation, however many changes it and the operations
/// within it make, and not at all when they made none. One thread only.
class ChangeGroup {
public:
    /// `changed` must outlive the group.
    explicit ChangeGroup(const Signal<>& changed) : changed_(changed) {}

    /// An operation as long as it lives.
    class Operation {
    public:
        /// `group` must outlive the operation.
        explicit Operation(ChangeGroup& group) : group_(group) { ++group_.openOperations_; }
        ~Operation() {
            if (--group_.openOperations_ == 0 && std::exchange(group_.hasChanged_, false)) {
                group_.changed_.emit();
            }
        }
        Operation(const Operation&) = delete;
        Operation& operator=(const Operation&) = delete;

    private:
        ChangeGroup& group_;
    };

    /// Something changed: the outermost operation will say so.
    void announce() { hasChanged_ = true; }

private:
    const Signal<>& changed_;
    int openOperations_ = 0;
    bool hasChanged_ = false;
};

} // namespace pello
