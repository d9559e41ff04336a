#pragma once

namespace pello {

/// One step of a Command-Tab session, as its keys make it. A plain value.
struct CommandTabEvent {
    enum class Kind {
        /// Moves the selection by `number`: 1 forward, -1 back.
        advance,
        /// Picks the application number `number`, 1 to 9. The session goes on.
        choose,
        /// Quits the selected application. The session goes on.
        quit,
        /// Ends the session in a search of the selected application's windows.
        searchWindows,
        /// Ends the session with the selected application.
        commit,
        /// Ends the session with nothing.
        cancel
    };

    Kind kind = Kind::cancel;
    int number = 0;

    [[nodiscard]] static constexpr CommandTabEvent advance(int step) {
        return {.kind = Kind::advance, .number = step};
    }
    [[nodiscard]] static constexpr CommandTabEvent choose(int application) {
        return {.kind = Kind::choose, .number = application};
    }

    friend bool operator==(const CommandTabEvent&, const CommandTabEvent&) = default;
};

} // namespace pello
