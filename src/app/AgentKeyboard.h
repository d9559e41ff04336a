#pragma once

#include "app/KeyboardReport.h"
#include "app/Platform.h"
#include "core/controller/KeyboardControl.h"
#include "core/controller/PelloController.h"
#include "keyboard/hotkeys/HotkeyManager.h"
#include "platform/linux/DesktopSessionEvents.h"
#include "platform/linux/LinuxShell.h"
#include "platform/linux/ThisProgram.h"
#include "platform/linux/UnrestrictedKeys.h"
#include "platform/linux/X11EventTap.h"
#include "platform/linux/X11KeyboardClaim.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "platform/linux/X11UserKeyMapping.h"

#include <filesystem>
#include <functional>
#include <utility>

namespace pello {

/// The keyboard of the running launcher, from the display to the controller.
class AgentKeyboard {
public:
    /// `folder` keeps, as long as Caps Lock is changed, what it did before. `quit` ends the
    /// program. Everything must outlive this object.
    AgentKeyboard(PelloController& controller, const Platform& platform,
                  const std::filesystem::path& folder, const std::function<void()>& quit);

    /// Undoes what a launcher before left behind, then listens. Only once no other one runs.
    void start();

    /// Whether a launcher before wanted this one to ask for its permissions again.
    [[nodiscard]] bool isRegrantExpected() const { return isRegrantExpected_; }

    /// Starts the program anew, and ends this one.
    void relaunch() { manager_.relaunch(); }

    /// Asked when the activation gesture was made: true takes it, and no panel opens.
    void setActivationTaker(std::function<bool()> takes) {
        control_.takesActivation = std::move(takes);
    }

    /// The X server's number of the window that gets what is typed after its key.
    std::function<std::uint32_t()> panelWindow;

    /// Emitted after something of the listener changed.
    [[nodiscard]] Signal<>& changed() { return manager_.changed; }

    /// Gives the keyboard back.
    void finish(KeyboardControl::Successor successor) { control_.finish(successor); }

    [[nodiscard]] const HotkeyManager& hotkey() const { return manager_; }
    [[nodiscard]] KeyboardReport report();

    [[nodiscard]] const KeyboardLayout& layout() const { return layout_; }

    /// Takes no keys from other programs, this one included, for as long as the result is kept.
    [[nodiscard]] Subscription suspend();

    /// Why a combo that is listened for does not arrive, as a sentence; nothing when it does.
    [[nodiscard]] std::optional<std::string> problemOf(const KeyCombo& combo) const;

    /// Tells `done`, at the latest in a later turn, whether Caps Lock is remapped at the moment.
    void checkHyperMapping(std::function<void(bool isActive)> done);

private:
    [[nodiscard]] std::string activationName() const;
    [[nodiscard]] std::vector<KeyboardReport::Grab> grabs() const;

    PelloController& controller_;
    UserDefaults& defaults_;
    X11EventTap tap_;
    X11KeyboardLayout layout_;
    X11UserKeyMapping mapping_;
    LinuxShell shell_;
    ThisProgram program_;
    UnrestrictedKeys permissions_;
    DesktopSessionEvents session_;
    HotkeyManager manager_;
    KeyboardControl control_;
    X11KeyboardClaim claim_;
    bool isRegrantExpected_ = false;
};

} // namespace pello
