#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>
#include <vector>

namespace pello::testing {

/// A text with its matched characters in brackets: "[Saf]ari".
struct MarkedText {
    explicit MarkedText(std::string_view marked) {
        bool inside = false;
        for (const auto character : text::characterViews(marked)) {
            if (character == "[" || character == "]") {
                inside = character == "[";
                continue;
            }
            if (inside) {
                positions.push_back(count);
            }
            ++count;
            plain += character;
        }
    }

    std::string plain;
    std::vector<int> positions;
    int count = 0; // characters
};

/// `plain` with the characters at `positions` in brackets.
inline std::string marked(std::string_view plain, const std::vector<int>& positions) {
    std::string result;
    int index = 0;
    auto next = positions.begin();
    bool inside = false;
    for (const auto character : text::characterViews(plain)) {
        const bool isMatched = next != positions.end() && *next == index;
        if (isMatched != inside) {
            result += isMatched ? "[" : "]";
            inside = isMatched;
        }
        result += character;
        next += isMatched ? 1 : 0;
        ++index;
    }
    return inside ? result + "]" : result;
}

} // namespace pello::testing
