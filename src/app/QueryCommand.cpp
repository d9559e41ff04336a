#include "app/QueryCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/Launcher.h"
#include "app/QueryReport.h"
#include "search/SearchEngine.h"

#include <algorithm>
#include <iostream>

namespace pello {

int run(const QueryCommand& command) {
    HeadlessPlatform platform({.stoppedAt = command.from.now});
    const auto complaining = platform.defaults().problem.connect(
        [](const std::string& sentence) { std::cerr << "pello: " << sentence << '\n'; });
    Launcher launcher(platform.ports(), command.from.surroundings);
    launcher.controller().reindex();
    platform.turn();
    const auto limit = command.limit.value_or(
        static_cast<std::ptrdiff_t>(launcher.settings().maximumResults.get()));
    const auto quickActions = launcher.quickActions().items(
        command.text, launcher.settings(),
        launcher.settings().includesScripts.get() ? &launcher.scripts() : nullptr);
    auto rows = SearchEngine::explain(command.text, launcher.controller().catalogue(), quickActions,
                                      launcher.usage(), limit);
    if (command.limit) { // the panel's limit spares answers, this one does not
        const auto most = static_cast<std::size_t>(limit);
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(std::min(rows.size(), most)),
                   rows.end());
    }
    std::cout << queryReport(rows, command);
    return rows.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

} // namespace pello
