#include "base/Address.h"

#include "base/Text.h"

#include <memory>
#include <uriparser/Uri.h>

namespace pello::address {

std::optional<std::string_view> scheme(std::string_view text) {
    UriUriA uri{};
    const char* problem = nullptr;
    // NOLINTNEXTLINE(bugprone-suspicious-stringview-data-usage): the end is told beside it
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    if (text.empty() || uriParseSingleUriExA(&uri, begin, end, &problem) != URI_SUCCESS) {
        return std::nullopt;
    }
    const std::unique_ptr<UriUriA, void (*)(UriUriA*)> members(&uri, uriFreeUriMembersA);
    if (uri.scheme.first == nullptr || uri.scheme.first == uri.scheme.afterLast) {
        return std::nullopt;
    }
    return std::string_view(uri.scheme.first, uri.scheme.afterLast);
}

std::string percentEncoded(std::string_view utf8, std::string_view kept) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string result;
    for (const char character : text::wellFormed(utf8)) {
        if (kept.find(character) != std::string_view::npos) {
            result += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        result.append({'%', kDigits[byte / 16U], kDigits[byte % 16U]});
    }
    return result;
}

} // namespace pello::address
