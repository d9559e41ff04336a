// Streams of keys, clicks and lost events in any order, on virtual time. What the listener did is
// held against what the whole history allows, looked up anew for each event.

#include "support/KeyTrace.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <vector>

namespace {

using namespace pello;
using Kind = InputEvent::Kind;

constexpr auto kKeys = std::to_array<std::uint16_t>(
    {virtualKeys::kTab, virtualKeys::kTab, virtualKeys::kSpace, virtualKeys::kEscape,
     virtualKeys::kHyper, virtualKeys::kHyper, virtualKeys::kLeftArrow, 0, 12, 18, 40, 14});

struct Modifier {
    std::uint16_t keyCode;
    std::uint64_t flag;
    std::uint64_t side;
};
constexpr auto kModifiers = std::to_array<Modifier>({{54, modifiers::kCommand, 0x10},
                                                     {55, modifiers::kCommand, 0x8},
                                                     {56, modifiers::kShift, 0x2},
                                                     {61, modifiers::kOption, 0x40},
                                                     {62, modifiers::kControl, 0x2000},
                                                     {57, modifiers::kCapsLock, 0}});

constexpr auto kPauses = std::to_array<int>({1, 30, 349, 350, 5000});

/// An event as it came, when, and what the listener did with it.
struct Entry {
    InputEvent event;
    Date at;
    std::uint64_t passedFlags = 0;
    bool isSwallowed = false;
    bool wasTabbing = false;
};

void require(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

HotkeyConfiguration configurationOf(std::uint8_t byte) {
    HotkeyConfiguration configuration{.activation = static_cast<Activation>(byte % 5),
                                      .hyperEnabled = byte / 5 % 2 == 1,
                                      .replacesCommandTab = byte / 10 % 4 != 0};
    if (byte / 40 % 3 == 1) {
        configuration.glyphCombo = KeyCombo(14, KeyCombo::kModifierMask);
    } else if (byte / 40 % 3 == 2) {
        configuration.glyphCombo = KeyCombo(virtualKeys::kTab, KeyCombo::kCommand);
    }
    return configuration;
}

/// Listens to a stream of events and judges what comes of it.
class Judge {
public:
    explicit Judge(const HotkeyConfiguration& configuration) : configuration_(configuration) {
        manager_.onActivate = [this] { ++activations_; };
        manager_.onActivateGlyphPicker = [this] { ++glyphs_; };
        manager_.onCommandTab = [this](const CommandTabEvent& event) { follow(event); };
        manager_.configure(configuration);
    }

    void step(std::uint8_t byte) {
        const std::size_t which = byte / 8;
        const std::uint16_t key = kKeys[which % kKeys.size()];
        switch (byte % 8) {
        case 0:
        case 1:
            happen(
                {.kind = Kind::keyDown, .keyCode = key, .flags = flags_, .isRepeat = which >= 28});
            break;
        case 2:
            happen({.kind = Kind::keyUp, .keyCode = key, .flags = flags_});
            break;
        case 3:
        case 4:
            turnOver(kModifiers[which % kModifiers.size()], which >= 30);
            break;
        case 5:
        case 6:
            pass(kPauses[which % kPauses.size()]);
            break;
        default:
            if (which % 2 == 0) {
                happen({.kind = Kind::mouseDown, .flags = flags_});
            } else {
                stop();
            }
        }
    }

private:
    /// A modifier goes down or up; now and then nobody tells.
    void turnOver(const Modifier& modifier, bool isLost) {
        flags_ ^= modifier.side != 0 ? modifier.side : modifier.flag;
        for (const Modifier& other : kModifiers) {
            flags_ = other.side != 0 ? flags_ & ~other.flag : flags_;
        }
        for (const Modifier& other : kModifiers) {
            flags_ |= (flags_ & other.side) != 0 ? other.flag : 0;
        }
        tap_.held = flags_ & modifiers::kShortcutMask;
        if (!isLost) {
            happen({.kind = Kind::flagsChanged, .keyCode = modifier.keyCode, .flags = flags_});
        }
    }

    void pass(int milliseconds) {
        loop_.advance(std::chrono::milliseconds(milliseconds));
        const bool isReleased = (tap_.held & modifiers::kCommand) == 0;
        require(!isTabbing_ || !isReleased || milliseconds < 50, "a session without Command");
    }

    void stop() {
        manager_.stop();
        require(!isTabbing_, "a session without a tap");
        manager_.start();
        history_.clear();
    }

    void happen(InputEvent event) {
        Entry entry{.event = event, .at = loop_.now(), .wasTabbing = isTabbing_};
        const int activationsBefore = activations_;
        const int glyphsBefore = glyphs_;
        current_ = &event;
        entry.isSwallowed = tap_.happen(event);
        current_ = nullptr;
        entry.passedFlags = event.flags;
        history_.push_back(entry);

        require(activations_ - activationsBefore == (mayActivate() ? 1 : 0),
                "not the activations that the history allows");
        require(glyphs_ - glyphsBefore == (mayOpenGlyphs() ? 1 : 0), "glyphs without their combo");
        checkFlags();
        checkSwallowing();
        require(isTabbing_ == tap_.isKeyboardHeld, "the keyboard is held for a session only");
    }

    void follow(const CommandTabEvent& event) {
        if (!isTabbing_) {
            require(event.kind == CommandTabEvent::Kind::advance && current_ != nullptr &&
                        current_->kind == Kind::keyDown && current_->keyCode == virtualKeys::kTab &&
                        (current_->flags & modifiers::kCommand) != 0 &&
                        configuration_.replacesCommandTab,
                    "a session that Command-Tab did not begin");
        }
        using enum CommandTabEvent::Kind;
        isTabbing_ = event.kind != searchWindows && event.kind != commit && event.kind != cancel;
    }

    [[nodiscard]] const Entry& last() const { return history_.back(); }

    /// The last press of the Hyper key, if no release came since.
    [[nodiscard]] bool isHyperHeld() const {
        for (std::size_t i = history_.size() - 1; i-- > 0;) {
            const InputEvent& event = history_[i].event;
            if (isHyper(event) && !event.isRepeat) {
                return event.kind == Kind::keyDown;
            }
        }
        return false;
    }

    [[nodiscard]] bool isHyper(const InputEvent& event) const {
        return configuration_.hyperEnabled && event.keyCode == virtualKeys::kHyper &&
               (event.kind == Kind::keyDown || event.kind == Kind::keyUp);
    }

    [[nodiscard]] bool mayActivate() const {
        const InputEvent& event = last().event;
        switch (configuration_.activation) {
        case Activation::keyCombo:
            return isFreshPress() && isPressed(configuration_.combo) && !isGlyphCombo();
        case Activation::capsLock:
            return configuration_.hyperEnabled
                       ? wasHyperTapped() || wasTapped(57, modifiers::kCapsLock, 0)
                       : event.kind == Kind::flagsChanged && event.keyCode == 57 &&
                             (event.flags & modifiers::kCapsLock) != 0;
        case Activation::rightCommand:
            return wasTapped(54, 0x10, modifiers::kCommand);
        case Activation::rightOption:
            return wasTapped(61, 0x40, modifiers::kOption);
        case Activation::rightControl:
            return wasTapped(62, 0x2000, modifiers::kControl);
        }
        return false;
    }

    /// A key press that a combo can be made of.
    [[nodiscard]] bool isFreshPress() const {
        const InputEvent& event = last().event;
        return event.kind == Kind::keyDown && !event.isRepeat && !isHyper(event) &&
               !last().wasTabbing;
    }
    [[nodiscard]] bool isPressed(const KeyCombo& combo) const {
        return combo == KeyCombo(last().event.keyCode, last().passedFlags);
    }
    [[nodiscard]] bool isGlyphCombo() const {
        return configuration_.glyphCombo && isPressed(*configuration_.glyphCombo);
    }
    [[nodiscard]] bool mayOpenGlyphs() const { return isFreshPress() && isGlyphCombo(); }

    /// The newest entry but the last that is more than the release of a key.
    [[nodiscard]] const Entry* before() const {
        for (std::size_t i = history_.size() - 1; i-- > 0;) {
            if (history_[i].event.kind != Kind::keyUp) {
                return &history_[i];
            }
        }
        return nullptr;
    }

    [[nodiscard]] bool wasTapped(std::uint16_t keyCode, std::uint64_t down,
                                 std::uint64_t ownClass) const {
        const auto isKey = [keyCode](const Entry& entry) {
            return entry.event.kind == Kind::flagsChanged && entry.event.keyCode == keyCode;
        };
        const Entry* press = before();
        return isKey(last()) && (last().event.flags & down) == 0 && press != nullptr &&
               isKey(*press) && (press->event.flags & down) != 0 &&
               (press->event.flags & modifiers::kShortcutMask & ~ownClass) == 0 &&
               last().at - press->at < Seconds(0.35);
    }

    [[nodiscard]] bool wasHyperTapped() const {
        if (last().event.kind != Kind::keyUp || !isHyper(last().event)) {
            return false;
        }
        for (std::size_t i = history_.size() - 1; i-- > 0;) {
            const InputEvent& event = history_[i].event;
            if (isHyper(event)) {
                if (event.kind == Kind::keyUp) {
                    return false;
                }
                if (!event.isRepeat) {
                    return last().at - history_[i].at < Seconds(0.35);
                }
            } else if (event.kind == Kind::keyDown || event.kind == Kind::mouseDown) {
                return false;
            }
        }
        return false;
    }

    /// Flags change by the held Hyper key, and by nothing else.
    void checkFlags() const {
        const InputEvent& event = last().event;
        const bool isMarked = event.kind != Kind::flagsChanged && !isHyper(event) && isHyperHeld();
        const std::uint64_t expected =
            isMarked ? (event.flags & ~modifiers::kCapsLock) | modifiers::kShortcutMask
                     : event.flags;
        require(last().passedFlags == expected, "the flags of another Hyper state");
    }

    void checkSwallowing() const {
        const InputEvent& event = last().event;
        if (event.kind != Kind::keyDown && event.kind != Kind::keyUp) {
            require(last().isSwallowed == (event.kind == Kind::flagsChanged &&
                                           event.keyCode == virtualKeys::kCapsLock &&
                                           configuration_.capsLockActivates()),
                    "a click or a modifier is taken");
            return;
        }
        require(last().isSwallowed || (!last().wasTabbing && !isHyper(event)),
                "a key of a session, or Hyper, is passed on");
        if (event.kind == Kind::keyUp && history_.size() > 1) {
            checkRelease(history_[history_.size() - 2]);
        }
    }

    /// The release that follows a press at once goes where the press went, unless the press ended
    /// a session.
    void checkRelease(const Entry& press) const {
        if (press.event.kind == Kind::keyDown && press.event.keyCode == last().event.keyCode &&
            press.passedFlags == last().passedFlags && (!press.wasTabbing || last().wasTabbing)) {
            require(press.isSwallowed == last().isSwallowed, "half a key is taken");
        }
    }

    HotkeyConfiguration configuration_;
    testing::Keyboard keyboard_;
    MemoryMainLoop& loop_ = keyboard_.loop;
    MemoryEventTap& tap_ = keyboard_.tap;
    HotkeyManager& manager_ = keyboard_.manager;
    std::uint64_t flags_ = 0;
    std::vector<Entry> history_;
    const InputEvent* current_ = nullptr;
    int activations_ = 0;
    int glyphs_ = 0;
    bool isTabbing_ = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    Judge judge(configurationOf(data[0]));
    for (const std::uint8_t byte : std::span(data, size).subspan(1)) {
        judge.step(byte);
    }
    return 0;
}
