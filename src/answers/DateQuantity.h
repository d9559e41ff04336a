#pragma once

#include "answers/CalendarStep.h"
#include "answers/DateWords.h"

#include <cstddef>
#include <optional>

/// Lengths of time as queries about dates name them: "3 weeks", "a month", "10d".
namespace pello::DateQuantity {

/// Which names of units count.
enum class Names { whole, alsoShort };

struct Match {
    CalendarStep step;
    /// The piece after it.
    std::size_t end;
};

/// The unit that piece `at` names, as a step of one: of two weeks for a fortnight.
[[nodiscard]] std::optional<CalendarStep> unit(const DateWords& words, std::size_t at, Names names);

/// The unit that piece `at` names in the singular.
[[nodiscard]] std::optional<CalendarStep> single(const DateWords& words, std::size_t at);

/// The length that begins at piece `at`: a whole number up to 9,999,999, or a word for a small one,
/// and a unit.
[[nodiscard]] std::optional<Match> read(const DateWords& words, std::size_t at, Names names);

} // namespace pello::DateQuantity
