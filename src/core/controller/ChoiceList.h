#pragma once

#include "core/items/SearchResult.h"
#include "platform/MainLoop.h"
#include "search/PreparedList.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Lines among which the user chooses one, instead of searching: matched like everything else, but
/// nothing is learned about them. Main thread only, except for `prepared`.
class ChoiceList {
public:
    using Lines = std::shared_ptr<const PreparedList>;

    /// As many rows as are offered at a time.
    static constexpr std::ptrdiff_t kMaximumRows = 500;
    /// What of a long line is shown and matched, in bytes.
    static constexpr std::size_t kMaximumShownBytes = 400;

    /// What somebody wants to know.
    struct Question {
        /// What is to be chosen, in a word or two.
        std::string prompt;
        Lines lines;
        /// Called once: with the place of the chosen line, or with nothing when none was chosen.
        std::function<void(std::optional<std::size_t> line)> answered;
    };

    /// `clock` must outlive the list.
    explicit ChoiceList(const MainLoop& clock) : clock_(clock) {}

    /// The lines of `text` as rows; an end of line at its end begins no further one. Any thread.
    [[nodiscard]] static Lines prepared(std::string_view text);

    /// Asks from now on. What was asked before is given up.
    void ask(Question question);

    [[nodiscard]] bool isAsked() const { return question_.has_value(); }

    /// What is to be chosen; nothing when nothing is asked.
    [[nodiscard]] std::optional<std::string> prompt() const;

    /// The rows for what was typed, best first; in their own order when that is blank.
    [[nodiscard]] std::vector<SearchResult> rows(std::string_view typed) const;

    /// Asks no more. Calling the result answers: with `chosen`, one of the rows, or for null with
    /// nothing.
    [[nodiscard]] std::function<void()> end(const LaunchItem* chosen);

    /// Answers with nothing, if something is asked.
    void cancel() { end(nullptr)(); }

private:
    const MainLoop& clock_;
    std::optional<Question> question_;
};

} // namespace pello
