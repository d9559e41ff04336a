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
    /// A formatter that shows at most `most` digits after the decimal separator, under `locale`
    /// (see ReadersLocale.h).
    [[nodiscard]] static NumberFormatter withFractionDigits(int most, std::string_view locale = {});
    ~NumberFormatter();
    NumberFormatter(NumberFormatter&& other) noexcept;
    NumberFormatter& operator=(NumberFormatter&& other) noexcept;

    /// The finite `number` for the user. Where ICU has no data, its shortest decimal form.
    [[nodiscard]] std::string text(double number) const;

private:
    struct Rules;

    explicit NumberFormatter(std::unique_ptr<Rules> rules);

    std::unique_ptr<Rules> rules_;
};

} // namespace pello
