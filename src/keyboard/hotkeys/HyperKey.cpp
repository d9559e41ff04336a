#include "keyboard/hotkeys/HyperKey.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

namespace pello::HyperKey {
namespace {

constexpr const char* kTool = "/usr/bin/hidutil";
constexpr std::string_view kSourceKey = "HIDKeyboardModifierMappingSrc";
constexpr std::string_view kDestinationKey = "HIDKeyboardModifierMappingDst";

const std::vector<std::string>& readArguments() {
    static const std::vector<std::string> kArguments{"property", "--get", "UserKeyMapping"};
    return kArguments;
}

std::vector<std::string> writeArguments(const std::vector<Mapping>& mappings) {
    return {"property", "--set", payload(mappings)};
}

std::vector<Mapping> mappingsIn(const Shell::Result& result) {
    return deduplicated(parse(result.output));
}

bool holdsCapsLockToF18(const std::vector<Mapping>& mappings) {
    return std::ranges::find(mappings, kCapsLockToF18) != mappings.end();
}

std::vector<Mapping> withoutCapsLock(std::vector<Mapping> mappings) {
    std::erase_if(mappings,
                  [](const Mapping& mapping) { return mapping.source == kCapsLockToF18.source; });
    return mappings;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kTrimmed = " \t;\"";
    const std::size_t first = text.find_first_not_of(kTrimmed);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kTrimmed) - first + 1);
}

/// The number that `line` gives to `key`, decimal or hexadecimal; nothing when it gives none.
std::optional<std::int64_t> numberIn(std::string_view line, std::string_view key) {
    const std::size_t keyAt = line.find(key);
    const std::size_t equalsAt =
        keyAt == std::string_view::npos ? keyAt : line.find('=', keyAt + key.size());
    if (equalsAt == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view digits = trimmed(line.substr(equalsAt + 1));
    const bool isHexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    digits.remove_prefix(isHexadecimal ? 2 : 0);
    std::int64_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                               isHexadecimal ? 16 : 10);
    if (error != std::errc{} || stop != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace

void currentMappings(Shell& shell, std::function<void(std::vector<Mapping> mappings)> done) {
    shell.run(kTool, readArguments(),
              [done = std::move(done)](const Shell::Result& result) { done(mappingsIn(result)); });
}

void apply(Shell& shell, const std::vector<Mapping>& mappings, std::function<void()> done) {
    shell.run(kTool, writeArguments(mappings),
              [done = std::move(done)](const Shell::Result& /*unused*/) { done(); });
}

void enable(Shell& shell, std::function<void(bool didInstall)> done) {
    currentMappings(shell, [&shell, done = std::move(done)](std::vector<Mapping> mappings) {
        if (holdsCapsLockToF18(mappings)) {
            done(false);
            return;
        }
        mappings = withoutCapsLock(std::move(mappings));
        mappings.push_back(kCapsLockToF18);
        apply(shell, mappings, [done] { done(true); });
    });
}

void remove(Shell& shell, std::function<void()> done) {
    currentMappings(shell, [&shell, done = std::move(done)](std::vector<Mapping> mappings) {
        apply(shell, withoutCapsLock(std::move(mappings)), done);
    });
}

void removeSynchronously(Shell& shell) {
    auto mappings = mappingsIn(shell.runSynchronously(kTool, readArguments()));
    shell.runSynchronously(kTool, writeArguments(withoutCapsLock(std::move(mappings))));
}

void isActive(Shell& shell, std::function<void(bool isActive)> done) {
    currentMappings(shell, [done = std::move(done)](const std::vector<Mapping>& mappings) {
        done(holdsCapsLockToF18(mappings));
    });
}

std::vector<Mapping> parse(std::string_view text) {
    std::vector<Mapping> mappings;
    std::optional<std::int64_t> source;
    std::optional<std::int64_t> destination;
    for (const std::string_view line : text::lines(text)) {
        if (const auto number = numberIn(line, kSourceKey)) {
            source = number;
        }
        if (const auto number = numberIn(line, kDestinationKey)) {
            destination = number;
        }
        if (source && destination) {
            mappings.push_back({.source = *source, .destination = *destination});
            source.reset();
            destination.reset();
        }
    }
    return mappings;
}

std::vector<Mapping> deduplicated(const std::vector<Mapping>& mappings) {
    std::vector<Mapping> first;
    for (const Mapping& mapping : mappings) {
        if (std::ranges::find(first, mapping.source, &Mapping::source) == first.end()) {
            first.push_back(mapping);
        }
    }
    return first;
}

std::string payload(const std::vector<Mapping>& mappings) {
    std::string entries;
    for (const Mapping& mapping : mappings) {
        entries += entries.empty() ? "" : ",";
        entries += R"({"HIDKeyboardModifierMappingSrc":)" + std::to_string(mapping.source) +
                   R"(,"HIDKeyboardModifierMappingDst":)" + std::to_string(mapping.destination) +
                   "}";
    }
    return R"({"UserKeyMapping":[)" + entries + "]}";
}

} // namespace pello::HyperKey
