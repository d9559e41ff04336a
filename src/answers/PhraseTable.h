#pragma once

#include "answers/DateWords.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// What names of one or more words mean. Immutable once filled; safe on any thread then.
template <class Meaning>
class PhraseTable {
public:
    struct Match {
        Meaning meaning;
        /// The piece after the name.
        std::size_t end;
    };

    /// Adds a name in lower case, unless it means something already or is but a number.
    void add(std::string_view name, Meaning meaning) {
        const DateWords words(name);
        if (words.size() > 1 || (words.size() == 1 && !words.isNumber(0))) {
            meanings_.emplace(words.phrase(), meaning);
            longest_ = std::max(longest_, words.size());
        }
    }

    /// The longest name that begins at piece `at`.
    [[nodiscard]] std::optional<Match> longest(const DateWords& words, std::size_t at) const {
        const std::size_t left = words.size() - std::min(at, words.size());
        for (std::size_t count = std::min(longest_, left); count > 0; --count) {
            const auto found = meanings_.find(words.phrase(at, at + count));
            if (found != meanings_.end()) {
                return Match{.meaning = found->second, .end = at + count};
            }
        }
        return std::nullopt;
    }

private:
    std::map<std::string, Meaning, std::less<>> meanings_;
    std::size_t longest_ = 0;
};

} // namespace pello
