#include "scripts/ScriptFailureLog.h"

#include <algorithm>
#include <utility>

namespace pello {

void ScriptFailureLog::record(Failure failure) {
    failure.id = Uuid::random();
    std::erase_if(failures_,
                  [&](const Failure& known) { return known.fileName == failure.fileName; });
    failures_.insert(failures_.begin(), std::move(failure));
    failures_.resize(std::min(failures_.size(), kMost));
    changed.emit();
}

void ScriptFailureLog::dismiss(const Failure& failure) {
    const Uuid id = failure.id; // the failure may be one of the list
    if (std::erase_if(failures_, [&](const Failure& known) { return known.id == id; }) > 0) {
        changed.emit();
    }
}

} // namespace pello
