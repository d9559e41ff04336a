#include "platform/linux/X11KeyStream.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace pello {
namespace {

constexpr xcb_keycode_t kA = 38;
constexpr xcb_keycode_t kSpace = 65;
constexpr xcb_keycode_t kTab = 23;
constexpr xcb_keycode_t kCaps = 66;
constexpr xcb_keycode_t kF18 = 196;
constexpr xcb_keycode_t kVolumeUpOnLaptops = 233;
constexpr xcb_keycode_t kLeftAlt = 64;
constexpr xcb_keycode_t kRightSuper = 134;
constexpr std::uint8_t kAlt = XCB_MOD_MASK_1;
constexpr std::uint8_t kSuper = XCB_MOD_MASK_4;
constexpr std::uint8_t kHyper = kAlt | kSuper | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL;

/// What the handler is told, in words: "d49" is a press, "r49" a repeat, "u49" a release, "f54:⌘r"
/// a change of modifiers with those that are set then, "m" a click; "-" stands for keys without
/// code.
class X11KeyStreamTest : public testing::Test {
protected:
    X11KeyStreamTest() { stream_.begin(map_, {}); }

    std::string told() { return std::exchange(told_, {}); }

    void note(const InputEvent& event) {
        using Kind = InputEvent::Kind;
        told_ += told_.empty() ? "" : " ";
        const std::string code =
            event.keyCode == virtualKeys::kNone ? "-" : std::to_string(event.keyCode);
        switch (event.kind) {
        case Kind::keyDown:
            told_ += (event.isRepeat ? "r" : "d") + code + modifiersIn(event.flags);
            break;
        case Kind::keyUp:
            told_ += "u" + code;
            break;
        case Kind::flagsChanged:
            told_ += "f" + code + ":" + modifiersIn(event.flags);
            break;
        default:
            told_ += "m";
        }
    }

    static std::string modifiersIn(std::uint64_t flags) {
        std::string text;
        text += (flags & modifiers::kControl) != 0 ? "⌃" : "";
        text += (flags & modifiers::kOption) != 0 ? "⌥" : "";
        text += (flags & modifiers::kShift) != 0 ? "⇧" : "";
        text += (flags & modifiers::kCommand) != 0 ? "⌘" : "";
        text += (flags & modifiers::kCapsLock) != 0 ? "⇪" : "";
        text += (flags & modifiers::kRightCommandSide) != 0 ? "r" : "";
        return text;
    }

    X11KeyStream::Map map_;
    std::string told_;
    X11KeyStream stream_{
        {.combos = {{virtualKeys::kSpace, modifiers::kOption}}, .takesCommandTab = true},
        [this](InputEvent& event) {
            note(event);
            return false;
        }};
};

TEST_F(X11KeyStreamTest, RawEventsTellOfKeysThatNobodyGrabs) {
    stream_.rawPress(kA);
    stream_.rawRelease(kA);
    stream_.buttonPress();
    stream_.rawPress(kVolumeUpOnLaptops);
    stream_.rawRelease(kVolumeUpOnLaptops);
    stream_.rawRelease(kA);
    EXPECT_EQ(told(), "d0 u0 m d- u-");
}

TEST_F(X11KeyStreamTest, ModifiersShowInFlagsAsTheyAreAfterTheChange) {
    stream_.rawPress(kRightSuper);
    stream_.setModifiers(kSuper, 0);
    stream_.rawPress(kLeftAlt);
    stream_.setModifiers(kSuper | kAlt, 0);
    stream_.rawRelease(kRightSuper);
    stream_.setModifiers(kAlt, 0);
    stream_.rawRelease(kLeftAlt);
    EXPECT_EQ(told(), "f54:⌘r f58:⌥⌘r f54:⌥ f58:");
}

TEST_F(X11KeyStreamTest, AGrabsEventStandsForTheRawOneOfTheSameKey) {
    stream_.setModifiers(kAlt, 0);
    stream_.rawPress(kSpace);
    EXPECT_EQ(told(), "");
    stream_.grabbedPress(kSpace, kAlt, false);
    stream_.grabbedPress(kSpace, kAlt, true);
    stream_.rawRelease(kSpace);
    stream_.grabbedRelease(kSpace, kAlt);
    EXPECT_EQ(told(), "d49⌥ r49⌥ u49");
}

TEST_F(X11KeyStreamTest, ACombosPressThatSomebodyElseGotOnlyCountsAsSomeKey) {
    stream_.setModifiers(kAlt, 0);
    stream_.rawPress(kSpace);
    stream_.rawRelease(kSpace);
    EXPECT_EQ(told(), "d-⌥ u-");
    stream_.rawPress(kSpace);
    stream_.buttonPress();
    EXPECT_EQ(told(), "d-⌥ m");
}

TEST_F(X11KeyStreamTest, OtherKeysUnderAnActiveGrabAreToldOfOnce) {
    stream_.setModifiers(kAlt, 0);
    stream_.rawPress(kSpace);
    stream_.grabbedPress(kSpace, kAlt, false);
    stream_.rawPress(kA);
    stream_.grabbedPress(kA, kAlt, false);
    stream_.rawRelease(kA);
    stream_.grabbedRelease(kA, kAlt);
    EXPECT_EQ(told(), "d49⌥ d0⌥ u0");
}

TEST_F(X11KeyStreamTest, WhileTheKeyboardIsHeldEveryKeyIsToldOfByTheGrab) {
    stream_.setModifiers(kSuper, 0);
    stream_.rawPress(kTab);
    stream_.grabbedPress(kTab, kSuper, false);
    stream_.setHolding(true);
    stream_.rawPress(kA);
    stream_.grabbedPress(kA, kSuper, false);
    stream_.rawRelease(kA);
    stream_.grabbedRelease(kA, kSuper);
    stream_.setHolding(false);
    stream_.rawRelease(kTab);
    stream_.rawPress(kA);
    EXPECT_EQ(told(), "d48⌘ d0⌘ u0 u48 d0⌘");
}

TEST_F(X11KeyStreamTest, WhatWasMissedIsToldOfLateAndSpoilsTaps) {
    stream_.rawPress(kRightSuper);
    stream_.setModifiers(kSuper, 0);
    stream_.rawPress(kA);
    static_cast<void>(told());
    stream_.resynchronise({.modifiers = 0, .locked = 0, .down = {}});
    EXPECT_EQ(told(), "d-r u- f54: u0");
    stream_.resynchronise({});
    EXPECT_EQ(told(), "");
    stream_.rawRelease(kA);
    EXPECT_EQ(told(), "") << "it was told of already";

    X11KeyStream::State held;
    held.down.set(kRightSuper);
    held.modifiers = kSuper;
    stream_.resynchronise(held);
    stream_.rawRelease(kRightSuper);
    EXPECT_EQ(told(), "f54:") << "what was pressed unseen shows when it is released";
}

TEST_F(X11KeyStreamTest, NothingIsToldAfterTheEnd) {
    stream_.rawPress(kA);
    stream_.end();
    stream_.resynchronise({});
    EXPECT_EQ(told(), "d0");
}

TEST_F(X11KeyStreamTest, CapsLockTellsOfTheLockItPutsOn) {
    stream_.rawPress(kCaps);
    stream_.setModifiers(XCB_MOD_MASK_LOCK, XCB_MOD_MASK_LOCK);
    stream_.rawRelease(kCaps);
    stream_.rawPress(kCaps);
    EXPECT_EQ(told(), "f57:⇪ f57:");
    map_.doesCapsLockLock = false;
    stream_.setMap(map_);
    stream_.setModifiers(0, 0);
    stream_.rawPress(kCaps);
    EXPECT_EQ(told(), "f57:") << "it is some other key";
}

class HyperStreamTest : public X11KeyStreamTest {
protected:
    HyperStreamTest() {
        map_.isCapsLockHyper = true;
        hyper_.begin(map_, {});
    }

    X11KeyStream hyper_{{.isHyperOn = true}, [this](InputEvent& event) {
                            note(event);
                            return false;
                        }};
};

TEST_F(HyperStreamTest, CapsLockComesAsTheHyperKeyAndNothingElseDoes) {
    hyper_.rawPress(kCaps);
    hyper_.setModifiers(kHyper, 0);
    hyper_.rawPress(kA);
    hyper_.rawRelease(kA);
    hyper_.rawRelease(kCaps);
    hyper_.setModifiers(0, 0);
    hyper_.rawPress(kF18);
    EXPECT_EQ(told(), "d79 d0⌃⌥⇧⌘ u0 u79 d-");
}

TEST_F(HyperStreamTest, ALostReleaseIsMadeUpForEvenWhenTheMapWasReplaced) {
    hyper_.rawPress(kCaps);
    map_.isCapsLockHyper = false;
    hyper_.setMap(map_);
    hyper_.rawRelease(kCaps);
    EXPECT_EQ(told(), "d79 u79");
    hyper_.rawPress(kCaps);
    EXPECT_EQ(told(), "f57:⇪");
}

} // namespace
} // namespace pello
