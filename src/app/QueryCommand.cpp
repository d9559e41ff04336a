#include "app/QueryCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/Launcher.h"
#include "app/QueryReport.h"
#include "search/SearchEngine.h"

#include <iostream>

namespace pello {

int run(const QueryCommand& command) {
    HeadlessPlatform platform(LinuxServices::Session::leftAlone);
    const auto complaining = platform.defaults().problem.connect(
        [](const std::string& sentence) { std::cerr << "pello: " << sentence << '\n'; });
    Launcher launcher(platform.ports());
    launcher.controller().reindex();
    platform.turn();
    const auto limit = command.limit.value_or(
        static_cast<std::ptrdiff_t>(launcher.settings().maximumResults.get()));
    const auto rows = SearchEngine::explain(command.text, launcher.controller().catalogue(), {},
                                            launcher.usage(), limit);
    std::cout << queryReport(rows, command);
    return rows.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

} // namespace pello
