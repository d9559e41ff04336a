#pragma once

#include "keyboard/hotkeys/HotkeyManager.h"
#include "platform/linux/X11EventTap.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/memory/MemoryKeyPermissions.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryOwnProgram.h"
#include "platform/memory/MemorySessionEvents.h"
#include "platform/memory/MemoryShell.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/qt/QtMainLoop.h"
#include "support/PrivateDisplay.h"

#include <string>
#include <string_view>
#include <vector>

namespace pello::testing {

/// A tap that notes what it is asked about and what is answered.
class NotingTap final : public EventTap {
public:
    struct Told {
        InputEvent event;
        bool isTaken = false;
    };

    explicit NotingTap(EventTap& tap) : tap_(tap) {}

    [[nodiscard]] bool install(const TapRequest& request, Handler handler) override {
        return tap_.install(request, [this, handler = std::move(handler)](InputEvent& event) {
            const InputEvent before = event;
            const bool isTaken = handler(event);
            told.push_back({before, isTaken});
            return isTaken;
        });
    }
    void remove() override { tap_.remove(); }
    void enable() override { tap_.enable(); }
    [[nodiscard]] bool isEnabled() const override { return tap_.isEnabled(); }
    void refresh() override { tap_.refresh(); }
    [[nodiscard]] std::optional<std::string> obstacle() const override { return tap_.obstacle(); }
    void resetCapsLock() override { tap_.resetCapsLock(); }
    [[nodiscard]] std::uint64_t heldModifiers() const override { return tap_.heldModifiers(); }
    void holdKeyboard() override { tap_.holdKeyboard(); }
    void releaseKeyboard() override { tap_.releaseKeyboard(); }
    [[nodiscard]] bool isSecureInputEngaged() const override { return tap_.isSecureInputEngaged(); }

    std::vector<Told> told;

private:
    EventTap& tap_;
};

/// The keyboard of a real display with a listener on it. Real events, but virtual time between
/// them.
///
/// A trace is what the user does, in words: `d:` presses a key, `u:` releases it, `p:` does both,
/// `t:200` lets milliseconds pass, `b:4` clicks a button. The words `D:` and `U:` do not wait until
/// the listener was told. Keys are named as in the traces of Keyboard, or by the
/// server's codes: `#70`.
class DesktopKeyboard {
public:
    explicit DesktopKeyboard(PrivateDisplay& display);

    /// What the listener called meanwhile: activate glyphs advance+1 commit and so on.
    std::string play(std::string_view trace);

    /// Waits until the listener has been told of `count` events more than before.
    void waitUntilTold(std::size_t count);

    QtMainLoop qtLoop;
    X11EventTap x11Tap{qtLoop};
    NotingTap tap{x11Tap};
    MemoryMainLoop loop;
    MemoryKeyPermissions permissions;
    X11KeyboardLayout layout;
    MemorySessionEvents session;
    MemoryShell shell{loop};
    MemoryOwnProgram program{loop};
    MemoryUserDefaults defaults;
    MemoryLog log;
    HotkeyManager manager{{.loop = loop,
                           .tap = tap,
                           .permissions = permissions,
                           .layout = layout,
                           .session = session,
                           .shell = shell,
                           .program = program,
                           .defaults = defaults,
                           .log = log}};

private:
    void step(std::string_view word);
    void say(std::string_view word);

    PrivateDisplay& display_;
    std::string said_;
};

} // namespace pello::testing
