#include "support/DesktopKeyboard.h"

#include "base/Text.h"
#include "platform/linux/X11KeyCodes.h"
#include "support/KeyTrace.h"
#include "support/QtTurns.h"

#include <cstdlib>
#include <utility>

namespace pello::testing {
namespace {

xcb_keycode_t keyNamed(const std::string& name) {
    return name.starts_with('#') ? static_cast<xcb_keycode_t>(std::atoi(name.c_str() + 1))
                                 : x11Keys::keyOf(keyCodeOf(name));
}

} // namespace

DesktopKeyboard::DesktopKeyboard(PrivateDisplay& display) : display_(display) {
    manager.onActivate = [this] { say("activate"); };
    manager.onActivateGlyphPicker = [this] { say("glyphs"); };
    manager.onCommandTab = [this](const CommandTabEvent& event) { say(nameOf(event)); };
}

std::string DesktopKeyboard::play(std::string_view trace) {
    for (const std::string_view word : text::words(trace)) {
        step(word);
    }
    loop.settle();
    return std::exchange(said_, {});
}

void DesktopKeyboard::waitUntilTold(std::size_t count) {
    turnQtUntil([this, count] { return tap.told.size() >= count; });
}

void DesktopKeyboard::step(std::string_view word) {
    const std::string verb(word.substr(0, word.find(':')));
    const std::string name(word.substr(word.find(':') + 1));
    if (verb == "t") {
        loop.advance(std::chrono::milliseconds(std::atoi(name.c_str())));
        return;
    }
    const std::size_t next = tap.told.size() + 1;
    if (verb == "b") {
        display_.click(static_cast<std::uint8_t>(std::atoi(name.c_str())));
        waitUntilTold(next);
        return;
    }
    const xcb_keycode_t key = keyNamed(name);
    if (verb == "p") {
        step("d:" + name);
        step("u:" + name);
    } else if (verb == "d" || verb == "D") {
        display_.press(key);
    } else {
        display_.release(key);
    }
    if (verb == "d" || verb == "u") {
        waitUntilTold(next);
    }
}

void DesktopKeyboard::say(std::string_view word) {
    said_ += said_.empty() ? "" : " ";
    said_ += word;
}

} // namespace pello::testing
