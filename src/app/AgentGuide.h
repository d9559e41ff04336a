#pragma once

#include "app/AgentKeyboard.h"
#include "app/AgentSettings.h"
#include "app/Launcher.h"
#include "app/Platform.h"
#include "ui/guide/GuideWindow.h"

#include <memory>
#include <vector>

namespace pello {

/// The guide that sets the running launcher up: opens by itself at the very first launch, and
/// whenever the keyboard needs the user; made when it is wanted, gone when it is closed.
class AgentGuide {
public:
    /// Everything must outlive this object. The guide gives way to `panel` when that is shown.
    AgentGuide(Launcher& launcher, Platform platform, AgentKeyboard& keyboard,
               AgentSettings& settings, QWidget& panel);

    /// Opens the guide if this launch calls for it. Once the keyboard is listened to.
    void openIfNeeded();

    void present(GuideStep step = GuideStep::welcome);

private:
    [[nodiscard]] GuideServices services();
    [[nodiscard]] bool wasSeen() const;
    void check(const std::function<void(std::vector<GuideCheck>)>& done);
    void finished();

    Launcher& launcher_;
    Platform platform_;
    AgentKeyboard& keyboard_;
    AgentSettings& settings_;
    QWidget& panel_;
    std::unique_ptr<GuideWindow> window_;
};

} // namespace pello
