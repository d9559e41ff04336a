#include "ui/icons/SymbolTable.h"

#include <algorithm>
#include <array>

namespace pello {

namespace {

constexpr QRgb kBlue = 0xff3a73d1;
constexpr QRgb kGreen = 0xff3a7d5f;
constexpr QRgb kGrey = 0xff7c7c88;
constexpr QRgb kIndigo = 0xff5d57b8;
constexpr QRgb kOrange = 0xffb8642a;
constexpr QRgb kRed = 0xffbf4a42;
constexpr QRgb kSlate = 0xff516079;
constexpr QRgb kTeal = 0xff2d7d8f;

constexpr SymbolDrawing kAnyAction = {"", "system-run-symbolic", "›", kSlate};

constexpr auto kDrawings = std::to_array<SymbolDrawing>({
    {"airpods", "audio-headphones-symbolic", "♫", kTeal},
    {"airpods.max", "audio-headphones-symbolic", "♫", kTeal},
    {"airpodspro", "audio-headphones-symbolic", "♫", kTeal},
    {"arrow.clockwise.circle", "system-reboot-symbolic", "↻", kOrange},
    {"arrow.down.circle", "software-update-available-symbolic", "↓", kGreen},
    {"arrow.left.arrow.right", "object-flip-horizontal-symbolic", "⇄", kGreen},
    {"arrow.up.right.square", "external-link-symbolic", "↗", kBlue},
    {"calendar", "x-office-calendar-symbolic", "▦", kRed},
    {"circle.lefthalf.filled", "weather-clear-night-symbolic", "◐", kSlate},
    {"clock", "preferences-system-time-symbolic", "◷", kIndigo},
    {"display", "video-display-symbolic", "▭", kSlate},
    {"dock.rectangle", "view-app-grid-symbolic", "▤", kSlate},
    {"eject.fill", "media-eject-symbolic", "⏏", kGrey},
    {"equal.square", "accessories-calculator-symbolic", "=", kGreen},
    {"eye.fill", "view-reveal-symbolic", "◉", kGrey},
    {"filemenu.and.selection", "open-menu-symbolic", "☰", kSlate},
    {"gearshape", "emblem-system-symbolic", "⚙", kGrey},
    {"gearshape.fill", "emblem-system-symbolic", "⚙", kGrey},
    {"globe", "web-browser-symbolic", "◍", kBlue},
    {"headphones", "audio-headphones-symbolic", "♫", kTeal},
    {"homepod.fill", "audio-speakers-symbolic", "♪", kTeal},
    {"link", "insert-link-symbolic", "∞", kBlue},
    {"list.bullet.rectangle", "view-list-bullet-symbolic", "≡", kGreen},
    {"lock.fill", "system-lock-screen-symbolic", "⚿", kSlate},
    {"macwindow", "focus-windows-symbolic", "▢", kIndigo},
    {"magnifyingglass", "system-search-symbolic", "⌕", kBlue},
    {"moon.zzz.fill", "weather-clear-night-symbolic", "☾", kIndigo},
    {"network", "network-wired-symbolic", "⇅", kTeal},
    {"power", "system-shutdown-symbolic", "⏻", kRed},
    {"rectangle.portrait.and.arrow.right", "system-log-out-symbolic", "⇥", kOrange},
    {"sparkles.tv", "video-display-symbolic", "✦", kIndigo},
    {"speaker.slash.fill", "audio-volume-muted-symbolic", "♪", kTeal},
    {"speaker.wave.1.fill", "audio-volume-low-symbolic", "♪", kTeal},
    {"speaker.wave.2.fill", "audio-speakers-symbolic", "♪", kTeal},
    {"speaker.wave.3.fill", "audio-volume-high-symbolic", "♪", kTeal},
    {"square.stack.3d.down.right.fill", "view-grid-symbolic", "❐", kIndigo},
    {"sun.haze.fill", "night-light-symbolic", "☀", kOrange},
    {"terminal.fill", "utilities-terminal-symbolic", "»", kSlate},
    {"trash.fill", "user-trash-symbolic", "✕", kGrey},
    {"tv.fill", "tv-symbolic", "▭", kSlate},
    {"wave.3.right", "bluetooth-symbolic", "≋", kBlue},
    {"wifi", "network-wireless-symbolic", "≈", kBlue},
    {"xmark.circle", "process-stop-symbolic", "✕", kRed},
});
static_assert(std::ranges::is_sorted(kDrawings, {}, &SymbolDrawing::symbol));

} // namespace

const SymbolDrawing& drawingOf(std::string_view symbol) {
    const auto* const found =
        std::ranges::lower_bound(kDrawings, symbol, {}, &SymbolDrawing::symbol);
    return found != kDrawings.end() && found->symbol == symbol ? *found : kAnyAction;
}

} // namespace pello
