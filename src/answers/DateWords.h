#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// A text about dates, taken apart into numbers, words and signs.
///
/// Digits of any script are numbers; words are composed (NFC) and come without apostrophes and
/// without the dot after an abbreviation. A text that is too long to be about a date has no pieces,
/// nor has one in which a number follows a word without a space: "h264". Pieces are counted from 0;
/// past the last one there are empty words.
class DateWords {
public:
    /// Takes `text`, which must be in lower case, apart.
    explicit DateWords(std::string_view text);

    [[nodiscard]] std::size_t size() const { return count_; }

    /// Whether the piece is the very word or sign `expected`.
    [[nodiscard]] bool is(std::size_t at, std::string_view expected) const {
        return text(at) == expected;
    }

    /// Whether nothing stands between the piece and the one before.
    [[nodiscard]] bool isGlued(std::size_t at) const { return at < count_ && pieces_[at].isGlued; }

    [[nodiscard]] bool isNumber(std::size_t at) const { return digits(at) > 0; }

    /// The piece as a number, when it is one of `fewest` to `most` digits; at most nine.
    [[nodiscard]] std::optional<int> number(std::size_t at, std::size_t fewest,
                                            std::size_t most) const;

    [[nodiscard]] std::string_view text(std::size_t at) const { return phrase(at, at + 1); }

    /// The pieces from number `first` up to, not including, number `last`, with single spaces
    /// between them. Empty when there are not that many.
    [[nodiscard]] std::string_view phrase(std::size_t first, std::size_t last) const;

    /// All of them.
    [[nodiscard]] std::string_view phrase() const { return phrase(0, count_); }

private:
    struct Piece {
        std::size_t begin = 0;
        std::size_t end = 0;
        bool isGlued = false;
        bool isNumber = false;
    };

    [[nodiscard]] std::size_t digits(std::size_t at) const;
    [[nodiscard]] bool takeApart(std::string_view text);
    [[nodiscard]] bool begin(char first, bool isGlued);
    void addWord(std::string_view text);

    static constexpr std::size_t kMostPieces = 32;

    std::string plain_;
    std::array<Piece, kMostPieces> pieces_;
    std::size_t count_ = 0;
};

} // namespace pello
