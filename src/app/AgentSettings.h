#pragma once

#include "app/AgentKeyboard.h"
#include "app/Launcher.h"
#include "app/Platform.h"
#include "base/Signal.h"
#include "platform/memory/MemoryPreferenceDomains.h"
#include "ui/settings/SettingsWindow.h"

#include <functional>
#include <memory>

namespace pello {

/// The settings window of the running launcher, made when it is first wanted.
class AgentSettings {
public:
    /// Everything must outlive this object.
    AgentSettings(Launcher& launcher, Platform platform, AgentKeyboard& keyboard);

    void present(std::optional<SettingsTab> tab = std::nullopt);

    /// What controls of settings work with, in whichever window they stand.
    [[nodiscard]] SettingsServices services();

    /// Opens the guide that sets the program up.
    std::function<void()> onGuide;

private:
    [[nodiscard]] std::optional<std::size_t> found(SettingsSource source) const;

    Launcher& launcher_;
    Platform platform_;
    AgentKeyboard& keyboard_;
    MemoryPreferenceDomains preferences_; // X desktops have none of the shortcuts that it tells
    Signal<> foundChanged_;
    Subscription onChange_;
    std::unique_ptr<SettingsWindow> window_;
};

} // namespace pello
