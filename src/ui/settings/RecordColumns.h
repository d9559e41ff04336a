#pragma once

#include "answers/Bang.h"
#include "answers/URLAlias.h"

#include <array>
#include <string>
#include <string_view>

namespace pello {

/// One column of a table of records: what it is called and which text of a record it shows.
template <class Record>
struct RecordColumn {
    std::string_view title;
    std::string Record::* text;
    /// What stands in an empty cell.
    std::string_view placeholder;
};

/// The columns of a table of `Record`s. Specialise with a `static constexpr std::array columns`.
template <class Record>
struct RecordColumns;

template <>
struct RecordColumns<Bang> {
    static constexpr std::array columns{
        RecordColumn<Bang>{"Keyword", &Bang::keyword, "keyword"},
        RecordColumn<Bang>{"Name", &Bang::name, "name"},
        RecordColumn<Bang>{"Address", &Bang::addressTemplate, "https://example.org/?q={query}"},
    };
};

template <>
struct RecordColumns<URLAlias> {
    static constexpr std::array columns{
        RecordColumn<URLAlias>{"Alias", &URLAlias::alias, "alias"},
        RecordColumn<URLAlias>{"Address", &URLAlias::url, "example.org"},
    };
};

} // namespace pello
