#pragma once

#include "keyboard/hotkeys/CommandTabSession.h"
#include "keyboard/hotkeys/HotkeyConfiguration.h"
#include "keyboard/hotkeys/HyperHold.h"
#include "keyboard/hotkeys/ModifierTap.h"
#include "platform/EventTap.h"
#include "platform/MainLoop.h"

#include <functional>

namespace pello {

/// Recognises what the user means in the stream of key presses, modifier changes and clicks, and
/// says which of them applications do not get to see.
///
/// Sees every keystroke of the session: apart from a Command-Tab session nothing here allocates.
class KeyGestures {
public:
    struct Callbacks {
        std::function<void()> activate;
        std::function<void()> openGlyphPicker;
        CommandTabSession::Send commandTab;
    };
    struct Ports {
        MainLoop& loop;
        EventTap& tap;
        const KeyboardLayout& layout;
    };

    /// What is borrowed must outlive this object; `configuration` may change between events.
    KeyGestures(const Ports& ports, const HotkeyConfiguration& configuration, const PelloLog& log,
                Callbacks callbacks);

    /// Follows one event and may change its flags. True when it is to be swallowed.
    [[nodiscard]] bool handle(InputEvent& event);

    /// Forgets a modifier that was pressed: its release is no tap.
    void forgetTap() { tap_.spoil(); }

    /// No more events come: cancels a Command-Tab session, and takes the Hyper key for released.
    void stop();

private:
    bool keyDown(InputEvent& event);
    bool keyUp(InputEvent& event);
    bool flagsChanged(const InputEvent& event);

    [[nodiscard]] bool isHyperKey(const InputEvent& event) const;
    [[nodiscard]] bool isGlyphCombo(const InputEvent& event) const;
    [[nodiscard]] bool isActivationCombo(const InputEvent& event) const;
    [[nodiscard]] bool isCommandTab(const InputEvent& event) const;

    MainLoop& loop_;
    EventTap& eventTap_;
    const HotkeyConfiguration& configuration_;
    Callbacks callbacks_;
    ModifierTap tap_;
    HyperHold hyper_;
    CommandTabSession session_;
};

} // namespace pello
