#include "search/SearchQuery.h"

#include "base/Text.h"

namespace pello {

SearchQuery::SearchQuery(std::string_view typed)
    : trimmed(text::trimmingBlanks(typed)),
      needle(bareCharacters(trimmed)),
      allowsCombined(text::containsWhitespace(trimmed)) {}

std::vector<std::string> bareCharacters(std::string_view text) {
    return text::characters(text::droppingWhitespace(text::lowercased(text)));
}

} // namespace pello
