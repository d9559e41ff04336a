#include "search/TextTable.h"

#include "search/Footprint.h"
#include "search/PositionMask.h"
#include "search/PresenceMask.h"

#include <algorithm>
#include <utility>

namespace pello {

void TextTable::add(const PreparedText& text) {
    if (!text.codes.empty()) {
        coded_.push_back({static_cast<std::uint32_t>(begins_.size() - 1),
                          static_cast<std::uint32_t>(codes_.size())});
        codes_.insert(codes_.end(), text.codes.begin(), text.codes.end());
    }
    bytes_.insert(bytes_.end(), text.bytes.begin(), text.bytes.end());
    bonuses_.insert(bonuses_.end(), text.bonuses.begin(), text.bonuses.end());
    begins_.push_back(static_cast<std::uint32_t>(bytes_.size()));
}

void TextTable::arrange() {
    sortByLength();
    moveTexts();
    for (Coded& text : coded_) {
        text.place = slots_[text.place];
    }
    std::sort(coded_.begin(), coded_.end(),
              [](const Coded& left, const Coded& right) { return left.place < right.place; });
    codes_.shrink_to_fit();
    coded_.shrink_to_fit();
}

/// Fills groups_, slots_ and numbers_; texts of one length keep their order.
void TextTable::sortByLength() {
    const std::size_t count = begins_.size() - 1;
    std::vector<std::uint32_t> ends; // of each length's slots
    for (std::size_t number = 0; number < count; ++number) {
        const std::size_t length = begins_[number + 1] - begins_[number];
        ends.resize(std::max(ends.size(), length + 1));
        ++ends[length];
    }
    std::uint32_t next = 0;
    for (std::uint32_t length = 0; length < ends.size(); ++length) {
        const std::uint32_t first = next;
        next += std::exchange(ends[length], first);
        if (next > first) {
            groups_.push_back({.length = length, .first = first, .end = next});
        }
    }
    slots_.resize(count);
    numbers_.resize(count);
    for (std::uint32_t number = 0; number < count; ++number) {
        slots_[number] = ends[begins_[number + 1] - begins_[number]]++;
        numbers_[slots_[number]] = number;
    }
    groups_.shrink_to_fit();
}

void TextTable::moveTexts() {
    const std::size_t padded = bytes_.size() + PositionMask::kMostPositions;
    std::vector<std::uint8_t> bytes;
    std::vector<std::uint8_t> bonuses;
    std::vector<std::uint32_t> begins;
    bytes.reserve(padded);
    bonuses.reserve(padded);
    begins.reserve(begins_.size());
    masks_.reserve(numbers_.size());
    for (const std::uint32_t number : numbers_) {
        const auto first = static_cast<std::ptrdiff_t>(begins_[number]);
        const auto last = static_cast<std::ptrdiff_t>(begins_[number + 1]);
        begins.push_back(static_cast<std::uint32_t>(bytes.size()));
        bytes.insert(bytes.end(), bytes_.begin() + first, bytes_.begin() + last);
        bonuses.insert(bonuses.end(), bonuses_.begin() + first, bonuses_.begin() + last);
        masks_.push_back(PresenceMask::of(std::span(bytes).subspan(begins.back())));
    }
    begins.push_back(static_cast<std::uint32_t>(bytes.size()));
    bytes.resize(padded);
    bonuses.resize(padded);
    bytes_ = std::move(bytes);
    bonuses_ = std::move(bonuses);
    begins_ = std::move(begins);
}

const TextTable::Coded* TextTable::coded(std::uint32_t slot) const {
    const auto found =
        std::lower_bound(coded_.begin(), coded_.end(), slot,
                         [](const Coded& text, std::uint32_t place) { return text.place < place; });
    return found != coded_.end() && found->place == slot ? &*found : nullptr;
}

bool TextTable::hasCodes(std::uint32_t slot) const {
    return coded(slot) != nullptr;
}

ScoredText<char32_t> TextTable::codes(std::uint32_t slot) const {
    return {.characters = {codes_.data() + coded(slot)->begin, length(slot)},
            .bonuses = bytes(slot).bonuses};
}

std::size_t TextTable::footprint() const {
    return bytesOf(bytes_) + bytesOf(bonuses_) + bytesOf(begins_) + bytesOf(masks_) +
           bytesOf(numbers_) + bytesOf(slots_) + bytesOf(groups_) + bytesOf(codes_) +
           bytesOf(coded_);
}

} // namespace pello
