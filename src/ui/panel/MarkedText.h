#pragma once

#include <QString>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace pello {

/// A line of text to be painted, of which some characters are marked.
///
/// Characters are those that users perceive, so that a mark never splits an accent or an emoji.
/// Line breaks and control characters read as spaces. A plain value.
class MarkedText {
public:
    /// A run of marked text, in the UTF-16 units of `text()`.
    struct Range {
        int start = 0;
        int length = 0;
        friend bool operator==(const Range&, const Range&) = default;
    };

    /// Marks the characters of `utf8` at the ascending positions `marks`; those beyond its end
    /// count for nothing.
    explicit MarkedText(std::string_view utf8, std::span<const int> marks = {});

    [[nodiscard]] QString text() const;

    /// The marked runs in order, neighbours joined.
    [[nodiscard]] std::vector<Range> markedRanges() const;

    [[nodiscard]] std::size_t characterCount() const { return characters_.size(); }

    /// The text with only `kept` of its characters, from both ends, around an ellipsis.
    [[nodiscard]] MarkedText elided(std::size_t kept) const;

private:
    struct Character {
        QString text;
        bool isMarked = false;
    };

    std::vector<Character> characters_;
};

/// `utf8` as one line to be painted: line breaks and control characters read as spaces.
[[nodiscard]] QString lineOf(std::string_view utf8);

} // namespace pello
