#include "app/client/PickCommand.h"

#include "app/client/ControlClient.h"
#include "app/client/ExitStatus.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <optional>
#include <unistd.h>

namespace pello {
namespace {

constexpr std::size_t kMaximumPrompt = 200;

int complain(std::string_view sentence, int status) {
    std::fprintf(stderr, "pello: %.*s\n", static_cast<int>(sentence.size()), sentence.data());
    return status;
}

/// What standard input holds up to its end, or a little more than can be sent. Nothing when it
/// cannot be read.
std::optional<std::string> standardInput() {
    std::string text;
    std::array<char, 65536> buffer = {};
    while (text.size() <= kMaximumText) {
        const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

std::string_view lineAt(std::string_view text, std::size_t place) {
    for (; place > 0 && !text.empty(); --place) {
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    return text.substr(0, text.find('\n'));
}

int print(std::string_view line) {
    const bool isWritten = std::fwrite(line.data(), 1, line.size(), stdout) == line.size() &&
                           std::fputc('\n', stdout) != EOF && std::fflush(stdout) == 0;
    return isWritten ? ExitStatus::kSuccess
                     : complain("the line could not be written", ExitStatus::kNothing);
}

} // namespace

int run(const PickCommand& command) {
    const auto text = standardInput();
    if (!text) {
        return complain("standard input cannot be read", ExitStatus::kNothing);
    }
    if (text->empty()) {
        return complain("there is nothing to pick from", ExitStatus::kNothing);
    }
    if (text->size() > kMaximumText) {
        return complain("there is more to pick from than fits, 64 MiB", ExitStatus::kNothing);
    }
    std::string verb = std::string(kPickVerb) + command.prompt.substr(0, kMaximumPrompt);
    std::replace(verb.begin(), verb.end(), '\n', ' ');
    const auto answer = askWithText(controlSocketPath(), verb, *text);
    if (!answer) {
        return complain("no launcher is running", ExitStatus::kNotRunning);
    }
    std::string_view rest = *answer;
    if (rest == kNoneChosen) {
        return ExitStatus::kNothing;
    }
    std::size_t place = 0;
    if (rest.substr(0, kChosen.size()) == kChosen) {
        rest.remove_prefix(kChosen.size());
        if (std::from_chars(rest.data(), rest.data() + rest.size(), place).ec == std::errc{}) {
            return print(lineAt(*text, place));
        }
    }
    return complain(answer->empty() ? "the launcher has gone" : *answer, ExitStatus::kNothing);
}

} // namespace pello
