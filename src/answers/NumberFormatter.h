#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace pello {

/// Numbers as a locale writes them: its digits, its separators, its groups.
///
/// A number that has more digits than shown is rounded as its shortest decimal form reads, half to
/// even. Zeros at the end of a fraction are left out, zero has no sign, and there is never an
/// exponent. One object may be shared by several threads.
class NumberFormatter {
public:
    /// A formatter that shows at most `most` digits after the decimal separator, or at most `most`
    /// significant digits, under `locale` (see ReadersLocale.h).
    [[nodiscard]] static NumberFormatter withFractionDigits(int most, std::string_view locale = {});
    [[nodiscard]] static NumberFormatter withSignificantDigits(int most,
                                                               std::string_view locale = {});
    ~NumberFormatter();
    NumberFormatter(NumberFormatter&& other) noexcept;
    NumberFormatter& operator=(NumberFormatter&& other) noexcept;

    /// The finite `number` for the user. Where ICU has no data, its shortest decimal form.
    [[nodiscard]] std::string text(double number) const;

    /// What stands before the fraction, "." in en_US; and between groups of digits, "," there.
    [[nodiscard]] const std::string& decimalSeparator() const;
    [[nodiscard]] const std::string& groupingSeparator() const;

    /// The rules as the implementation has them.
    struct Rules;

private:
    explicit NumberFormatter(std::unique_ptr<Rules> rules);

    std::unique_ptr<Rules> rules_;
};

} // namespace pello
