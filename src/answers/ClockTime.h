#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace pello {

/// A time of day that is typed: "3pm", "3:15 p.m.", "15:00", "1530", "noon". A plain value.
struct ClockTime {
    std::chrono::minutes sinceMidnight{0};
    /// Whether it was four digits and nothing else, which might be any number.
    bool isBareNumber = false;

    struct Reading;

    /// The time that `words` (lower case) begin with. Nothing without one, or when it is a time
    /// that no clock shows: "13pm", "24:00". A lone "3" is no time.
    [[nodiscard]] static std::optional<Reading> leading(std::span<const std::string_view> words);

    friend bool operator==(const ClockTime&, const ClockTime&) = default;
};

/// A time and how many words it took.
struct ClockTime::Reading {
    ClockTime time;
    std::size_t wordCount = 1;
};

} // namespace pello
