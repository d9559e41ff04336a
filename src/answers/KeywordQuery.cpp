#include "answers/KeywordQuery.h"

#include "base/Text.h"

namespace pello {
namespace {

std::string folded(std::string_view utf8) {
    return text::composed(text::lowercased(utf8));
}

} // namespace

KeywordQuery::KeywordQuery(std::string_view query)
    : query_(text::trimmingBlanks(query)), folded_(folded(query_)) {}

std::optional<std::string_view> KeywordQuery::argument(std::string_view keyword) const {
    if (keyword.empty()) {
        return std::nullopt;
    }
    const std::string wanted = folded(keyword);
    if (!std::string_view(folded_).starts_with(wanted)) {
        return std::nullopt;
    }
    std::string_view rest = std::string_view(folded_).substr(wanted.size());
    if (rest.empty()) {
        return rest;
    }
    // A space that carries an accent of its own is another character.
    if (rest.front() != ' ' || text::droppingFirst(rest, 1).size() + 1 != rest.size()) {
        return std::nullopt;
    }
    return text::trimmingBlanks(text::droppingFirst(query_, text::characterCount(keyword)));
}

} // namespace pello
