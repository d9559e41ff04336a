#pragma once

#include "answers/NumberFormatter.h"

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// Answers a query that is arithmetic: "12*(3+4)" gives "84".
///
/// What is understood stands in ArithmeticParser.h; expressions read the same under every locale,
/// only the answer follows it. One object may be shared by several threads.
class Calculator {
public:
    /// Answers as `locale` writes numbers (see ReadersLocale.h).
    explicit Calculator(std::string_view locale = {});

    /// The value of `query`, with at most ten digits after the decimal separator. Nothing unless
    /// the query is one whole valid expression, computes something and has a finite value; so a
    /// bare number or a word has no answer.
    [[nodiscard]] std::optional<std::string> evaluate(std::string_view query) const;

private:
    [[nodiscard]] std::string format(double value) const;

    NumberFormatter integerFormatter_;
    NumberFormatter decimalFormatter_;
};

} // namespace pello
