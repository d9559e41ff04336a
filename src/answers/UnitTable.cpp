// Sizes are the international definitions, in meters, kilograms, liters, meters per second, square
// meters, bits and seconds. A cup is the one of food labels, 240 ml.
//
// Temperatures differ in the size of a degree (in ninths of a degree Celsius) and in where the
// scale begins. Taking each scale's own freezing point of water off before anything is multiplied
// leaves no rounding error where the answer is 0.

#include "answers/UnitTable.h"

#include "base/Text.h"

#include <algorithm>
#include <array>

namespace pello {
namespace {

using enum UnitKind;

constexpr double kMile = 1609.344;
constexpr double kNauticalMile = 1852;
constexpr double kHour = 3600;
constexpr double kByte = 8;
constexpr double kKibibyte = 1024 * kByte;
constexpr double kMebibyte = 1024 * kKibibyte;
constexpr double kGibibyte = 1024 * kMebibyte;
constexpr double kTebibyte = 1024 * kGibibyte;
constexpr double kPebibyte = 1024 * kTebibyte;

constexpr std::array kUnits = std::to_array<Unit>({
    {length, "kilometer", 1000, "mi", "km|kilometer|kilometers|kilometre|kilometres"},
    {length, "meter", 1, "ft", "m|meter|meters|metre|metres"},
    {length, "centimeter", 0.01, "in", "cm|centimeter|centimeters|centimetre|centimetres"},
    {length, "millimeter", 0.001, "in", "mm|millimeter|millimeters|millimetre|millimetres"},
    {length, "mile", kMile, "km", "mi|mile|miles"},
    {length, "yard", 0.9144, "m", "yd|yard|yards"},
    {length, "foot", 0.3048, "m", "ft|foot|feet|'|′"},
    {length, "inch", 0.0254, "cm", "in|inch|inches|\"|″"},
    {length, "nautical-mile", kNauticalMile, "km", "nmi|nautical mile|nautical miles"},

    {mass, "kilogram", 1, "lb", "kg|kilogram|kilograms|kilo|kilos"},
    {mass, "gram", 0.001, "oz", "g|gram|grams|gramme|grammes"},
    {mass, "milligram", 1e-6, "g", "mg|milligram|milligrams"},
    {mass, "tonne", 1000, "ton", "t|tonne|tonnes|metric ton|metric tons"},
    {mass, "ton", 907.18474, "t", "ton|tons|short ton|short tons"},
    {mass, "pound", 0.45359237, "kg", "lb|lbs|pound|pounds"},
    {mass, "ounce", 0.028349523125, "g", "oz|ounce|ounces"},
    {mass, "stone", 6.35029318, "kg", "st|stone|stones"},

    {temperature, "celsius", 9, "f", "c|°c|celsius|degc|centigrade"},
    {temperature, "fahrenheit", 5, "c", "f|°f|fahrenheit|degf", 32},
    {temperature, "kelvin", 9, "c", "k|kelvin", 273.15},

    {volume, "liter", 1, "gal", "l|liter|liters|litre|litres"},
    {volume, "milliliter", 0.001, "fl oz", "ml|milliliter|milliliters|millilitre|millilitres"},
    {volume, "centiliter", 0.01, "fl oz", "cl|centiliter|centiliters|centilitre|centilitres"},
    {volume, "deciliter", 0.1, "cup", "dl|deciliter|deciliters|decilitre|decilitres"},
    {volume, "cubic-meter", 1000, "ft3", "m3|m³|cubic meter|cubic meters|cubic metre|cubic metres"},
    {volume, "cubic-foot", 28.316846592, "m3", "ft3|ft³|cubic foot|cubic feet"},
    {volume, "gallon", 3.785411784, "l", "gal|gallon|gallons"},
    {volume, "gallon-imperial", 4.54609, "l", "imperial gallon|imperial gallons|imp gal"},
    {volume, "quart", 0.946352946, "l", "qt|quart|quarts"},
    {volume, "pint", 0.473176473, "l", "pt|pint|pints"},
    {volume, "cup", 0.24, "ml", "cup|cups"},
    {volume, "fluid-ounce", 0.0295735295625, "ml", "fl oz|floz|fluid ounce|fluid ounces"},
    {volume, "tablespoon", 0.01478676478125, "ml", "tbsp|tablespoon|tablespoons"},
    {volume, "teaspoon", 0.00492892159375, "ml", "tsp|teaspoon|teaspoons"},

    {speed, "kilometer-per-hour", 1000 / kHour, "mph",
     "km/h|kmh|kph|kmph|kilometers per hour|kilometres per hour"},
    {speed, "mile-per-hour", kMile / kHour, "km/h", "mph|miles per hour"},
    {speed, "meter-per-second", 1, "km/h", "m/s|meters per second|metres per second"},
    {speed, "knot", kNauticalMile / kHour, "km/h", "kn|kt|knot|knots"},

    {area, "square-meter", 1, "ft2",
     "m2|m²|sqm|sq m|square meter|square meters|square metre|square metres"},
    {area, "square-kilometer", 1e6, "mi2",
     "km2|km²|sq km|square kilometer|square kilometers|square kilometre|square kilometres"},
    {area, "square-centimeter", 1e-4, "in2",
     "cm2|cm²|sq cm|square centimeter|square centimeters|square centimetre|square centimetres"},
    {area, "square-foot", 0.09290304, "m2", "ft2|ft²|sqft|sq ft|square foot|square feet"},
    {area, "square-inch", 0.00064516, "cm2", "in2|in²|sq in|square inch|square inches"},
    {area, "square-mile", 2589988.110336, "km2", "mi2|mi²|sq mi|square mile|square miles"},
    {area, "hectare", 1e4, "ac", "ha|hectare|hectares"},
    {area, "acre", 4046.8564224, "ha", "ac|acre|acres"},

    {data, "byte", kByte, "bit", "b|byte|bytes"},
    {data, "kilobyte", kByte * 1e3, "kib", "kb|kilobyte|kilobytes"},
    {data, "megabyte", kByte * 1e6, "mib", "mb|megabyte|megabytes"},
    {data, "gigabyte", kByte * 1e9, "gib", "gb|gigabyte|gigabytes"},
    {data, "terabyte", kByte * 1e12, "gib", "tb|terabyte|terabytes"},
    {data, "petabyte", kByte * 1e15, "tib", "pb|petabyte|petabytes"},
    {data, "kibibyte", kKibibyte, "kb", "kib|kibibyte|kibibytes"},
    {data, "mebibyte", kMebibyte, "mb", "mib|mebibyte|mebibytes"},
    {data, "gibibyte", kGibibyte, "gb", "gib|gibibyte|gibibytes"},
    {data, "tebibyte", kTebibyte, "tb", "tib|tebibyte|tebibytes"},
    {data, "pebibyte", kPebibyte, "pb", "pib|pebibyte|pebibytes"},
    {data, "bit", 1, "b", "bit|bits"},
    {data, "kilobit", 1e3, "kb", "kbit|kilobit|kilobits"},
    {data, "megabit", 1e6, "mb", "mbit|megabit|megabits"},
    {data, "gigabit", 1e9, "gb", "gbit|gigabit|gigabits"},

    {duration, "millisecond", 0.001, "s", "ms|millisecond|milliseconds"},
    {duration, "second", 1, "min", "s|sec|secs|second|seconds"},
    {duration, "minute", 60, "h", "min|mins|minute|minutes"},
    {duration, "hour", kHour, "min", "h|hr|hrs|hour|hours"},
    {duration, "day", 24 * kHour, "h", "d|day|days"},
    {duration, "week", 7 * 24 * kHour, "d", "wk|wks|week|weeks"},
});

} // namespace

double converted(double value, const Unit& from, const Unit& to) {
    if (&from == &to) {
        return value;
    }
    return (value - from.zero) * from.size / to.size + to.zero;
}

std::span<const Unit> UnitTable::units() {
    return kUnits;
}

UnitTable::UnitTable() {
    byName_.reserve(4 * kUnits.size());
    for (const Unit& unit : kUnits) {
        for (const std::string_view name : text::split(unit.names, '|')) {
            byName_.try_emplace(name, &unit); // of two units with a name the earlier keeps it
            longestName_ = std::max(longestName_, name.size());
        }
    }
}

const Unit* UnitTable::named(std::string_view name) const {
    if (name.size() > longestName_) { // nor is a whole pasted page hashed
        return nullptr;
    }
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

} // namespace pello
