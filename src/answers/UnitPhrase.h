#pragma once

#include "answers/UnitTable.h"

#include <optional>
#include <string_view>
#include <vector>

namespace pello {

/// The units that the words after a number name. A plain value.
struct UnitPhrase {
    const Unit* source;
    /// Of the source's kind; null when the words name none.
    const Unit* target;

    /// What `words` (lower case, without white space) name: "km", "km to mi", "km mi". Nothing
    /// when any word is left over, or the two units differ in kind. The units are `table`'s.
    [[nodiscard]] static std::optional<UnitPhrase> read(const std::vector<std::string_view>& words,
                                                        const UnitTable& table);
};

} // namespace pello
