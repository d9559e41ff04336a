#include "core/controller/RankingWords.h"

#include <cmath>
#include <string_view>

namespace pello {
namespace {

using Origin = SearchExplanation::Origin;
using OrderedBy = SearchExplanation::OrderedBy;

std::string points(double score) {
    return std::to_string(std::lround(score));
}

std::string inQuotes(std::string_view text) {
    return "“" + std::string(text) + "”";
}

std::string matchWords(const ItemMatch& match) {
    switch (match.matched) {
    case ItemMatch::Text::title:
        return "Name matches";
    case ItemMatch::Text::keyword:
        return "Keyword " + inQuotes(match.text) + " matches";
    case ItemMatch::Text::exactKeyword:
        return "Is its keyword " + inQuotes(match.text);
    case ItemMatch::Text::combined:
        return "Name and keywords match together";
    }
    return "";
}

/// What was learned, as terms of a sum.
std::string learnedWords(const UsageStore::Boost& boost) {
    std::string words;
    if (const double used = boost.recency * boost.frequency; std::lround(used) > 0) {
        words += " + " + points(used) + " for use";
    }
    if (boost.binding > 0) {
        words += " + " + points(boost.binding) + " chosen last for this text";
    }
    return words;
}

std::string_view tieWords(OrderedBy order) {
    switch (order) {
    case OrderedBy::score:
        return "";
    case OrderedBy::kind:
        return " · level with the row above, behind it by kind";
    case OrderedBy::name:
        return " · level with the row above, behind it by name";
    case OrderedBy::catalogue:
        return " · level with the row above";
    }
    return "";
}

std::string sum(const SearchExplanation& explanation) {
    if (explanation.origin == Origin::learned || !explanation.match) {
        return "Used often and lately: " + points(explanation.boost.sum());
    }
    const std::string learned = learnedWords(explanation.boost);
    std::string words =
        matchWords(*explanation.match) + ": " + points(explanation.match->score) + learned;
    if (!learned.empty()) {
        words += " = " + points(explanation.result.score);
    }
    return words;
}

} // namespace

std::string rankingWords(const SearchExplanation& explanation) {
    if (explanation.origin == Origin::quickAction) {
        return "Made of what is typed, at its fixed place";
    }
    return sum(explanation) + std::string(tieWords(explanation.orderedBy));
}

} // namespace pello
