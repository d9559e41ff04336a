#pragma once

#include "answers/Calculator.h"
#include "answers/Conversions.h"
#include "answers/Surroundings.h"

#include <memory>

namespace pello {

/// Everything that computes answers, for one reader.
struct Evaluators {
    /// Makes them and has them answer once, so that what is read from files has been read when the
    /// first letter is typed. Takes some 20 ms; any thread.
    [[nodiscard]] static std::shared_ptr<const Evaluators>
    prepared(const Surroundings& surroundings);

    explicit Evaluators(const Surroundings& where)
        : surroundings(where), calculator(where.locale), conversions(where) {}

    Surroundings surroundings;
    Calculator calculator;
    Conversions conversions;
};

} // namespace pello
