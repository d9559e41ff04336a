#include "answers/Uuid.h"

#include <cstddef>
#include <random>

namespace pello {
namespace {

constexpr std::size_t kTextLength = 36;
constexpr std::string_view kDigits = "0123456789ABCDEF";

constexpr bool isDashPosition(std::size_t i) {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

std::optional<std::uint8_t> hexDigit(char c) {
    if (c >= 'a' && c <= 'f') {
        c = static_cast<char>(c - 'a' + 'A');
    }
    const auto value = kDigits.find(c);
    if (value == std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(value);
}

} // namespace

Uuid Uuid::random() {
    std::random_device device;
    std::uniform_int_distribution<unsigned> anyByte(0, 255);
    Uuid uuid;
    for (std::uint8_t& byte : uuid.bytes) {
        byte = static_cast<std::uint8_t>(anyByte(device));
    }
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0FU) | 0x40U); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3FU) | 0x80U); // variant 1
    return uuid;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    if (text.size() != kTextLength) {
        return std::nullopt;
    }
    Uuid uuid;
    std::size_t digitCount = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDashPosition(i)) {
            if (text[i] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const auto digit = hexDigit(text[i]);
        if (!digit) {
            return std::nullopt;
        }
        std::uint8_t& byte = uuid.bytes.at(digitCount / 2);
        byte = static_cast<std::uint8_t>(byte << 4U | *digit);
        ++digitCount;
    }
    return uuid;
}

std::string Uuid::text() const {
    std::string text;
    text.reserve(kTextLength);
    for (const std::uint8_t byte : bytes) {
        if (isDashPosition(text.size())) {
            text += '-';
        }
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

} // namespace pello
