#include "app/GlyphCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/Launcher.h"
#include "app/QueryReport.h"
#include "search/SearchEngine.h"

#include <iostream>

namespace pello {
namespace {

std::string line(const LaunchItem& item) {
    const auto* glyph = std::get_if<LaunchItem::TextIcon>(&item.icon);
    return (glyph != nullptr ? glyph->text : "") + '\t' + item.title + '\n';
}

} // namespace

int run(const GlyphCommand& command) {
    HeadlessPlatform platform({});
    const auto complaining = platform.defaults().problem.connect(
        [](const std::string& sentence) { std::cerr << "pello: " << sentence << '\n'; });
    const Launcher launcher(platform.ports());
    platform.turn();
    const auto limit = command.limit.value_or(GlyphCatalogue::kMaximumResults);
    const auto rows = SearchEngine::explain(command.text, launcher.glyphs().lists(launcher.usage()),
                                            {}, launcher.usage(), limit);
    if (command.format == QueryCommand::Format::json) {
        std::cout << queryReport(rows, {.format = command.format});
    } else {
        for (const SearchExplanation& row : rows) {
            std::cout << line(*row.result.item);
        }
    }
    return rows.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

} // namespace pello
