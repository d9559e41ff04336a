#include "platform/bundles/PropertyList.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

/// Equality by which a number that is none equals another.
bool isSame(const pello::PropertyValue& left, const pello::PropertyValue& right) {
    if (const auto* array = left.as<pello::PropertyArray>()) {
        const auto* other = right.as<pello::PropertyArray>();
        return other != nullptr &&
               std::equal(array->begin(), array->end(), other->begin(), other->end(), isSame);
    }
    if (const auto* dictionary = left.as<pello::PropertyDictionary>()) {
        const auto* other = right.as<pello::PropertyDictionary>();
        return other != nullptr &&
               std::equal(dictionary->begin(), dictionary->end(), other->begin(), other->end(),
                          [](const auto& one, const auto& two) {
                              return one.first == two.first && isSame(one.second, two.second);
                          });
    }
    const auto* real = left.as<double>();
    const auto* other = right.as<double>();
    return left == right ||
           (real != nullptr && other != nullptr && std::isnan(*real) && std::isnan(*other));
}

} // namespace

/// What can be read can be stored, and is the same from then on.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto value = pello::parsePropertyList({reinterpret_cast<const char*>(data), size});
    if (!value) {
        return 0;
    }
    const auto stored = pello::serializePropertyList(*value);
    const auto reread = stored ? pello::parsePropertyList(*stored) : std::nullopt;
    const auto again = reread ? pello::serializePropertyList(*reread) : std::nullopt;
    const auto last = again ? pello::parsePropertyList(*again) : std::nullopt;
    if (!last || !isSame(*reread, *last)) {
        std::abort();
    }
    return 0;
}
