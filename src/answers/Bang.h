#pragma once

#include "answers/Uuid.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// A keyword that turns the rest of the query into a web address. A plain value.
struct Bang {
    /// What the user types, in any case.
    std::string keyword;
    /// The target's name as rows show it.
    std::string name;
    /// The address, with optional "{query}" and "{clipboard}".
    std::string addressTemplate;
    Uuid id = Uuid::random();

    /// The list that a fresh user gets, each with an id of its own.
    [[nodiscard]] static std::vector<Bang> starters();

    /// The stored form of a list: JSON objects with "keyword", "name", "template" and "id", all of
    /// them required. Nothing when `json` is anything else.
    [[nodiscard]] static std::optional<std::vector<Bang>> decodeList(std::string_view json);
    [[nodiscard]] static std::string encodeList(const std::vector<Bang>& bangs);

    friend bool operator==(const Bang&, const Bang&) = default;
};

} // namespace pello
