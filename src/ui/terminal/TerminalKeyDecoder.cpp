#include "ui/terminal/TerminalKeyDecoder.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace pello {
namespace {

using Name = TerminalKey::Name;
using With = TerminalKey::With;

constexpr char kEscape = '\033';
constexpr char kDelete = '\177';
constexpr std::string_view kPasteStart = "\033[200~";
constexpr std::string_view kPasteEnd = "\033[201~";
constexpr std::size_t kLongestSequence = 32;

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == kDelete;
}

/// How many bytes come before the first that is `wanted`.
std::size_t countBefore(std::string_view bytes, auto wanted) {
    return static_cast<std::size_t>(std::ranges::find_if(bytes, wanted) - bytes.begin());
}

TerminalKey controlKey(char byte) {
    switch (byte) {
    case '\r':
    case '\n':
        return {.name = Name::enter};
    case '\t':
        return {.name = Name::tab};
    case '\b':
    case kDelete:
        return {.name = Name::backspace};
    default: // Ctrl+A is 1, and so on
        return {.name = Name::character,
                .with = With::control,
                .text = std::string(1, static_cast<char>(byte | 0x60))};
    }
}

/// How many bytes the character that starts with `lead` has in UTF-8.
std::size_t encodedSize(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    if (byte >= 0xF8) {
        return 1; // begins no character
    }
    if (byte >= 0xF0) {
        return 4;
    }
    if (byte >= 0xE0) {
        return 3;
    }
    return byte >= 0xC0 ? 2 : 1;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// `text` without an encoded character at its end that has not come in full.
std::string_view completed(std::string_view text) {
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
        const char byte = text[text.size() - back];
        if (!isContinuation(byte)) {
            return encodedSize(byte) > back ? text.substr(0, text.size() - back) : text;
        }
    }
    return text;
}

/// xterm's number for what is held: 1 and the sum of shift 1, alt 2, control 4.
With heldOf(int number) {
    const auto bits = static_cast<unsigned>(std::max(0, number - 1));
    if ((bits & 4U) != 0) {
        return With::control;
    }
    if ((bits & 2U) != 0) {
        return With::alt;
    }
    return (bits & 1U) != 0 ? With::shift : With::nothing;
}

struct Meaning {
    int code;
    Name name;
};

std::optional<Name> find(const auto& table, int code) {
    const auto found =
        std::ranges::find_if(table, [&](const Meaning& each) { return each.code == code; });
    return found != std::end(table) ? std::optional(found->name) : std::nullopt;
}

std::optional<Name> letterName(char letter) {
    static constexpr auto kNames = std::to_array<Meaning>({{'A', Name::up},
                                                           {'B', Name::down},
                                                           {'C', Name::right},
                                                           {'D', Name::left},
                                                           {'F', Name::end},
                                                           {'H', Name::home},
                                                           {'M', Name::enter},
                                                           {'P', Name::forwardDelete},
                                                           {'Z', Name::tab}});
    return find(kNames, letter);
}

std::optional<Name> numberName(int number) {
    static constexpr auto kNames = std::to_array<Meaning>({{1, Name::home},
                                                           {3, Name::forwardDelete},
                                                           {4, Name::end},
                                                           {5, Name::pageUp},
                                                           {6, Name::pageDown},
                                                           {7, Name::home},
                                                           {8, Name::end}});
    return find(kNames, number);
}

/// The key of a terminal that tells more than it has to: the scalar, and what is held.
std::optional<TerminalKey> keyOfScalar(int scalar, With with) {
    static constexpr auto kNames = std::to_array<Meaning>(
        {{9, Name::tab}, {13, Name::enter}, {27, Name::escape}, {127, Name::backspace}});
    if (const auto name = find(kNames, scalar)) {
        return TerminalKey{.name = *name, .with = with};
    }
    if (scalar < 0x20 || scalar > 0x7E) {
        return std::nullopt;
    }
    return TerminalKey{.with = with, .text = std::string(1, static_cast<char>(scalar))};
}

std::vector<int> numbers(std::string_view parameters) {
    std::vector<int> found;
    const char* place = parameters.data();
    const char* const end = place + parameters.size();
    while (place < end) {
        int number = 0;
        place = std::from_chars(place, end, number).ptr;
        found.push_back(number);
        place = std::find(place, end, ';');
        place += place < end ? 1 : 0;
    }
    found.resize(std::max<std::size_t>(3, found.size()), 0);
    return found;
}

std::optional<TerminalKey> keyOfSequence(std::string_view parameters, char final) {
    const auto values = numbers(parameters);
    const With with = heldOf(values[1]);
    if (final == 'u') {
        return keyOfScalar(values[0], with);
    }
    if (final == '~' && values[0] == 27) {
        return keyOfScalar(values[2], with);
    }
    const auto name = final == '~' ? numberName(values[0]) : letterName(final);
    if (!name) {
        return std::nullopt;
    }
    return TerminalKey{.name = *name, .with = final == 'Z' ? With::shift : with};
}

} // namespace

std::vector<TerminalKey> TerminalKeyDecoder::decode(std::string_view bytes) {
    pending_ += bytes;
    std::vector<TerminalKey> keys;
    while (!pending_.empty()) {
        if (isPasting_) {
            if (!takePaste(keys)) {
                break;
            }
            continue;
        }
        if (pending_.starts_with(kPasteStart)) {
            pending_.erase(0, kPasteStart.size());
            isPasting_ = true;
            continue;
        }
        Parsed parsed = parse(pending_);
        if (parsed.length == 0) {
            break;
        }
        if (parsed.key) {
            keys.push_back(std::move(*parsed.key));
        }
        pending_.erase(0, parsed.length);
    }
    return keys;
}

/// False when the end of the paste has not come. Its line breaks are no Return: what is pasted runs
/// nothing.
bool TerminalKeyDecoder::takePaste(std::vector<TerminalKey>& keys) {
    const std::size_t end = pending_.find(kPasteEnd);
    if (end == std::string::npos) {
        return false;
    }
    std::string pasted = text::wellFormed(std::string_view(pending_).substr(0, end));
    std::ranges::replace_if(pasted, isControl, ' ');
    pending_.erase(0, end + kPasteEnd.size());
    isPasting_ = false;
    keys.push_back({.text = std::move(pasted)});
    return true;
}

std::vector<TerminalKey> TerminalKeyDecoder::giveUp() {
    std::vector<TerminalKey> keys;
    while (isWaiting()) {
        if (pending_.front() == kEscape) {
            keys.push_back({.name = Name::escape});
        }
        pending_.erase(0, 1);
        const auto more = decode("");
        keys.insert(keys.end(), more.begin(), more.end());
    }
    return keys;
}

TerminalKeyDecoder::Parsed TerminalKeyDecoder::parse(std::string_view bytes) {
    if (bytes.front() == kEscape) {
        return parseEscape(bytes);
    }
    if (bytes.front() == '\0') {
        return {.length = 1};
    }
    if (isControl(bytes.front())) {
        return {.length = 1, .key = controlKey(bytes.front())};
    }
    return parseText(bytes);
}

/// Everything up to the next key that types nothing: faster than character by character.
TerminalKeyDecoder::Parsed TerminalKeyDecoder::parseText(std::string_view bytes) {
    const std::size_t size = countBefore(bytes, isControl);
    auto typed = bytes.substr(0, size);
    if (size == bytes.size()) {
        typed = completed(typed);
    }
    if (typed.empty()) {
        return {};
    }
    return {.length = typed.size(), .key = TerminalKey{.text = text::wellFormed(typed)}};
}

TerminalKeyDecoder::Parsed TerminalKeyDecoder::parseEscape(std::string_view bytes) {
    if (bytes.size() < 2) {
        return {};
    }
    if (bytes[1] == '[') {
        return parseSequence(bytes);
    }
    if (bytes[1] != 'O') {
        return parseWithAlt(bytes);
    }
    if (bytes.size() < 3) {
        return {};
    }
    return {.length = 3, .key = keyOfSequence("", bytes[2])};
}

/// Alt is told by an escape character in front of the key.
TerminalKeyDecoder::Parsed TerminalKeyDecoder::parseWithAlt(std::string_view bytes) {
    const auto rest = bytes.substr(1);
    const bool isText = rest.front() != kEscape && !isControl(rest.front());
    Parsed parsed = parse(isText ? rest.substr(0, encodedSize(rest.front())) : rest);
    if (parsed.length == 0) {
        return {};
    }
    ++parsed.length;
    if (parsed.key && parsed.key->with == With::nothing) {
        parsed.key->with = With::alt;
    }
    return parsed;
}

TerminalKeyDecoder::Parsed TerminalKeyDecoder::parseSequence(std::string_view bytes) {
    constexpr std::size_t kIntroduction = 2;
    const auto body = bytes.substr(kIntroduction);
    if (body.starts_with('[')) { // the console's function keys
        return {.length = body.size() < 2 ? 0 : kIntroduction + 2};
    }
    const std::size_t size = countBefore(body, [](char byte) { return byte >= '@'; });
    if (size == body.size()) {
        return {.length = bytes.size() > kLongestSequence ? bytes.size() : 0};
    }
    return {.length = kIntroduction + size + 1,
            .key = keyOfSequence(body.substr(0, size), body[size])};
}

} // namespace pello
