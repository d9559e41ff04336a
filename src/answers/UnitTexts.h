#pragma once

#include "answers/UnitTable.h"

#include <memory>
#include <string>
#include <string_view>

namespace pello {

/// How quantities read in one locale: at most six significant digits, with grouping separators.
///
/// Everything is prepared when the object is made, which takes some 10 ms. Units are those of
/// UnitTable. Without ICU's data for a unit its texts are empty. Safe on any thread.
class UnitTexts {
public:
    /// The texts of `locale` (see ReadersLocale.h).
    explicit UnitTexts(std::string_view locale = {});
    ~UnitTexts();
    UnitTexts(const UnitTexts&) = delete;
    UnitTexts& operator=(const UnitTexts&) = delete;

    /// "3.10686 mi": the number and the unit's symbol. Days and weeks are spelt out here too.
    [[nodiscard]] std::string brief(double value, const Unit& unit) const;

    /// "5 kilometers": the number and the unit's name.
    [[nodiscard]] std::string full(double value, const Unit& unit) const;

    /// "miles": the unit's name in the plural.
    [[nodiscard]] std::string_view name(const Unit& unit) const;

    /// The character before decimals.
    [[nodiscard]] std::string_view localDecimal() const;

private:
    struct Prepared;
    std::unique_ptr<Prepared> prepared_;
};

} // namespace pello
