#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace pello::testing {

/// Random texts from few letters, so that queries are often found in them.
class RandomText {
public:
    explicit RandomText(std::uint64_t seed) : generator_(seed) {}

    std::size_t below(std::size_t bound) { return generator_() % bound; }

    /// Up to `most` characters of `alphabet`.
    std::string text(std::size_t most, std::string_view alphabet = "aabbcABC -.12") {
        std::string result;
        for (std::size_t count = below(most + 1); count > 0; --count) {
            result += alphabet[below(alphabet.size())];
        }
        return result;
    }

private:
    std::mt19937_64 generator_;
};

} // namespace pello::testing
