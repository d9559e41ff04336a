#pragma once

#include "search/ScoreTable.h"
#include "search/TextPreparer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pello {

/// Many prepared texts in few arrays, in order of length.
///
/// A text is added under its number (0, 1, 2, ...) and lies, once all are in, at a slot. Slots
/// follow the length, so a search that goes through them meets the short texts first, which score
/// best, and can stop at a length. Immutable after `arrange`.
class TextTable {
public:
    /// The slots from `first` to before `end`, all texts of which have this length.
    struct Group {
        std::uint32_t length;
        std::uint32_t first;
        std::uint32_t end;
    };

    /// Adds the next text.
    void add(const PreparedText& text);

    /// Puts the texts in order. Call once, after the last `add`.
    void arrange();

    [[nodiscard]] std::size_t size() const { return numbers_.size(); }
    [[nodiscard]] std::span<const Group> groups() const { return groups_; }
    [[nodiscard]] std::uint32_t slotOf(std::size_t number) const { return slots_[number]; }
    [[nodiscard]] std::uint32_t numberAt(std::uint32_t slot) const { return numbers_[slot]; }
    /// The presence masks by slot.
    [[nodiscard]] const std::uint64_t* masks() const { return masks_.data(); }

    /// The number of characters.
    [[nodiscard]] std::size_t length(std::uint32_t slot) const {
        return begins_[slot + 1] - begins_[slot];
    }

    /// The text as bytes, readable for `PositionMask::kMostPositions` bytes at least, as are its
    /// bonuses.
    [[nodiscard]] ScoredText<std::uint8_t> bytes(std::uint32_t slot) const {
        const std::size_t begin = begins_[slot];
        return {.characters = {bytes_.data() + begin, length(slot)},
                .bonuses = {bonuses_.data() + begin, length(slot)}};
    }

    /// Whether characters other than ASCII are in the text: then its bytes do not tell all.
    [[nodiscard]] bool hasCodes(std::uint32_t slot) const;

    /// The characters' codes of a text that has them.
    [[nodiscard]] ScoredText<char32_t> codes(std::uint32_t slot) const;

    /// Bytes held outside of the object.
    [[nodiscard]] std::size_t footprint() const;

private:
    struct Coded {
        std::uint32_t place; // the text's number, after `arrange` its slot
        std::uint32_t begin; // in codes_
    };

    [[nodiscard]] const Coded* coded(std::uint32_t slot) const;
    void sortByLength();
    void moveTexts();

    std::vector<std::uint8_t> bytes_;
    std::vector<std::uint8_t> bonuses_;
    std::vector<std::uint32_t> begins_ = {0}; // by number while adding, then by slot; one more
    std::vector<std::uint64_t> masks_;
    std::vector<std::uint32_t> numbers_; // by slot
    std::vector<std::uint32_t> slots_;   // by number
    std::vector<Group> groups_;
    std::vector<char32_t> codes_;
    std::vector<Coded> coded_; // by slot
};

} // namespace pello
