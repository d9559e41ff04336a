#include "scripts/ScriptHeaderDoubts.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace pello {
namespace {

using Words = std::span<const std::string_view>;

constexpr auto kKeys = std::to_array<std::string_view>(
    {"name", "keyword", "icon", "description", "argument", "confirm"});
constexpr auto kModes = std::to_array<std::string_view>({"none", "optional", "required"});
constexpr auto kAnswers = std::to_array<std::string_view>({"true", "yes", "1", "false", "no", "0"});

bool isAmong(std::string_view word, Words words) {
    return std::ranges::find(words, word) != words.end();
}

std::optional<std::string> doubtAbout(const std::string& key, const std::string& value) {
    const std::string word = text::lowercased(value);
    if (!isAmong(key, kKeys)) {
        return "its line “pello." + key + "” is not known, and is ignored";
    }
    if (key == "keyword" && value.find(' ') != std::string::npos) {
        return "its keyword contains a space, and is ignored";
    }
    if (key == "argument" && !isAmong(word, kModes)) {
        return "its argument “" + value + "” is neither none, optional nor required";
    }
    if (key == "confirm" && !isAmong(word, kAnswers)) {
        return "its confirm “" + value + "” is neither true nor false";
    }
    return std::nullopt;
}

} // namespace

std::vector<std::string> scriptHeaderDoubts(const ScriptHeaderValues& values) {
    std::vector<std::string> doubts;
    for (const auto& [key, value] : values.all()) {
        if (auto doubt = doubtAbout(key, value)) {
            doubts.push_back(std::move(*doubt));
        }
    }
    return doubts;
}

} // namespace pello
