#pragma once

#include "base/Text.h"

#include <cstddef>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>

namespace pello {

/// A query as one looks for keywords at its beginning: the keyword alone, or the keyword, a space
/// and an argument.
///
/// Reads the query once, so that many keywords can be tried. Case and the form of accents do not
/// count.
class KeywordQuery {
public:
    /// `query` as typed; must outlive this object.
    explicit KeywordQuery(std::string_view query);

    [[nodiscard]] bool isBlank() const { return query_.empty(); }

    /// The text after `keyword` without outer blanks, a piece of the query; empty when the keyword
    /// is all of it. Nothing when the query does not begin with the keyword, or that is empty.
    [[nodiscard]] std::optional<std::string_view> argument(std::string_view keyword) const;

    /// A keyword that the query begins with.
    template <class Owner>
    struct Found {
        const Owner* owner;
        std::string_view argument;
    };

    /// Of the `owners` whose keyword the query begins with, the one with the longest, and of those
    /// the first.
    template <class Owners, class KeywordOf>
    [[nodiscard]] auto longest(const Owners& owners, const KeywordOf& keywordOf) const
        -> std::optional<Found<std::ranges::range_value_t<Owners>>> {
        std::optional<Found<std::ranges::range_value_t<Owners>>> found;
        std::size_t longestLength = 0;
        for (const auto& owner : owners) {
            const std::string_view keyword = keywordOf(owner);
            const auto rest = argument(keyword);
            if (!rest) {
                continue;
            }
            const std::size_t length = text::characterCount(keyword);
            if (length > longestLength) {
                found = {.owner = &owner, .argument = *rest};
                longestLength = length;
            }
        }
        return found;
    }

private:
    std::string_view query_;
    std::string folded_;
};

} // namespace pello
