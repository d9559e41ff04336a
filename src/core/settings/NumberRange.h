#pragma once

#include <string>
#include <string_view>

namespace pello {

/// The numbers that make a usable program for one setting: 1 to 50 results, type of 8 to 72 points,
/// icons of 12 to 128 points. A plain value.
struct NumberRange {
    int least = 1;
    int most = 1000;

    /// That of the setting `key`.
    [[nodiscard]] static NumberRange of(std::string_view key);

    template <class Number>
    [[nodiscard]] bool contains(Number number) const {
        return number >= static_cast<Number>(least) && number <= static_cast<Number>(most);
    }

    /// Such as "from 1 to 50".
    [[nodiscard]] std::string words() const;
};

} // namespace pello
