#include "app/Diagnosis.h"

#include <utility>

namespace pello {
namespace {

using Verdict = Finding::Verdict;

/// Gathers findings, a line of code each.
class Findings {
public:
    void ok(std::string subject, std::string text) {
        list.push_back({Verdict::ok, std::move(subject), std::move(text)});
    }
    void wrong(std::string subject, std::string text) {
        list.push_back({Verdict::wrong, std::move(subject), std::move(text)});
    }
    /// Fine when `isThere`; else as bad as `otherwise`.
    void check(bool isThere, std::string subject, std::string text, Verdict otherwise,
               std::string advice) {
        list.push_back({isThere ? Verdict::ok : otherwise, std::move(subject),
                        isThere ? std::move(text) : std::move(advice)});
    }

    std::vector<Finding> list;
};

void addDisplay(Findings& findings, const std::optional<X11ServerFacts>& display) {
    if (!display) {
        findings.wrong("X server",
                       "none: bind \"pello toggle\" to a key in the desktop's settings");
        return;
    }
    findings.ok("X server", display->name);
    findings.check(display->isInputEnough, "XInput", display->input.value_or(""), Verdict::wrong,
                   "2.2 or newer is needed to hear the activation key: bind \"pello toggle\" to a "
                   "key in the desktop's settings");
    findings.check(display->hasKeyboardExtension, "XKB", "there", Verdict::wrong,
                   "missing: modifiers and Caps Lock cannot be read");
    findings.check(display->hasTestExtension, "XTEST", "there", Verdict::absent,
                   "missing: glyphs are copied, but you have to paste them");
}

std::string adviceOn(const KeyboardReport& keyboard) {
    return keyboard.lastFailure.empty() ? keyboard.health
                                        : keyboard.health + ": " + keyboard.lastFailure;
}

void addHyper(Findings& findings, const KeyboardReport::Hyper& hyper) {
    if (hyper.isWanted) {
        findings.check(hyper.isInPlace, "Hyper key",
                       hyper.isOwn ? "Caps Lock, undone when Pello quits"
                                   : "Caps Lock, set up by another tool and left in place",
                       Verdict::wrong,
                       "The keyboard remap isn't in place. Toggling this off and on again usually "
                       "fixes it.");
    } else {
        findings.check(!hyper.isInPlace, "Hyper key", "switched off", Verdict::absent,
                       "switched off, but another tool has made Caps Lock one");
    }
}

void addKeyboard(Findings& findings, const std::optional<KeyboardReport>& keyboard) {
    if (!keyboard) {
        findings.wrong("launcher", "none is running: start \"pello\"");
        return;
    }
    findings.check(keyboard->isListening(), "listener", "listening for " + keyboard->activation,
                   Verdict::wrong, adviceOn(*keyboard));
    findings.check(keyboard->isAccessibilityTrusted, "filter keys", "allowed", Verdict::wrong,
                   "not allowed: grant it in the system's settings");
    findings.check(keyboard->hasInputMonitoring, "watch keys", "allowed", Verdict::wrong,
                   "not allowed: grant it in the system's settings");
    const std::string held = keyboard->areGrabsSettled
                                 ? "taken from other programs"
                                 : "being taken anew, after a change of the keyboard";
    for (const KeyboardReport::Grab& grab : keyboard->grabs) {
        findings.check(grab.isHeld, grab.combo, held, Verdict::wrong,
                       grab.reason + ": choose another combination, or free it there");
    }
    addHyper(findings, keyboard->hyper);
}

void addSession(Findings& findings, const Diagnosis& diagnosis) {
    const SessionFacts& session = diagnosis.session;
    findings.check(session.hasBus, "session bus", "there", Verdict::wrong,
                   "none: applications and notifications cannot be reached. Start the session by "
                   "\"dbus-run-session\"");
    findings.check(session.hasNotifications, "notifications", "shown",
                   diagnosis.usesNotifications ? Verdict::wrong : Verdict::absent,
                   "nobody shows them: install a daemon, such as dunst");
    const bool hasTray = session.hasTray || (diagnosis.display && diagnosis.display->hasTray);
    findings.check(hasTray, "tray", "there", Verdict::absent,
                   "none: Pello's menu and the mark of failures are not seen");
    findings.check(session.hasSound, "sound server", "there", Verdict::absent,
                   "none: audio outputs are not offered");
    findings.check(session.hasAccessibility, "accessibility", "there", Verdict::absent,
                   "no bus: the menus of other programs cannot be read");
}

} // namespace

std::vector<Finding> Diagnosis::findings() const {
    Findings findings;
    addDisplay(findings, display);
    addKeyboard(findings, keyboard);
    addSession(findings, *this);
    return std::move(findings.list);
}

} // namespace pello
