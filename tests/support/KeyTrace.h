#pragma once

#include "keyboard/hotkeys/HotkeyManager.h"
#include "platform/memory/MemoryEventTap.h"
#include "platform/memory/MemoryKeyPermissions.h"
#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryOwnProgram.h"
#include "platform/memory/MemorySessionEvents.h"
#include "platform/memory/MemoryShell.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pello::testing {

/// A keyboard with a listener on it, and the applications behind, on virtual time.
///
/// A trace is what happens, in words: `d:` presses a key, `r:` lets it repeat, `u:` releases it,
/// `p:` does both; `t:200` lets milliseconds pass; `click`; `timeout` and `userinput` switch the
/// tap off; `lost:` changes a modifier without an event. Keys are named by what they type on a US
/// keyboard, or lcmd rcmd lopt ropt lctl rctl lsh rsh caps hyper tab esc space left right f5 pad1.
///
/// `play` answers in the same words what applications saw of it (`d:⌃⌥⇧⌘a`; of modifiers only Caps
/// Lock), and between these what the listener called: activate glyphs advance+1 choose3 quit
/// windows commit cancel.
class Keyboard {
public:
    Keyboard();
    explicit Keyboard(const HotkeyConfiguration& configuration);

    std::string play(std::string_view trace);

    /// What listeners on this keyboard work with.
    HotkeyManager::Ports ports() {
        return {loop, tap, permissions, layout, session, shell, program, defaults, log};
    }

    /// The log lines since the last call.
    std::vector<std::string> newLog();

    MemoryMainLoop loop;
    MemoryEventTap tap;
    MemoryKeyPermissions permissions;
    MemoryKeyboardLayout layout;
    MemorySessionEvents session;
    MemoryShell shell{loop};
    MemoryOwnProgram program{loop};
    MemoryUserDefaults defaults;
    MemoryLog log;
    HotkeyManager manager{ports()};

private:
    void step(std::string_view word);
    void key(InputEvent::Kind kind, std::string_view name, bool isRepeat);
    void modifier(std::uint16_t keyCode, InputEvent::Kind kind);
    void capsLock(InputEvent::Kind kind);
    void happen(InputEvent event, std::string_view shown);
    void say(std::string_view word);

    std::uint64_t flags_ = 0;
    std::string said_;
    std::size_t logRead_ = 0;
};

/// What a listener with `configuration` makes of `trace`.
std::string play(const HotkeyConfiguration& configuration, std::string_view trace);

/// The word that a trace has for `event`.
std::string nameOf(const CommandTabEvent& event);

/// The virtual code of the key named so in traces.
std::uint16_t keyCodeOf(std::string_view name);

} // namespace pello::testing
