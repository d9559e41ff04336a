#include "answers/WebSearchEngine.h"

#include "base/Address.h"

#include <array>
#include <cstddef>

namespace pello {
namespace {

struct Engine {
    std::string_view name;
    std::string_view prefix;
};

/// In the order of the enumerators.
constexpr std::array kEngines = {
    Engine{.name = "DuckDuckGo", .prefix = "https://duckduckgo.com/?q="},
    Engine{.name = "Google", .prefix = "https://www.google.com/search?q="},
    Engine{.name = "Kagi", .prefix = "https://kagi.com/search?q="},
    Engine{.name = "Bing", .prefix = "https://www.bing.com/search?q="},
};

/// What may stand in the query of an address, by RFC 3986.
constexpr std::string_view kQueryCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:@/?";

const Engine& of(WebSearchEngine engine) {
    return kEngines.at(static_cast<std::size_t>(engine));
}

} // namespace

std::string_view displayName(WebSearchEngine engine) {
    return of(engine).name;
}

std::optional<std::string> searchAddress(WebSearchEngine engine, std::string_view query) {
    std::string result(of(engine).prefix);
    result += address::percentEncoded(query, kQueryCharacters);
    return address::scheme(result) ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace pello
