#include "platform/linux/StartFailure.h"

#include "platform/posix/ExecFailure.h"

namespace pello {

std::string whyNotStarted(const ProcessPlan& plan, KeeperReport::Outcome outcome, int error) {
    switch (outcome) {
    case KeeperReport::Outcome::noFolder:
        return whyNotEntered(plan.folder);
    case KeeperReport::Outcome::noProgram:
        return whyNotExecuted(plan.program, error);
    default:
        return inTheSystemsWords(error);
    }
}

} // namespace pello
