#pragma once

#include <string_view>

namespace pello {

/// What becomes of an element in release notes.
struct NotesTag {
    enum class Fate {
        /// Its tags go, its text stays.
        unwrapped,
        /// Written as `name`, and closed.
        kept,
        /// Written as `name`, and has no end.
        single,
        /// Goes with all that is in it.
        dropped
    };
    Fate fate = Fate::unwrapped;
    std::string_view name;
};

/// What becomes of the element `name`, which is in lower case.
[[nodiscard]] NotesTag notesTag(std::string_view name);

} // namespace pello
