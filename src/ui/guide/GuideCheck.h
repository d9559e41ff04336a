#pragma once

#include <functional>
#include <string>

namespace pello {

/// One thing that the launcher needs of its desktop, or can use. A plain value.
struct GuideCheck {
    enum class State {
        works,
        /// Not there, and nothing that is switched on needs it.
        absent,
        /// Something that is switched on does not work for want of it.
        wrong
    };

    State state = State::works;
    std::string title;
    /// What it is for.
    std::string purpose;
    /// What it is like, or what to do.
    std::string finding;
    /// Where the user can do that, and what the button says; none without.
    std::function<void()> open;
    std::string openTitle;
};

} // namespace pello
