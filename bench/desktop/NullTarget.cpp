// The floor of the bench: a bare window that shows itself at once, paints at each key and goes at
// Escape. Whatever it is measured to take, a launcher takes besides.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <string>

namespace {

constexpr int kWidth = 640;
constexpr int kBands = 16;
constexpr int kBand = 24;

void paint(Display* display, Window window, GC context, unsigned long round) {
    for (unsigned long i = 0; i < kBands; ++i) {
        XSetForeground(display, context, (round * 7919 + i * 104729) & 0xffffff);
        XFillRectangle(display, window, context, 0, static_cast<int>(i) * kBand, kWidth, kBand);
    }
    XFlush(display);
}

} // namespace

int main() {
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        return 1;
    }
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.event_mask = ExposureMask | KeyPressMask;
    const Window window = XCreateWindow(display, XDefaultRootWindow(display), 300, 200, kWidth,
                                        kBands * kBand, 0, CopyFromParent, InputOutput, nullptr,
                                        CWOverrideRedirect | CWEventMask, &attributes);
    std::string name = "null";
    XClassHint hint{.res_name = name.data(), .res_class = name.data()};
    XSetClassHint(display, window, &hint);
    XMapRaised(display, window);
    GC context = XCreateGC(display, window, 0, nullptr);
    for (unsigned long round = 0;; ++round) {
        XEvent event;
        XNextEvent(display, &event);
        if (event.type == KeyPress && XLookupKeysym(&event.xkey, 0) == XK_Escape) {
            return 0;
        }
        if (event.type == Expose) {
            XSetInputFocus(display, window, RevertToParent, CurrentTime);
        }
        paint(display, window, context, round);
    }
}
