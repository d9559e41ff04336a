// Times one launcher from outside: reads the target as JSON from standard input, and writes every
// figure as JSON to standard output. The session around it is the script's, desktop/session.py.
#include "desktop/Processes.h"
#include "desktop/Screen.h"
#include "desktop/Target.h"
#include "desktop/Trials.h"

#include <algorithm>
#include <iostream>

namespace pello::bench {

bool Target::has(const std::string& phase) const {
    return std::ranges::find(phases, phase) != phases.end();
}

} // namespace pello::bench

// An exception ends the program at once, which tells of it best.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main() {
    const auto json = nlohmann::json::parse(std::cin, nullptr, false);
    if (json.is_discarded()) {
        std::cerr << "measure: standard input is no JSON\n";
        return 2;
    }
    pello::bench::adoptOrphans();
    const auto target = json.get<pello::bench::Target>();
    pello::bench::Screen screen(target);
    std::cout << pello::bench::Trials(target, screen).run() << '\n';
}
