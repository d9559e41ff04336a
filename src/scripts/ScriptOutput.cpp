#include "scripts/ScriptOutput.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace pello {
namespace {

constexpr std::size_t kMostLines = 4;
constexpr std::size_t kMostCharacters = 300;
constexpr std::string_view kEllipsis = "…";

std::string lastLines(std::string_view output) {
    const std::vector<std::string_view> lines = text::lines(output);
    std::string joined;
    for (auto i = lines.size() - std::min(lines.size(), kMostLines); i < lines.size(); ++i) {
        if (!joined.empty()) {
            joined += '\n';
        }
        joined += text::wellFormed(lines[i]);
    }
    return joined;
}

std::string firstThatSays(std::string_view preferred, std::string_view other) {
    const std::string gist = ScriptOutput::excerpt(preferred);
    return gist.empty() ? ScriptOutput::excerpt(other) : gist;
}

} // namespace

std::string ScriptOutput::excerpt(std::string_view output) {
    std::string gist = lastLines(output);
    const auto characters = text::characterViews(gist);
    if (characters.size() > kMostCharacters) {
        const std::string_view first = characters[characters.size() - kMostCharacters];
        gist.erase(0, static_cast<std::size_t>(first.data() - gist.data()));
        gist.insert(0, kEllipsis);
    }
    return gist;
}

std::string ScriptOutput::message() const {
    return firstThatSays(standard, error);
}

std::string ScriptOutput::failureDetail(std::int32_t status) const {
    const std::string gist = firstThatSays(error, standard);
    return gist.empty() ? "Exited with status " + std::to_string(status) + "." : gist;
}

} // namespace pello
