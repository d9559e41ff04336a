#include "app/StoreSession.h"

#include "app/client/ExitStatus.h"

#include <iostream>

namespace pello {

StoreSession::StoreSession()
    : onProblem_(platform_.defaults().problem.connect(
          [](const std::string& sentence) { std::cerr << "pello: " << sentence << '\n'; })) {
    platform_.turn();
}

int StoreSession::finish() {
    return defaults().flush() ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

} // namespace pello
