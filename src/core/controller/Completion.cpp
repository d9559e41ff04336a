#include "core/controller/Completion.h"

#include "base/Text.h"

#include <algorithm>

namespace pello {

std::optional<std::string> completion(std::string_view query, std::string_view title) {
    const std::size_t length = text::characterCount(query);
    if (length == 0 || length >= text::characterCount(title)) {
        return std::nullopt;
    }
    const std::string loweredQuery = text::lowercased(query);
    const std::string loweredTitle = text::lowercased(title);
    const auto wanted = text::characterViews(loweredQuery);
    const auto offered = text::characterViews(loweredTitle);
    if (wanted.size() > offered.size() ||
        !std::equal(wanted.begin(), wanted.end(), offered.begin(), text::isSameCharacter)) {
        return std::nullopt;
    }
    return std::string(text::droppingFirst(title, length));
}

} // namespace pello
