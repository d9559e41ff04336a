#include "core/controller/QuerySearch.h"

#include "core/controller/RankingWords.h"
#include "scripts/ScriptItem.h"
#include "search/SearchEngine.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace pello {

SearchMode QuerySearch::mode(std::string_view query) {
    const SearchMode asked = SearchMode::of(query);
    return asked.kind == SearchMode::Kind::glyphs
               ? asked
               : SearchMode{.kind = SearchMode::Kind::normal, .text = std::string(query)};
}

std::vector<SearchResult> QuerySearch::results(std::string_view query) const {
    if (const SearchMode now = mode(query); now.kind == SearchMode::Kind::glyphs) {
        return parts_.glyphs.results(now.text, parts_.usage);
    }
    auto results = SearchEngine::results(query, catalogue(), quickActions(query), parts_.usage,
                                         parts_.settings.maximumResults.get());
    showRunning(results);
    return results;
}

std::vector<SearchExplanation> QuerySearch::explanations(std::string_view query) const {
    if (const SearchMode now = mode(query); now.kind == SearchMode::Kind::glyphs) {
        return SearchEngine::explain(now.text, parts_.glyphs.lists(parts_.usage), {}, parts_.usage,
                                     GlyphCatalogue::kMaximumResults);
    }
    return SearchEngine::explain(query, catalogue(), quickActions(query), parts_.usage,
                                 parts_.settings.maximumResults.get());
}

std::vector<std::string> QuerySearch::reasons(std::string_view query,
                                              std::span<const SearchResult> rows) const {
    std::unordered_map<std::string_view, std::string> words;
    const auto explained = explanations(query);
    for (const SearchExplanation& row : explained) {
        words.emplace(row.result.id(), rankingWords(row));
    }
    std::vector<std::string> reasons;
    for (const SearchResult& row : rows) {
        reasons.push_back(words[row.id()]);
    }
    return reasons;
}

std::vector<LaunchItemRef> QuerySearch::quickActions(std::string_view query) const {
    const ScriptsIndex* scripts = parts_.settings.includesScripts.get() ? &parts_.scripts : nullptr;
    return parts_.quickActions.items(query, parts_.settings, scripts);
}

bool QuerySearch::exists(const LaunchItem& item) const {
    const auto has = [&item](const std::shared_ptr<const PreparedList>& list) {
        return std::ranges::find(list->items(), item.id, &LaunchItem::id) != list->items().end();
    };
    return std::ranges::any_of(catalogue(), has) ||
           std::ranges::any_of(parts_.glyphs.lists(parts_.usage), has);
}

bool QuerySearch::finds(const ScriptCommand& command, const std::string& keyword) const {
    const std::string argument = "x";
    const auto found = results(keyword + ' ' + argument);
    return !found.empty() && found.front().item->id == ScriptItem::id(command, argument);
}

/// A script that runs with an argument has a row of its own, which is the same one as that of the
/// typed argument.
void QuerySearch::showRunning(std::vector<SearchResult>& results) const {
    if (parts_.runningScripts.isEmpty()) {
        return;
    }
    std::unordered_set<std::string_view> seen;
    for (SearchResult& result : results) {
        if (LaunchItemRef row = parts_.runningScripts.row(*result.item)) {
            result.item = std::move(row);
        }
    }
    std::erase_if(results,
                  [&](const SearchResult& result) { return !seen.insert(result.item->id).second; });
}

Catalogue QuerySearch::catalogue() const {
    Catalogue lists = {parts_.indexer.items(), ownCommands_, parts_.aliases.items()};
    if (parts_.settings.includesScripts.get()) {
        lists.push_back(parts_.scripts.items());
        lists.push_back(parts_.runningScripts.items());
    }
    return lists;
}

} // namespace pello
