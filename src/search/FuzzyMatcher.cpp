#include "search/FuzzyMatcher.h"

#include "base/Text.h"
#include "search/BoundaryBonuses.h"
#include "search/CharacterCodes.h"
#include "search/ScoreTable.h"

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
    const auto characters = codes.addAll(text::lowercased(candidate));
    std::vector<char32_t> wanted;
    wanted.reserve(query.size());
    for (const std::string& character : query) {
        wanted.push_back(codes.find(character));
    }
    if (characters.size() < wanted.size() || !isSubsequence(wanted, characters)) {
        return std::nullopt;
    }
    auto bonuses = boundaryBonuses(candidate);
    bonuses.resize(characters.size()); // lower-casing may split a character
    ScoreTable table;
    const ScoredText<char32_t> scored = {characters, bonuses};
    return Match{.score = table.score(std::span<const char32_t>(wanted), scored),
                 .positions = table.positions(std::span<const char32_t>(wanted), scored)};
}

} // namespace pello::FuzzyMatcher
