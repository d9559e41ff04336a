#include "platform/linux/X11KeyboardLayout.h"

#include "platform/VirtualKeys.h"
#include "platform/linux/X11Xkb.h"
#include "support/PrivateDisplay.h"

#include <gtest/gtest.h>

namespace pello {
namespace {

constexpr std::uint16_t kA = 0;
constexpr std::uint16_t kY = 16;
constexpr std::uint16_t kEqual = 24;

void useLayout(const PrivateDisplay& display, std::uint8_t number) {
    watchXkb(display.connection(), 0);
    xcb_xkb_latch_lock_state(display.connection(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, number, 0, 0,
                             0);
    const XcbReply<xcb_get_input_focus_reply_t> done(xcb_get_input_focus_reply(
        display.connection(), xcb_get_input_focus(display.connection()), nullptr));
}

TEST(X11KeyboardLayoutTest, TypesWhatTheServersLayoutTypesNow) {
    const PrivateDisplay display;
    const X11KeyboardLayout layout;
    EXPECT_EQ(layout.character(kA), "a");
    EXPECT_EQ(layout.character(kY), "y");

    PrivateDisplay::run("setxkbmap de");
    EXPECT_EQ(layout.character(kY), "z");
    EXPECT_EQ(layout.character(kEqual), "´");

    PrivateDisplay::run("setxkbmap us,ru");
    EXPECT_EQ(layout.character(kA), "a");
    useLayout(display, 1);
    EXPECT_EQ(layout.character(kA), "ф");

    PrivateDisplay::run("xmodmap -e 'keycode 38 = e E eacute Eacute'");
    useLayout(display, 0);
    EXPECT_EQ(layout.character(kA), "e");
}

TEST(X11KeyboardLayoutTest, KeysThatTypeNothingHaveNoCharacter) {
    PrivateDisplay display;
    const X11KeyboardLayout layout;
    for (const std::uint16_t key :
         {virtualKeys::kReturn, virtualKeys::kEscape, virtualKeys::kLeftShift,
          virtualKeys::kLeftArrow, virtualKeys::kNone, std::uint16_t{63}, std::uint16_t{127}}) {
        EXPECT_EQ(layout.character(key), "") << key;
    }
    display.endServer();
    EXPECT_EQ(layout.character(kA), "");
    EXPECT_EQ(X11KeyboardLayout().character(kA), "");
}

} // namespace
} // namespace pello
