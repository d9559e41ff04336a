#include "support/AllocationCount.h"
#include "support/KeyTrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace pello {
namespace {

using ::testing::ElementsAre;
using testing::keyCodeOf;
using testing::play;

const HotkeyConfiguration rightCommand{.activation = Activation::rightCommand};
const HotkeyConfiguration rightOption{.activation = Activation::rightOption};
const HotkeyConfiguration rightControl{.activation = Activation::rightControl};
const HotkeyConfiguration capsLock{.activation = Activation::capsLock};
const HotkeyConfiguration hyper{.activation = Activation::capsLock, .hyperEnabled = true};
const HotkeyConfiguration commandTab{.activation = Activation::rightCommand,
                                     .replacesCommandTab = true};

HotkeyConfiguration keyCombo(std::uint64_t flags, std::string_view key) {
    return {.activation = Activation::keyCombo, .combo = KeyCombo(keyCodeOf(key), flags)};
}
HotkeyConfiguration withGlyphs(HotkeyConfiguration configuration, std::uint64_t flags,
                               std::string_view key) {
    configuration.glyphCombo = KeyCombo(keyCodeOf(key), flags);
    return configuration;
}
const HotkeyConfiguration optionSpace = keyCombo(KeyCombo::kOption, "space");

TEST(ModifierTapTest, FiresOnAShortPressAndRelease) {
    EXPECT_EQ(play(rightCommand, "d:rcmd t:200 u:rcmd"), "activate");
    EXPECT_EQ(play(rightCommand, "d:rcmd t:349 u:rcmd"), "activate");
    EXPECT_EQ(play(rightCommand, "d:rcmd t:350 u:rcmd"), "");
    EXPECT_EQ(play(rightCommand, "p:rcmd p:rcmd"), "activate activate");
    EXPECT_EQ(play(rightOption, "p:rcmd p:ropt p:rctl"), "activate");
    EXPECT_EQ(play(rightControl, "p:lctl p:rctl p:ropt"), "activate");
    EXPECT_EQ(play(optionSpace, "p:rcmd p:ropt p:rctl p:caps"), "⇪caps");
    EXPECT_EQ(play(rightCommand, "u:rcmd p:lcmd"), "");
}

TEST(ModifierTapTest, IsSpoiltByEverythingElseBetweenPressAndRelease) {
    EXPECT_EQ(play(rightCommand, "d:rcmd d:c u:c u:rcmd"), "d:⌘c u:⌘c");
    EXPECT_EQ(play(rightCommand, "d:rcmd click u:rcmd"), "⌘click");
    EXPECT_EQ(play(rightCommand, "d:rcmd p:lsh u:rcmd"), "");
    EXPECT_EQ(play(rightCommand, "d:rcmd p:lcmd u:rcmd"), "");
    EXPECT_EQ(play(rightCommand, "d:rcmd p:caps u:rcmd"), "⇪⌘caps");
    EXPECT_EQ(play(rightCommand, "d:c d:rcmd u:c u:rcmd"), "d:c u:⌘c activate")
        << "releases spoil nothing";

    // Presses that the listener swallows count as well.
    EXPECT_EQ(play(withGlyphs(rightCommand, KeyCombo::kCommand, "e"), "d:rcmd p:e u:rcmd"),
              "glyphs");
    HotkeyConfiguration hyperBeside = rightCommand;
    hyperBeside.hyperEnabled = true;
    EXPECT_EQ(play(hyperBeside, "d:rcmd p:hyper u:rcmd"), "");
    EXPECT_EQ(play(commandTab, "d:rcmd p:tab u:rcmd"), "advance+1 commit");
}

TEST(ModifierTapTest, NeedsTheKeyAloneButForItsOwnClass) {
    for (const char* other : {"lsh", "rsh", "lopt", "ropt", "lctl", "rctl"}) {
        const std::string name = other;
        EXPECT_EQ(play(rightCommand, "d:" + name + " p:rcmd u:" + name), "") << name;
    }
    EXPECT_EQ(play(rightCommand, "d:lcmd p:rcmd u:lcmd"), "activate");
    EXPECT_EQ(play(rightOption, "d:lopt p:ropt u:lopt"), "activate");
    EXPECT_EQ(play(rightOption, "d:lcmd p:ropt u:lcmd"), "");
    EXPECT_EQ(play(rightCommand, "p:caps p:rcmd"), "⇪caps activate") << "a lock is not held";
}

TEST(CapsLockTest, FiresOnEachPressAndStaysOff) {
    testing::Keyboard keyboard(capsLock);
    EXPECT_EQ(keyboard.play("d:caps"), "activate");
    EXPECT_EQ(keyboard.play("t:1000 u:caps p:a"), "d:a u:a");
    EXPECT_EQ(keyboard.play("d:lsh p:caps u:lsh d:a p:caps"), "activate d:a activate");
    EXPECT_EQ(keyboard.tap.capsLockResets, 3);
    EXPECT_EQ(keyboard.play("p:rcmd"), "");
}

TEST(CapsLockTest, IsLeftAloneInOtherModes) {
    testing::Keyboard keyboard(rightCommand);
    EXPECT_EQ(keyboard.play("p:caps p:a p:caps"), "⇪caps d:⇪a u:⇪a caps");
    EXPECT_EQ(keyboard.tap.capsLockResets, 0);
}

TEST(HyperTest, FiresOnALoneTap) {
    EXPECT_EQ(play(hyper, "d:hyper t:349 u:hyper"), "activate");
    EXPECT_EQ(play(hyper, "d:hyper t:350 u:hyper"), "");
    EXPECT_EQ(play(hyper, "d:hyper t:300 r:hyper t:49 r:hyper u:hyper"), "activate");
    EXPECT_EQ(play(hyper, "d:hyper t:300 r:hyper t:100 u:hyper"), "");
    EXPECT_EQ(play(hyper, "u:hyper r:hyper u:hyper p:a"), "d:a u:a");
    EXPECT_EQ(play(hyper, "d:hyper t:900 p:hyper"), "activate") << "its release was missed";

    HotkeyConfiguration hyperBeside = rightCommand;
    hyperBeside.hyperEnabled = true;
    EXPECT_EQ(play(hyperBeside, "p:hyper"), "");
    EXPECT_EQ(play(capsLock, "p:hyper"), "d:hyper u:hyper") << "is an ordinary key";
}

TEST(HyperTest, GivesItsModifiersToKeysAndClicks) {
    EXPECT_EQ(play(hyper, "d:hyper d:a r:a u:a u:hyper p:a"), "d:⌃⌥⇧⌘a r:⌃⌥⇧⌘a u:⌃⌥⇧⌘a d:a u:a");
    EXPECT_EQ(play(hyper, "d:hyper click u:hyper click"), "⌃⌥⇧⌘click click");
    EXPECT_EQ(play(hyper, "d:a d:hyper u:a u:hyper"), "d:a u:⌃⌥⇧⌘a activate")
        << "a release is no use of it";
    EXPECT_EQ(play(rightCommand, "p:caps p:hyper"), "⇪caps d:⇪hyper u:⇪hyper");

    testing::Keyboard locked(hyper);
    EXPECT_EQ(locked.play("p:caps d:lsh d:hyper p:a u:hyper u:lsh"), "⇪caps d:⌃⌥⇧⌘a u:⌃⌥⇧⌘a");
}

TEST(HyperTest, ReachesCombosAndCommandTab) {
    HotkeyConfiguration combo = keyCombo(KeyCombo::kModifierMask, "space");
    combo.hyperEnabled = true;
    EXPECT_EQ(play(combo, "d:hyper p:space u:hyper p:space"), "activate d:space u:space");
    EXPECT_EQ(play(withGlyphs(hyper, KeyCombo::kModifierMask, "e"), "d:hyper p:e u:hyper"),
              "glyphs");
    HotkeyConfiguration tabbing = hyper;
    tabbing.replacesCommandTab = true;
    EXPECT_EQ(play(tabbing, "d:hyper p:tab u:hyper"), "d:⌃⌥⇧⌘tab u:⌃⌥⇧⌘tab")
        << "Control and Option are no Command-Tab";
    EXPECT_EQ(play(tabbing, "d:lcmd p:tab d:hyper p:tab u:hyper u:lcmd"),
              "advance+1 advance-1 commit");
}

TEST(KeyComboActivationTest, FiresOnceAndTakesTheKeyWhileTheComboIsHeld) {
    EXPECT_EQ(play(optionSpace, "d:lopt d:space r:space r:space u:space u:lopt"), "activate");
    EXPECT_EQ(play(optionSpace, "p:caps d:ropt p:space u:ropt"), "⇪caps activate");
    EXPECT_EQ(play(optionSpace, "p:space d:lopt d:lsh p:space u:lsh p:a u:lopt"),
              "d:space u:space d:⌥⇧space u:⌥⇧space d:⌥a u:⌥a");
    EXPECT_EQ(play(optionSpace, "d:lopt d:space u:lopt u:space"), "activate u:space")
        << "without its modifiers a release is an ordinary one";
    EXPECT_EQ(play(keyCombo(0, "f5"), "p:f5 d:lsh p:f5"), "activate d:⇧f5 u:⇧f5");
    HotkeyConfiguration off = optionSpace;
    off.activation = Activation::rightCommand;
    EXPECT_EQ(play(off, "d:lopt p:space"), "d:⌥space u:⌥space");
}

TEST(KeyComboActivationTest, YieldsToTheGlyphCombo) {
    const auto same = withGlyphs(optionSpace, KeyCombo::kOption, "space");
    EXPECT_EQ(play(same, "d:lopt d:space r:space u:space"), "glyphs");
    EXPECT_EQ(play(withGlyphs(optionSpace, KeyCombo::kOption, "e"), "d:lopt p:e p:space"),
              "glyphs activate");
}

TEST(CommandTabTest, StepsChoosesAndCommitsOnRelease) {
    EXPECT_EQ(play(commandTab, "d:lcmd d:tab r:tab u:tab d:lsh p:tab u:lsh p:left p:right u:lcmd"),
              "advance+1 advance+1 advance-1 advance-1 advance+1 commit");
    EXPECT_EQ(play(commandTab, "d:lcmd d:lsh d:tab u:lcmd u:tab"), "advance-1 commit u:⇧tab");
    EXPECT_EQ(play(commandTab, "d:lcmd p:tab p:1 p:2 p:3 p:4 p:5 p:6 p:7 p:8 d:9 r:9 p:0 p:pad1"),
              "advance+1 choose1 choose2 choose3 choose4 choose5 choose6 choose7 choose8 choose9 "
              "choose9");
    EXPECT_EQ(play(commandTab, "d:lcmd d:rcmd p:tab u:lcmd t:100 p:x click u:rcmd p:x"),
              "advance+1 ⌘click commit d:x u:x")
        << "either Command key holds it, every key is taken";
}

TEST(CommandTabTest, QuitsSearchesAndCancelsByKey) {
    EXPECT_EQ(play(commandTab, "d:lcmd p:tab d:q r:q u:q p:esc p:a u:lcmd"),
              "advance+1 quit cancel u:⌘esc d:⌘a u:⌘a");
    EXPECT_EQ(play(commandTab, "d:lcmd d:tab p:esc u:tab u:lcmd"), "advance+1 cancel u:⌘esc");
    EXPECT_EQ(play(commandTab, "d:lcmd p:tab r:k d:k u:k u:lcmd"), "advance+1 windows u:⌘k");

    testing::Keyboard french(commandTab);
    french.layout.characters[keyCodeOf("a")] = "Q";
    french.layout.characters[keyCodeOf("q")] = "a";
    EXPECT_EQ(french.play("d:lcmd p:tab p:q p:a u:lcmd"), "advance+1 quit commit");
}

TEST(CommandTabTest, BeginsWithTabAndCommandButNotControlOrOption) {
    EXPECT_EQ(play(commandTab, "p:tab d:lctl d:lcmd p:tab u:lctl d:lopt p:tab"),
              "d:tab u:tab d:⌃⌘tab u:⌃⌘tab d:⌥⌘tab u:⌥⌘tab");
    EXPECT_EQ(play(rightCommand, "d:lcmd p:tab u:lcmd"), "d:⌘tab u:⌘tab");
    EXPECT_EQ(play(withGlyphs(commandTab, KeyCombo::kCommand, "tab"), "d:lcmd p:tab u:lcmd"),
              "glyphs");
}

TEST(CommandTabTest, HoldsTheKeyboardForTheSessionAndSaysSo) {
    testing::Keyboard keyboard(commandTab);
    keyboard.newLog();
    EXPECT_FALSE(keyboard.tap.isKeyboardHeld);
    keyboard.play("d:lcmd d:tab r:tab");
    EXPECT_TRUE(keyboard.tap.isKeyboardHeld);
    keyboard.play("u:lcmd");
    EXPECT_FALSE(keyboard.tap.isKeyboardHeld);
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: ⌘⇥ intercepted"));
}

TEST(CommandTabTest, CommitsSoonAfterAMissedRelease) {
    testing::Keyboard keyboard(commandTab);
    EXPECT_EQ(keyboard.play("d:lcmd p:tab t:500"), "advance+1");
    EXPECT_EQ(keyboard.play("lost:lcmd t:49"), "");
    EXPECT_EQ(keyboard.play("t:1"), "commit");
    EXPECT_EQ(keyboard.play("t:1000 p:rcmd p:a"), "activate d:a u:a");
}

TEST(CommandTabTest, TakesItsKeysWithoutAListenerToo) {
    testing::Keyboard keyboard(commandTab);
    keyboard.manager.onCommandTab = nullptr;
    EXPECT_EQ(keyboard.play("d:lcmd p:tab p:q p:3 p:a u:lcmd p:a"), "d:a u:a");
}

TEST(KeyGesturesTest, AllocatesNothingOnTheWayOfAKeystroke) {
    testing::Keyboard keyboard(withGlyphs(hyper, KeyCombo::kOption, "e"));
    using Kind = InputEvent::Kind;
    auto events = std::to_array<InputEvent>(
        {{.kind = Kind::keyDown, .keyCode = virtualKeys::kHyper},
         {.kind = Kind::keyDown, .keyCode = 0},
         {.kind = Kind::keyUp, .keyCode = 0},
         {.kind = Kind::mouseDown},
         {.kind = Kind::keyUp, .keyCode = virtualKeys::kHyper},
         {.kind = Kind::flagsChanged, .keyCode = 57, .flags = modifiers::kCapsLock},
         {.kind = Kind::keyDown, .keyCode = 48, .flags = modifiers::kCommand}});
    const std::size_t before = testing::allocationCount();
    for (InputEvent& event : events) {
        static_cast<void>(keyboard.manager.handle(event));
    }
    EXPECT_EQ(testing::allocationCount() - before, 0U);
}

} // namespace
} // namespace pello
