#include "app/client/ClientArguments.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace pello {
namespace {

using Arguments = std::span<const char* const>;

bool contains(std::span<const std::string_view> words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Whether the parser might take one for an option, or for a list of several.
bool hasSpecial(Arguments words) {
    return std::any_of(words.begin(), words.end(), [](const char* word) { return *word == '-'; });
}

std::string joined(Arguments words) {
    std::string text;
    for (const char* word : words) {
        text += (text.empty() ? "" : " ") + std::string(word);
    }
    return text;
}

} // namespace

std::optional<QuickCommand> quickCommand(Arguments arguments) {
    if (arguments.empty()) {
        return std::nullopt;
    }
    const std::string_view verb = arguments.front();
    const Arguments rest = arguments.subspan(1);
    if (rest.empty() && (verb == "version" || verb == "--version")) {
        return VersionCommand{};
    }
    if (verb == "pick" && rest.empty()) {
        return PickCommand{};
    }
    if (verb == "pick" && rest.size() == 2 && std::string_view(rest[0]) == "--prompt" &&
        !hasSpecial(rest.subspan(1))) {
        return PickCommand{.prompt = rest[1]};
    }
    const bool isPlain = rest.empty() && contains(kPlainVerbs, verb);
    const bool isShow = verb == "show" && !hasSpecial(rest);
    const bool isPage = verb == "settings" && rest.size() <= 1 &&
                        (rest.empty() || contains(kSettingsPages, rest.front()));
    if (isPlain || isShow || isPage) {
        return ClientCommand{.verb = std::string(verb), .text = joined(rest)};
    }
    return std::nullopt;
}

} // namespace pello
