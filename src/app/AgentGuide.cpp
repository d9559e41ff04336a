#include "app/AgentGuide.h"

#include "app/GuideChecks.h"

#include <string_view>
#include <utility>

namespace pello {
namespace {

// Written when the guide is left, not when it is shown: one that a crash took is shown again.
constexpr std::string_view kSeenKey = "hasSeenGuide";

} // namespace

AgentGuide::AgentGuide(Launcher& launcher, Platform platform, AgentKeyboard& keyboard,
                       AgentSettings& settings, QWidget& panel)
    : launcher_(launcher),
      platform_(std::move(platform)),
      keyboard_(keyboard),
      settings_(settings),
      panel_(panel) {
    keyboard_.setActivationTaker([this] { return window_ != nullptr && window_->prove(); });
    settings_.onGuide = [this] { present(); };
}

void AgentGuide::openIfNeeded() {
    const bool isListening = keyboard_.hotkey().health() == HotkeyManager::Health::listening;
    if (keyboard_.isRegrantExpected() || !isListening) {
        present(GuideStep::checks);
    } else if (!wasSeen()) {
        present();
    }
}

void AgentGuide::present(GuideStep step) {
    launcher_.controller().hide();
    if (window_ == nullptr) {
        window_ = std::make_unique<GuideWindow>(services());
        window_->giveWayTo(panel_);
        window_->onFinished = [this] { finished(); };
        window_->goTo(step);
    }
    window_->present();
}

bool AgentGuide::wasSeen() const {
    const auto stored = platform_.defaults.value(kSeenKey);
    const bool* wasSeen = stored ? stored->as<bool>() : nullptr;
    return wasSeen != nullptr && *wasSeen;
}

void AgentGuide::finished() {
    if (!wasSeen()) {
        platform_.defaults.set(kSeenKey, true);
    }
    window_.release()->deleteLater(); // it is what calls this
}

GuideServices AgentGuide::services() {
    return {.settings = settings_.services(),
            .listener =
                [this] {
                    const HotkeyManager& hotkey = keyboard_.hotkey();
                    return GuideServices::Listener{.health = hotkey.health(),
                                                   .failure = hotkey.lastFailure().value_or("")};
                },
            .listenerChanged = keyboard_.changed(),
            .check = [this](const auto& done) { check(done); },
            .relaunch = [this] { keyboard_.relaunch(); },
            .dialogs = platform_.dialogs,
            .openSettings = [this] { settings_.present(); }};
}

/// Display and session are asked by a worker: they may be slow to answer.
void AgentGuide::check(const std::function<void(std::vector<GuideCheck>)>& done) {
    platform_.loop.background(
        [environment = Environment::ofThisProcess(), keyboard = keyboard_.report(),
         usesNotifications = launcher_.settings().includesScripts.get()] {
            return Diagnosis{.display = X11ServerFacts::read(),
                             .session = SessionFacts::read(environment),
                             .keyboard = keyboard,
                             .usesNotifications = usesNotifications}
                .findings();
        },
        [done](const std::vector<Finding>& findings) { done(guideChecks(findings)); });
}

} // namespace pello
