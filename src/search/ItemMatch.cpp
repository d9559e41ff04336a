#include "search/ItemMatch.h"

#include "base/Text.h"
#include "search/FuzzyMatcher.h"
#include "search/MatchScore.h"

namespace pello {
namespace {

std::optional<ItemMatch> matchTitle(const LaunchItem& item, const SearchQuery& query) {
    auto match = FuzzyMatcher::match(query.needle, item.title);
    if (!match) {
        return std::nullopt;
    }
    return ItemMatch{.matched = ItemMatch::Text::title,
                     .text = item.title,
                     .score = match->score,
                     .titleMatches = withinTitle(std::move(match->positions), item.title)};
}

std::optional<ItemMatch> matchAside(ItemMatch::Text kind, const std::string& text,
                                    const SearchQuery& query) {
    const auto match = FuzzyMatcher::match(query.needle, text);
    if (!match) {
        return std::nullopt;
    }
    return ItemMatch{.matched = kind,
                     .text = text,
                     .score = match->score * MatchScore::kKeywordFactor,
                     .titleMatches = {}};
}

} // namespace

std::optional<ItemMatch> matchItem(const LaunchItem& item, const SearchQuery& query) {
    auto best = matchTitle(item, query);
    for (const std::string& keyword : item.keywords) {
        if (query.isExactly(keyword)) {
            return ItemMatch{.matched = ItemMatch::Text::exactKeyword,
                             .text = keyword,
                             .score = MatchScore::kExactKeyword,
                             .titleMatches = {}};
        }
        auto match = matchAside(ItemMatch::Text::keyword, keyword, query);
        if (match && (!best || match->score > best->score)) {
            best = std::move(match);
        }
    }
    if (!best && query.allowsCombined) {
        best = matchAside(ItemMatch::Text::combined, combinedText(item), query);
    }
    return best;
}

std::vector<int> withinTitle(std::vector<int> positions, std::string_view title) {
    const std::size_t count = text::characterCount(title);
    std::erase_if(positions, [&](int p) { return static_cast<std::size_t>(p) >= count; });
    return positions;
}

std::string combinedText(const LaunchItem& item) {
    std::string joined = item.title;
    for (const std::string& keyword : item.keywords) {
        joined += ' ';
        joined += keyword;
    }
    return joined;
}

} // namespace pello
