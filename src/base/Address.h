#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Web and other addresses (URIs), as RFC 3986 defines them. Safe on any thread.
namespace pello::address {

/// The characters that mean nothing special anywhere in an address.
inline constexpr std::string_view kUnreserved =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";

/// The scheme of `text`, a piece of it, when the whole of `text` is an address that has one. Like
/// any parser, takes "localhost:3000" for an address of the scheme "localhost".
[[nodiscard]] std::optional<std::string_view> scheme(std::string_view text);

/// `utf8` with each byte as "%XX" that is not one of the ASCII characters `kept`. Malformed bytes
/// are replaced by U+FFFD before.
[[nodiscard]] std::string percentEncoded(std::string_view utf8, std::string_view kept);

} // namespace pello::address
