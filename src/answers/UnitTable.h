#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_map>

namespace pello {

/// What a unit measures. Only units of one kind convert into each other.
enum class UnitKind { length, mass, temperature, volume, speed, area, data, duration };

/// A unit of measurement. A plain value whose texts live as long as the program.
struct Unit {
    UnitKind kind;
    /// Its identifier in ICU.
    std::string_view identifier;
    /// Its size, in a measure that all units of the kind share.
    double size;
    /// A name of the unit that quantities in this one are converted into when none is asked for.
    std::string_view counterpart;
    /// What a query may call it, in lower case, with "|" between the names.
    std::string_view names;
    /// What it shows where another unit of the kind shows 0 or its own such value: for scales that
    /// do not begin at the same point.
    double zero = 0;
};

/// `value` of `from`, in `to`, a unit of the same kind. Infinite when it is beyond all numbers.
[[nodiscard]] double converted(double value, const Unit& from, const Unit& to);

/// The units that queries may name. Immutable once made; safe on any thread.
class UnitTable {
public:
    UnitTable();

    /// Every unit, those of a kind side by side; alive as long as the program.
    [[nodiscard]] static std::span<const Unit> units();

    /// The unit of this very name, which must be in lower case; null when there is none.
    [[nodiscard]] const Unit* named(std::string_view name) const;

private:
    std::unordered_map<std::string_view, const Unit*> byName_;
    std::size_t longestName_ = 0;
};

} // namespace pello
