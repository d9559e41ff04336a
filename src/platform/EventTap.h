#pragma once

#include "platform/InputEvent.h"
#include "platform/TapRequest.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace pello {

/// Listens to the whole session's keyboard and mouse buttons ahead of applications.
///
/// A tap reports a consistent stream: a key that it told of as down is told of as up in the end,
/// late if the release went unseen (the keyboard was unplugged, the screen locked). Modifiers that
/// are already down when it is installed only show in the flags. Main thread only.
class EventTap {
public:
    /// Is given each event as it happens and may change its flags. Answers whether to swallow it,
    /// so that applications never see it. May call every operation of the tap, `remove` included.
    using Handler = std::function<bool(InputEvent& event)>;

    virtual ~EventTap() = default;

    /// Begins to listen, switched on. False when the system does not let it. Only while it is not
    /// installed.
    [[nodiscard]] virtual bool install(const TapRequest& request, Handler handler) = 0;

    /// Ends listening and gives up everything that was taken. Nothing happens when not installed.
    virtual void remove() = 0;

    /// Switches an installed tap on again that the system switched off.
    virtual void enable() = 0;

    /// Whether the installed tap is on, as the system says.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Claims again what other programs may have taken since, and reads afresh which keys are
    /// down. Called while installed, on wake and every half minute.
    virtual void refresh() = 0;

    /// Why `install` can never work on this desktop, as a sentence for the user; nothing where it
    /// can, permissions granted.
    [[nodiscard]] virtual std::optional<std::string> obstacle() const = 0;

    /// Switches the Caps Lock lock off.
    virtual void resetCapsLock() = 0;

    /// The flags of the four modifiers that are down right now, by whatever device; asked from the
    /// system, not remembered from events.
    [[nodiscard]] virtual std::uint64_t heldModifiers() const = 0;

    /// From here to `releaseKeyboard` every key is swallowed. Called from the handler while it is
    /// given the event that begins this. A tap that asks for each event anyway does nothing.
    virtual void holdKeyboard() = 0;
    virtual void releaseKeyboard() = 0;

    /// Whether a password field keeps keystrokes from taps at the moment.
    [[nodiscard]] virtual bool isSecureInputEngaged() const = 0;
};

} // namespace pello
