#include "app/HistoryCommand.h"

#include "app/StoreSession.h"
#include "core/settings/QueryHistory.h"

#include <iostream>

namespace pello {

int run(const HistoryCommand& command) {
    StoreSession session;
    QueryHistory history(session.defaults());
    if (command.action == HistoryCommand::Action::clear) {
        history.clear();
        return session.finish();
    }
    for (const std::string& text : history.entries()) {
        std::cout << text << '\n';
    }
    return history.entries().empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

} // namespace pello
