#include "app/GuideChecks.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pello {
namespace {

struct Subject {
    std::string_view name;
    std::string_view title;
    std::string_view purpose;
};

constexpr std::array kSubjects{
    Subject{"X server", "Display", "Has the windows, and hears the keyboard for all programs."},
    Subject{"XInput", "Keyboard input", "Notices the activation key in every program."},
    Subject{"XKB", "Keyboard layout", "Tells modifiers, Caps Lock and the layout's letters."},
    Subject{"XTEST", "Pasting", "Puts emoji and symbols where you were typing."},
    Subject{"listener", "Activation key", "Opens Pello from anywhere."},
    Subject{"filter keys", "Taking keys", "Keeps Pello's shortcuts from other programs."},
    Subject{"watch keys", "Watching keys",
            "Notices a tap of a lone modifier; what you type is not kept."},
    Subject{"Hyper key", "Hyper key", "Makes Caps Lock hold all modifiers, if you want that."},
    Subject{"session bus", "Session bus", "Reaches applications and notifications."},
    Subject{"notifications", "Notifications", "Show what your scripts print."},
    Subject{"tray", "Tray", "Shows Pello's menu, and a mark when a script failed."},
    Subject{"sound server", "Sound", "Lets you choose where sound goes."},
    Subject{"accessibility", "Menus of other programs", "Are read to find their commands."}};

constexpr std::string_view kShortcutPurpose = "A shortcut of Pello's, taken from other programs.";

GuideCheck::State stateOf(Finding::Verdict verdict) {
    switch (verdict) {
    case Finding::Verdict::ok:
        return GuideCheck::State::works;
    case Finding::Verdict::absent:
        return GuideCheck::State::absent;
    case Finding::Verdict::wrong:
        break;
    }
    return GuideCheck::State::wrong;
}

/// Whether the sign beside it says as much.
bool tellsNothing(const Finding& finding) {
    return finding.verdict == Finding::Verdict::ok &&
           (finding.text == "there" || finding.text == "allowed");
}

} // namespace

std::vector<GuideCheck> guideChecks(const std::vector<Finding>& findings) {
    std::vector<GuideCheck> checks;
    for (const Finding& finding : findings) {
        const auto* const found = std::ranges::find(kSubjects, finding.subject, &Subject::name);
        const bool isKnown = found != kSubjects.end();
        checks.push_back({.state = stateOf(finding.verdict),
                          .title = isKnown ? std::string(found->title) : finding.subject,
                          .purpose = std::string(isKnown ? found->purpose : kShortcutPurpose),
                          .finding = tellsNothing(finding) ? "" : finding.text});
    }
    std::ranges::stable_partition(
        checks, [](const GuideCheck& check) { return check.state == GuideCheck::State::wrong; });
    return checks;
}

} // namespace pello
