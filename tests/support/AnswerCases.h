#pragma once

#include "base/Text.h"

#include <cstddef>
#include <string_view>

namespace pello::testing {

/// Calls `check(query, expected)` for each case of "1+2: 3; 5 km: 3.10686 mi", blanks trimmed off.
template <class Check>
void forEachCase(std::string_view cases, Check check) {
    for (const std::string_view piece : text::split(cases, ';')) {
        const std::size_t colon = piece.find(": ");
        check(text::trimmingBlanks(piece.substr(0, colon)),
              text::trimmingBlanks(piece.substr(colon + 1)));
    }
}

} // namespace pello::testing
