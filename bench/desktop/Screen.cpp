#include "desktop/Screen.h"

#include "desktop/Processes.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>

#include <cmath>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <memory>
#include <poll.h>
#include <ranges>
#include <span>
#include <sstream>
#include <vector>

namespace pello::bench {
namespace {

constexpr double kLeastGap = 1.5;   // ms between two looks
constexpr double kLeastWait = 0.02; // ms
constexpr int kSmallestPanel = 20;  // pixels: what is smaller is a helper
constexpr int kFrameDepth = 3;      // windows a manager puts around one

struct Freed {
    void operator()(void* pointer) const { XFree(pointer); }
};

[[noreturn]] void giveUp(const std::string& why) {
    std::cerr << "measure: " << why << '\n';
    std::exit(2);
}

Display* connected() {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        giveUp("there is no display");
    }
    fcntl(XConnectionNumber(display), F_SETFD, FD_CLOEXEC);
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; }); // windows go while one asks
    return display;
}

} // namespace

Screen::Screen(const Target& target)
    : target_(target), display_(connected()), root_(XDefaultRootWindow(display_)), copy_(display_) {
    int ignored = 0;
    if (XDamageQueryExtension(display_, &damageEvents_, &ignored) == False ||
        XTestQueryExtension(display_, &ignored, &ignored, &ignored, &ignored) == False) {
        giveUp("the display lacks DAMAGE or XTEST");
    }
    if (regcomp(&windowClass_, target.windowClass.c_str(), REG_EXTENDED | REG_ICASE | REG_NOSUB) !=
        0) {
        giveUp("no regular expression: " + target.windowClass);
    }
    XSelectInput(display_, root_, SubstructureNotifyMask);
    XDamageCreate(display_, root_, XDamageReportRawRectangles);
    const int screen = XDefaultScreen(display_);
    XTestFakeMotionEvent(display_, -1, XDisplayWidth(display_, screen) - 1,
                         XDisplayHeight(display_, screen) - 1, 0); // out of the way
    XSync(display_, False);
}

Screen::~Screen() {
    regfree(&windowClass_);
    XCloseDisplay(display_);
}

Sighting Screen::follow(double since, Until until, double quiet, double timeout) {
    Sighting seen;
    lastChange_ = nowMs();
    while (true) {
        takeEvents(since, seen);
        const double now = nowMs();
        const double untilLook = kLeastGap - (now - lastLook_);
        if (!damaged_.isEmpty() && untilLook <= 0) {
            look(since, seen);
            continue;
        }
        const bool done = isDone(until, seen);
        const double left = done ? quiet - (now - lastChange_) : timeout - (now - since);
        if (now - since > timeout || (done && damaged_.isEmpty() && left <= 0)) {
            return seen;
        }
        waitForEvents(damaged_.isEmpty() ? left : untilLook);
    }
}

void Screen::takeEvents(double since, Sighting& seen) {
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        const double when = nowMs();
        if (event.type == damageEvents_ + XDamageNotify) {
            const auto& area = reinterpret_cast<const XDamageNotifyEvent&>(event).area;
            damaged_.include({.left = area.x,
                              .top = area.y,
                              .right = area.x + area.width,
                              .bottom = area.y + area.height});
            lastDamage_ = when;
        } else if (event.type == MapNotify && event.xmap.event == root_ && !hasWindow() &&
                   holdsTarget(event.xmap.window, kFrameDepth)) {
            window_ = event.xmap.window;
            seen.mapped = when - since;
            lastChange_ = when;
        } else if ((event.type == UnmapNotify && event.xunmap.window == window_) ||
                   (event.type == DestroyNotify && event.xdestroywindow.window == window_)) {
            window_ = None;
            seen.unmapped = when - since;
            lastChange_ = when;
        }
    }
}

void Screen::look(double since, Sighting& seen) {
    const Box changed = copy_.update(std::exchange(damaged_, Box{}));
    lastLook_ = nowMs();
    const bool isCaret =
        changed.width() <= target_.caretWidth && changed.height() <= target_.caretHeight;
    if (changed.isEmpty() || isCaret) {
        return;
    }
    lastChange_ = lastLook_;
    seen.complete = lastDamage_ - since;
    if (!seen.firstChange) {
        seen.firstChange = seen.complete;
    }
}

void Screen::waitForEvents(double duration) {
    const double wait = std::max(kLeastWait, duration);
    const timespec time{.tv_sec = static_cast<time_t>(wait / 1e3),
                        .tv_nsec = static_cast<long>(std::fmod(wait, 1e3) * 1e6)};
    pollfd connection{.fd = XConnectionNumber(display_), .events = POLLIN, .revents = 0};
    XFlush(display_);
    if (XEventsQueued(display_, QueuedAlready) == 0) {
        ppoll(&connection, 1, &time, nullptr);
    }
}

bool Screen::isDone(Until until, const Sighting& seen) const {
    switch (until) {
    case Until::mapped:
        return seen.mapped && seen.firstChange;
    case Until::changed:
        return seen.firstChange.has_value();
    case Until::unmapped:
        return seen.unmapped || !hasWindow();
    case Until::quiet:
        break;
    }
    return true;
}

bool Screen::isTarget(Window window) const {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* bytes = nullptr;
    XGetWindowProperty(display_, window, XA_WM_CLASS, 0, 256, False, XA_STRING, &type, &format,
                       &count, &left, &bytes);
    const std::unique_ptr<unsigned char, Freed> owned(bytes);
    // Instance and class, each ended by a zero: the expression sees the instance.
    return bytes != nullptr &&
           regexec(&windowClass_, reinterpret_cast<const char*>(bytes), 0, nullptr, 0) == 0;
}

/// Whether this window or one inside it is the target's and seen.
bool Screen::holdsTarget(Window window, int depth) const {
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display_, window, &attributes) == 0 ||
        attributes.map_state == IsUnmapped) {
        return false;
    }
    if (attributes.width >= kSmallestPanel && attributes.height >= kSmallestPanel &&
        isTarget(window)) {
        return true;
    }
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (depth == 0 || XQueryTree(display_, window, &root, &parent, &children, &count) == 0) {
        return false;
    }
    const std::unique_ptr<Window, Freed> owned(children);
    return std::ranges::any_of(std::span(children, count),
                               [&](Window child) { return holdsTarget(child, depth - 1); });
}

void Screen::press(const std::string& keys) {
    std::vector<unsigned> codes;
    std::istringstream rest(keys);
    for (std::string key; std::getline(rest, key, '+');) {
        const KeySym symbol = XStringToKeysym(key.c_str());
        if (symbol == NoSymbol) {
            giveUp("there is no key " + key);
        }
        codes.push_back(XKeysymToKeycode(display_, symbol));
    }
    for (const unsigned code : codes) {
        XTestFakeKeyEvent(display_, code, True, 0);
    }
    for (const unsigned code : codes | std::views::reverse) {
        XTestFakeKeyEvent(display_, code, False, 0);
    }
    XFlush(display_);
}

} // namespace pello::bench
