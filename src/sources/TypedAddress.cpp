#include "sources/TypedAddress.h"

#include "base/Address.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace pello {
namespace {

/// Whether a launcher opens addresses of `scheme`: what a script or a program could do with others
/// is not for a typed text to start.
bool isOpened(std::string_view scheme) {
    constexpr std::array<std::string_view, 6> kSchemes = {"http",   "https", "ftp",
                                                          "mailto", "ssh",   "file"};
    return std::ranges::find(kSchemes, text::lowercased(scheme)) != kSchemes.end();
}

/// Whether `text` begins as an address with a scheme does, whatever follows.
bool beginsWithScheme(std::string_view text) {
    return address::scheme(text.substr(0, text.find(':') + 1)).has_value();
}

/// Whether `host` has a dot between labels, and behind the last one at least two characters.
bool looksLikeHost(std::string_view host) {
    const auto lastDot = host.rfind('.');
    return lastDot != std::string_view::npos && !host.starts_with('.') &&
           host.find("..") == std::string_view::npos &&
           text::characterCount(host.substr(lastDot + 1)) >= 2;
}

} // namespace

std::optional<std::string> detectURL(std::string_view text) {
    const std::string_view address = text::trimmingBlanks(text);
    if (address.empty() || text::containsWhitespace(address)) {
        return std::nullopt;
    }
    if (const auto scheme = address::scheme(address)) {
        return isOpened(*scheme) ? std::optional<std::string>(address) : std::nullopt;
    }
    // With a scheme, but malformed: "javascript:f(\"a.test\")" is no host either.
    if (beginsWithScheme(address) || !looksLikeHost(address.substr(0, address.find('/')))) {
        return std::nullopt;
    }
    return "https://" + text::wellFormed(address);
}

} // namespace pello
