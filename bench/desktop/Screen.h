#pragma once

#include "desktop/ScreenCopy.h"
#include "desktop/Target.h"

#include <X11/Xlib.h>

#include <optional>
#include <regex.h>
#include <string>

namespace pello::bench {

/// What was seen since a moment, in milliseconds after it; nothing: not seen.
struct Sighting {
    std::optional<double> mapped;
    std::optional<double> firstChange;
    std::optional<double> complete; ///< The last change before all was quiet.
    std::optional<double> unmapped;
};

/// The screen as a user sees it, and the keyboard: the launcher is watched from outside alone.
///
/// Changes are reported by the server (XDamage), and count where pixels became others. Looking is
/// held back a little, so that it does not slow the server; the times are those of the reports.
class Screen {
public:
    enum class Until { mapped, changed, unmapped, quiet };

    /// Connects to the display. Ends this program when it cannot watch or type there.
    explicit Screen(const Target& target);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Watches until what is waited for has happened and nothing has changed for `quiet` since, or
    /// until `timeout` after `since`.
    Sighting follow(double since, Until until, double quiet, double timeout);

    /// Presses keys together and lets them go: "a", "Escape", "Control_L+space".
    void press(const std::string& keys);

    [[nodiscard]] bool hasWindow() const { return window_ != None; }
    /// The program is gone, and its window with it.
    void forgetWindow() { window_ = None; }

private:
    void takeEvents(double since, Sighting& seen);
    void takeMapping(Window window, double when, Sighting& seen);
    void look(double since, Sighting& seen);
    void waitForEvents(double duration);
    [[nodiscard]] bool isDone(Until until, const Sighting& seen) const;
    [[nodiscard]] bool isTarget(Window window) const;
    [[nodiscard]] bool holdsTarget(Window window, int depth) const;

    const Target& target_;
    Display* display_;
    Window root_;
    int damageEvents_ = 0;
    regex_t windowClass_{};
    ScreenCopy copy_;
    Window window_ = None; ///< The target's, or the frame around it.
    Box damaged_;
    double lastDamage_ = 0;
    double lastLook_ = 0;
    double lastChange_ = 0;
};

} // namespace pello::bench
