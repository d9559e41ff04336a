#include "search/FuzzyMatcher.h"

#include "search/CharacterCodes.h"
#include "search/ScoreTable.h"
#include "search/TextPreparer.h"

namespace pello::FuzzyMatcher {
namespace {

bool isSubsequence(std::span<const char32_t> query, std::span<const char32_t> text) {
    std::size_t found = 0;
    for (std::size_t i = 0; i < text.size() && found < query.size(); ++i) {
        found += text[i] == query[found] ? 1U : 0U;
    }
    return found == query.size();
}

} // namespace

std::optional<Match> match(std::span<const std::string> query, std::string_view candidate) {
    if (query.empty()) {
        return Match{};
    }
    CharacterCodes codes;
    PreparedText text;
    prepareText(candidate, codes, text);
    if (text.codes.empty()) {
        text.codes.assign(text.bytes.begin(), text.bytes.end());
    }
    std::vector<char32_t> wanted;
    wanted.reserve(query.size());
    for (const std::string& character : query) {
        wanted.push_back(codes.find(character));
    }
    if (!isSubsequence(wanted, text.codes)) {
        return std::nullopt;
    }
    ScoreTable table;
    const std::span<const char32_t> needle = wanted;
    const ScoredText<char32_t> scored = {text.codes, text.bonuses};
    return Match{.score = table.score(needle, scored),
                 .positions = table.positions(needle, scored)};
}

} // namespace pello::FuzzyMatcher
