#pragma once

#include "base/RawValues.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace pello {

/// An answer to a query that asks for something to be converted. A plain value.
struct ConversionResult {
    /// Which converter gave the answer.
    enum class Kind { unit, time, date };

    Kind kind = Kind::unit;
    /// The answer.
    std::string title;
    /// What was converted into what.
    std::string subtitle;

    friend bool operator==(const ConversionResult&, const ConversionResult&) = default;
};

template <>
struct RawValues<ConversionResult::Kind> {
    static constexpr std::array<std::string_view, 3> names = {"unit", "time", "date"};
};

} // namespace pello

template <>
struct std::hash<pello::ConversionResult> {
    std::size_t operator()(const pello::ConversionResult& result) const noexcept {
        const std::hash<std::string> ofText;
        const auto kind = static_cast<std::size_t>(result.kind);
        return (ofText(result.title) * 31 + ofText(result.subtitle)) * 31 + kind;
    }
};
