#pragma once

#include "answers/ConversionResult.h"
#include "answers/UnitTable.h"
#include "answers/UnitTexts.h"

#include <optional>
#include <string_view>

namespace pello {

/// Converts a quantity that is typed into another unit: "5 km", "5 km to mi", "72 °f in c".
///
/// Make it once: it holds the names of the units and the locale's texts for them, and reads ICU's
/// data for them then. Immutable; safe on any thread.
class UnitConversion {
public:
    using Kind = UnitKind;

    /// Reads and writes numbers as `locale` does (see ReadersLocale.h).
    explicit UnitConversion(std::string_view locale = {}) : texts_(locale) {}

    /// The answer to `query`, which must be trimmed and in lower case. Nothing when it is no
    /// quantity, names units of different kinds, or is beyond all numbers.
    [[nodiscard]] std::optional<ConversionResult> convert(std::string_view query) const;

private:
    UnitTable units_;
    UnitTexts texts_;
};

} // namespace pello
