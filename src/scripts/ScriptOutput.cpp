#include "scripts/ScriptOutput.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <ranges>
#include <vector>

namespace pello {
namespace {

constexpr std::size_t kMostLines = 4;
constexpr std::size_t kMostCharacters = 300;
/// Longer than so many characters usually are, the longest emoji among them. What is in front of it
/// is not looked at: outputs are up to a megabyte, and the user's next key waits.
constexpr std::size_t kMostBytes = std::size_t{16} << 10U;
constexpr std::string_view kEllipsis = "…";

/// How many bytes the line break at the end of `output` has; 0 when there is none. No other
/// character ends with these bytes.
std::size_t breakAtEnd(std::string_view output) {
    switch (output.empty() ? '\0' : output.back()) {
    case '\n':
    case '\v':
    case '\f':
    case '\r':
        return 1;
    case '\x85':
        return output.ends_with("\xC2\x85") ? 2 : 0;
    case '\xA8':
    case '\xA9':
        return output.substr(0, output.size() - 1).ends_with("\xE2\x80") ? 3 : 0;
    default:
        return 0;
    }
}

/// Takes the last line off `output`, which does not end with a line break, and gives its length, or
/// that of its end.
std::string_view takeLine(std::string_view& output, std::size_t mostBytes) {
    const std::string_view whole = output;
    while (!output.empty() && breakAtEnd(output) == 0 &&
           whole.size() - output.size() <= mostBytes + 3) {
        output.remove_suffix(1);
    }
    return whole.substr(output.size());
}

/// The last lines of `output`, as a piece of it: from the first one's beginning, or some place in
/// it when they are long.
std::string lastLines(std::string_view output) {
    std::vector<std::string_view> lines;
    std::size_t bytes = 0;
    while (lines.size() < kMostLines && bytes <= kMostBytes) {
        while (const std::size_t length = breakAtEnd(output)) {
            output.remove_suffix(length);
        }
        if (output.empty()) {
            break;
        }
        lines.push_back(takeLine(output, kMostBytes - bytes));
        bytes += lines.back().size();
    }
    std::string joined;
    for (const std::string_view line : std::views::reverse(lines)) {
        if (!joined.empty()) {
            joined += '\n';
        }
        joined += text::wellFormed(line);
    }
    return joined;
}

} // namespace

std::string ScriptOutput::excerpt(std::string_view output) {
    std::string gist = lastLines(output);
    std::size_t start = gist.size() - std::min(gist.size(), kMostBytes);
    while (start > 0 && (static_cast<unsigned char>(gist[start]) & 0xC0U) == 0x80U) {
        ++start; // inside of a character's bytes
    }
    const auto characters = text::characterViews(std::string_view(gist).substr(start));
    if (characters.size() > kMostCharacters) {
        const std::string_view first = characters[characters.size() - kMostCharacters];
        start = static_cast<std::size_t>(first.data() - gist.data());
    }
    if (start > 0) {
        gist.replace(0, start, kEllipsis);
    }
    return gist;
}

std::string ScriptOutput::message() const {
    const std::string gist = excerpt(standard);
    return gist.empty() ? excerpt(error) : gist;
}

std::string ScriptOutput::failureDetail(std::int32_t status) const {
    std::string gist = excerpt(error);
    if (gist.empty()) {
        gist = excerpt(standard);
    }
    return gist.empty() ? "Exited with status " + std::to_string(status) + "." : gist;
}

} // namespace pello
