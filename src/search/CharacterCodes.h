#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace pello {

/// Numbers for characters: equal for canonically equivalent ones, different for all others.
///
/// A character that composes to one scalar is that scalar, in every instance; others are numbered
/// as they are added, so their codes hold within one instance. Reading is safe on any thread once
/// nothing is added any more.
class CharacterCodes {
public:
    /// A character that was never added.
    static constexpr char32_t kAbsent = 0xFFFFFFFF;

    /// The code of `character`, which gets one if it has none.
    char32_t add(std::string_view character);

    /// The code of `character`, or `kAbsent`.
    [[nodiscard]] char32_t find(std::string_view character) const;

    /// Bytes held outside of the object.
    [[nodiscard]] std::size_t footprint() const;

private:
    std::map<std::string, char32_t, std::less<>> numbered_;
};

} // namespace pello
