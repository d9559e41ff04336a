#include "app/client/VersionCommand.h"

#include "app/client/ExitStatus.h"

#include <cstdio>

namespace pello {

int run(const VersionCommand& /*command*/) {
    std::puts("pello " PELLO_VERSION);
    return ExitStatus::kSuccess;
}

} // namespace pello
