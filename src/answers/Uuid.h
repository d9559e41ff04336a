#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// A universally unique identifier. A plain value; the default one is all zeros.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random one (version 4). Any thread.
    [[nodiscard]] static Uuid random();

    /// Parses the standard text, 8-4-4-4-12 hexadecimal digits in either case.
    [[nodiscard]] static std::optional<Uuid> fromText(std::string_view text);

    /// The standard text, in upper case.
    [[nodiscard]] std::string text() const;

    friend bool operator==(const Uuid&, const Uuid&) = default;
};

} // namespace pello
