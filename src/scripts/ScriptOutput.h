#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pello {

/// What a script has printed, as far as it was kept.
struct ScriptOutput {
    std::string standard;
    std::string error;

    /// The gist of what a script printed that did its work: of its standard output, or of its error
    /// output where that says nothing. Empty when both say nothing.
    [[nodiscard]] std::string message() const;

    /// What to show of a script that ended with `status`: the gist of its error output, or of its
    /// standard output where that says nothing, or a sentence that tells the status.
    [[nodiscard]] std::string failureDetail(std::int32_t status) const;

    /// The gist of `output`: its last lines, empty ones left out, and of those the end where they
    /// are long. Well-formed, without a line break at its end; empty when there are no such lines.
    /// Takes some milliseconds at most, whatever is printed.
    [[nodiscard]] static std::string excerpt(std::string_view output);
};

} // namespace pello
