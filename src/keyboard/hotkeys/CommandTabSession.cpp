#include "keyboard/hotkeys/CommandTabSession.h"

#include "base/Text.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace pello {
namespace {

/// The digits of the main row from 1 on.
constexpr std::array<std::uint16_t, 9> kDigitKeyCodes{18, 19, 20, 21, 23, 22, 26, 28, 25};

/// Which of the digits 1 to 9 the key is; 0 when none.
int digitOf(std::uint16_t keyCode) {
    const auto* const digit = std::ranges::find(kDigitKeyCodes, keyCode);
    return digit == kDigitKeyCodes.end() ? 0 : static_cast<int>(digit - kDigitKeyCodes.begin()) + 1;
}

} // namespace

CommandTabSession::CommandTabSession(MainLoop& loop, EventTap& tap, const KeyboardLayout& layout,
                                     const PelloLog& log, Send send)
    : tap_(tap), layout_(layout), log_(log), send_(std::move(send)), commandReleasePoll_(loop) {}

void CommandTabSession::begin() {
    if (isActive_) {
        return;
    }
    isActive_ = true;
    tap_.holdKeyboard();
    log_.hotkey.info("⌘⇥ intercepted");
    commandReleasePoll_.start(std::chrono::milliseconds(50), [this] {
        if ((tap_.heldModifiers() & modifiers::kCommand) == 0) {
            end(CommandTabEvent::Kind::commit);
        }
    });
}

void CommandTabSession::end(CommandTabEvent::Kind event) {
    if (!isActive_) {
        return;
    }
    isActive_ = false;
    commandReleasePoll_.stop();
    tap_.releaseKeyboard();
    send_({.kind = event});
}

void CommandTabSession::handleKey(const InputEvent& press) {
    switch (press.keyCode) {
    case virtualKeys::kTab:
        step(press);
        break;
    case virtualKeys::kEscape:
        end(CommandTabEvent::Kind::cancel);
        break;
    case virtualKeys::kLeftArrow:
        send_(CommandTabEvent::advance(-1));
        break;
    case virtualKeys::kRightArrow:
        send_(CommandTabEvent::advance(1));
        break;
    default:
        handleCharacter(press);
    }
}

void CommandTabSession::step(const InputEvent& press) const {
    send_(CommandTabEvent::advance((press.flags & modifiers::kShift) != 0 ? -1 : 1));
}

void CommandTabSession::handleCharacter(const InputEvent& press) {
    const std::string typed = text::lowercased(layout_.character(press.keyCode));
    if (typed == "q" && !press.isRepeat) {
        send_({.kind = CommandTabEvent::Kind::quit});
    } else if (typed == "k" && !press.isRepeat) {
        end(CommandTabEvent::Kind::searchWindows);
    } else if (const int digit = digitOf(press.keyCode); digit != 0) {
        send_(CommandTabEvent::choose(digit));
    }
}

} // namespace pello
