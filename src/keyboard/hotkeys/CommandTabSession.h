#pragma once

#include "keyboard/hotkeys/CommandTabEvent.h"
#include "platform/EventTap.h"
#include "platform/KeyboardLayout.h"
#include "platform/PelloLog.h"
#include "platform/RepeatingTimer.h"

#include <functional>

namespace pello {

/// Command-Tab, from the first Tab to the release of Command: every key is a step of it.
///
/// The release is seen as an event, and looked for twenty times a second besides, so that a missed
/// one never leaves the keyboard taken.
class CommandTabSession {
public:
    using Send = std::function<void(CommandTabEvent event)>;

    /// What is borrowed must outlive the session.
    CommandTabSession(MainLoop& loop, EventTap& tap, const KeyboardLayout& layout,
                      const PelloLog& log, Send send);

    [[nodiscard]] bool isActive() const { return isActive_; }

    /// Begins, unless it has.
    void begin();

    /// Ends with `event`, unless it has.
    void end(CommandTabEvent::Kind event);

    /// What a key press means to the session.
    void handleKey(const InputEvent& press);

    /// One step by Tab: back with Shift, else forward.
    void step(const InputEvent& press) const;

private:
    void handleCharacter(const InputEvent& press);

    EventTap& tap_;
    const KeyboardLayout& layout_;
    const PelloLog& log_;
    Send send_;
    bool isActive_ = false;
    RepeatingTimer commandReleasePoll_;
};

} // namespace pello
