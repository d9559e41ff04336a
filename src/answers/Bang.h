#pragma once

#include "answers/Uuid.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// A keyword that turns the rest of the query into a web address. A plain value.
struct Bang {
    struct Match;

    /// What the user types, in any case.
    std::string keyword;
    /// The target's name as rows show it.
    std::string name;
    /// The address, with optional "{query}" and "{clipboard}".
    std::string addressTemplate;
    Uuid id = Uuid::random();

    /// The list that a fresh user gets, each with an id of its own.
    [[nodiscard]] static std::vector<Bang> starters();

    /// The bang of `bangs` that `query` begins with, of several the one with the longest keyword,
    /// and of those the first.
    [[nodiscard]] static std::optional<Match> match(std::string_view query,
                                                    std::span<const Bang> bangs);

    /// Whether the bang needs text after its keyword; otherwise it is a bookmark.
    [[nodiscard]] bool wantsQuery() const;

    /// The address for `arguments`. `clipboard` gives the text on the pasteboard, and is asked only
    /// when the template holds "{clipboard}". Nothing when what results is not an address.
    [[nodiscard]] std::optional<std::string>
    url(std::string_view arguments, const std::function<std::string()>& clipboard) const;

    /// What the user should mend in a list, in sentences; empty when nothing.
    [[nodiscard]] static std::vector<std::string> problems(std::span<const Bang> bangs);

    /// The stored form of a list: JSON objects with "keyword", "name", "template" and "id", all of
    /// them required. Nothing when `json` is anything else.
    [[nodiscard]] static std::optional<std::vector<Bang>> decodeList(std::string_view json);
    [[nodiscard]] static std::string encodeList(const std::vector<Bang>& bangs);

    friend bool operator==(const Bang&, const Bang&) = default;
};

/// A bang, and the text after its keyword: pieces of the list and of the query.
struct Bang::Match {
    const Bang& bang;
    std::string_view arguments;
};

} // namespace pello
