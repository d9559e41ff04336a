#include "app/Agent.h"
#include "app/AnswerCommand.h"
#include "app/CommandLine.h"
#include "app/DoctorCommand.h"
#include "app/GlyphCommand.h"
#include "app/HistoryCommand.h"
#include "app/KeysCommand.h"
#include "app/LearnedCommand.h"
#include "app/LogsCommand.h"
#include "app/QueryCommand.h"
#include "app/ScriptsCommand.h"
#include "app/SettingsCommand.h"
#include "app/TerminalCommand.h"
#include "app/client/ClientCommand.h"

#include <type_traits>
#include <variant>

// An exception that gets this far is a fault of ours; ending at once tells of it best.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    const auto parsed = pello::parseCommandLine(argc, argv);
    if (const int* status = std::get_if<int>(&parsed)) {
        return *status;
    }
    return std::visit(
        [&](const auto& command) {
            using Chosen = std::decay_t<decltype(command)>;
            if constexpr (std::is_same_v<Chosen, pello::AgentCommand>) {
                return pello::runAgent(command, argc, argv);
            } else {
                return pello::run(command);
            }
        },
        std::get<pello::Command>(parsed));
}
