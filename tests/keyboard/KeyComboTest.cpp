#include "keyboard/keys/KeyCombo.h"

#include "base/Text.h"
#include "platform/InputEvent.h"
#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryPreferenceDomains.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

constexpr std::uint16_t kA = 0;
constexpr std::uint16_t kF5 = 96;

std::optional<KeyCombo> pressed(std::uint16_t keyCode, std::uint64_t flags) {
    return KeyCombo::fromEvent({.keyCode = keyCode, .flags = flags});
}

TEST(KeyComboTest, IsMadeOfAKeyWithMoreThanShiftOrOfAFunctionKey) {
    constexpr std::uint64_t kNoise = modifiers::kCapsLock | modifiers::kRightOptionSide | 0x800000;
    for (const std::uint64_t flag : {KeyCombo::kCommand, KeyCombo::kOption, KeyCombo::kControl}) {
        EXPECT_THAT(pressed(kA, flag | kNoise), Optional(KeyCombo(kA, flag)));
        EXPECT_THAT(pressed(kA, flag | KeyCombo::kShift),
                    Optional(KeyCombo(kA, flag | KeyCombo::kShift)));
    }
    for (const std::uint64_t flag : {std::uint64_t{0}, KeyCombo::kShift, kNoise}) {
        EXPECT_THAT(pressed(kA, flag), Eq(std::nullopt));
        EXPECT_THAT(pressed(KeyCombo::kSpaceKey, flag), Eq(std::nullopt));
        EXPECT_THAT(pressed(kF5, flag), Optional(KeyCombo(kF5, flag)));
    }
}

TEST(KeyComboTest, StoresItsKeyAndFlagsInDecimalAndParsesThemBack) {
    const KeyCombo combo(kA, KeyCombo::kCommand);
    EXPECT_EQ(combo.storageValue(), "0:1048576");
    EXPECT_THAT(KeyCombo::fromStorage("0:1048576"), Optional(combo));
    EXPECT_THAT(KeyCombo::fromStorage("65535:1966080"),
                Optional(KeyCombo(65535, KeyCombo::kModifierMask)));
}

TEST(KeyComboTest, KeepsOnlyTheFourModifiers) {
    EXPECT_THAT(KeyCombo::fromStorage("49:1179648"),
                Optional(KeyCombo(49, KeyCombo::kShift | KeyCombo::kCommand)));
    EXPECT_THAT(KeyCombo::fromStorage("49:589824"),
                Optional(KeyCombo(49, KeyCombo::kOption))); // Caps Lock
    EXPECT_EQ(KeyCombo(49, 0xFFFF'FFFF'FFE1'FFFF).modifiers(), 0U);
}

TEST(KeyComboTest, RefusesEverythingButTwoDecimalNumbers) {
    EXPECT_THAT(KeyCombo::fromStorage(""), Eq(std::nullopt));
    for (const std::string_view text : text::split(
             ":|49|49:|:1048576|x:1048576|49:1048576:5|70000:1048576|49:-1|+49:1|49:+1| 49:1|"
             "49:1 |49 :1|12:0x80000|49:1.0|49:18446744073709551616|-0:1|49,1048576|:49:1|49::1|"
             "49:1:",
             '|')) {
        EXPECT_THAT(KeyCombo::fromStorage(text), Eq(std::nullopt)) << '"' << text << '"';
    }
}

TEST(KeyComboTest, ShowsItsModifiersAsMenusDoAndItsKeyByTheLayout) {
    MemoryKeyboardLayout layout;
    const auto shown = [&](std::uint16_t keyCode, std::uint64_t flags) {
        return KeyCombo(keyCode, flags).displayString(layout);
    };
    EXPECT_EQ(shown(49, KeyCombo::kModifierMask), "⌃⌥⇧⌘Space");
    EXPECT_EQ(shown(40, KeyCombo::kShift | KeyCombo::kCommand), "⇧⌘K");
    EXPECT_EQ(shown(kF5, 0), "F5");
    EXPECT_EQ(shown(76, KeyCombo::kOption | KeyCombo::kControl), "⌃⌥⌤");
    EXPECT_EQ(shown(10, KeyCombo::kCommand), "⌘Key 10");

    layout.characters = {{kA, "q"}, {27, "ß"}, {49, "x"}, {122, "y"}, {10, "²"}};
    EXPECT_EQ(shown(kA, 0), "Q");
    EXPECT_EQ(shown(27, 0), "SS");
    EXPECT_EQ(shown(10, 0), "²");
    EXPECT_EQ(shown(49, 0), "Space") << "the tables go first";
    EXPECT_EQ(shown(122, 0), "F1") << "the tables go first";
}

class SystemShortcutTest : public testing::Test {
protected:
    static constexpr KeyCombo kCommandSpace{49, KeyCombo::kCommand};
    static constexpr KeyCombo kOptionCommandSpace{49, KeyCombo::kOption | KeyCombo::kCommand};

    void setHotkeys(PropertyValue hotkeys) {
        preferences.values[{"com.apple.symbolichotkeys", "AppleSymbolicHotKeys"}] =
            std::move(hotkeys);
    }
    std::optional<KeyCombo> hotkeyOf(PropertyDictionary entry) {
        setHotkeys(PropertyDictionary{{"64", std::move(entry)}});
        return KeyCombo::symbolicHotkey(preferences, "64", kCommandSpace);
    }
    std::optional<KeyCombo> hotkeyWith(PropertyValue parameters) {
        return hotkeyOf({{"enabled", true},
                         {"value", PropertyDictionary{{"parameters", std::move(parameters)}}}});
    }

    MemoryPreferenceDomains preferences;
};

TEST_F(SystemShortcutTest, IsTheSystemsChoiceWhereNothingUsableIsSet) {
    EXPECT_THAT(KeyCombo::symbolicHotkey(preferences, "64", kCommandSpace),
                Optional(kCommandSpace));
    for (const PropertyValue& hotkeys :
         {PropertyValue("none"), PropertyValue(PropertyDictionary{{"65", true}}),
          PropertyValue(PropertyDictionary{{"64", PropertyArray{}}})}) {
        setHotkeys(hotkeys);
        EXPECT_THAT(KeyCombo::symbolicHotkey(preferences, "64", kCommandSpace),
                    Optional(kCommandSpace));
    }
    EXPECT_THAT(hotkeyOf({{"enabled", true}}), Optional(kCommandSpace));
    EXPECT_THAT(hotkeyOf({{"enabled", true}, {"value", 1}}), Optional(kCommandSpace));
    for (const PropertyArray& parameters :
         {PropertyArray{}, PropertyArray{32, 49}, PropertyArray{65535, 65535, 0},
          PropertyArray{32, -1, 0}, PropertyArray{32, 65536, 0}, PropertyArray{32, 49, -1},
          PropertyArray{32, 49, "0"}, PropertyArray{"32", 49, 0}}) {
        EXPECT_THAT(hotkeyWith(parameters), Optional(kCommandSpace)) << parameters.size();
    }
}

TEST_F(SystemShortcutTest, IsWhatTheUserChoseOrNothingWhenSwitchedOff) {
    EXPECT_THAT(hotkeyWith(PropertyArray{97, 0, 0x10000 + 0x80000}),
                Optional(KeyCombo(kA, KeyCombo::kOption)));
    EXPECT_THAT(hotkeyWith(PropertyArray{65535, 65534, 0}), Optional(KeyCombo(65534, 0)));
    EXPECT_THAT(hotkeyOf({}), Eq(std::nullopt));
    EXPECT_THAT(hotkeyOf({{"enabled", false}}), Eq(std::nullopt));
    EXPECT_THAT(hotkeyOf({{"enabled", 1}}), Eq(std::nullopt));
}

TEST_F(SystemShortcutTest, BelongsToTheFirstFeatureThatHasIt) {
    const auto owner = [this](KeyCombo combo) { return combo.systemShortcutOwner(preferences); };
    EXPECT_THAT(owner(kCommandSpace), Optional(Eq("Spotlight")));
    EXPECT_THAT(owner(kOptionCommandSpace), Optional(Eq("Finder search")));
    EXPECT_THAT(owner(KeyCombo(49, KeyCombo::kOption)), Eq(std::nullopt));

    setHotkeys(PropertyDictionary{{"64", PropertyDictionary{{"enabled", false}}}});
    EXPECT_THAT(owner(kCommandSpace), Eq(std::nullopt));

    ASSERT_THAT(hotkeyWith(PropertyArray{32, 49, 0x180000}), Optional(kOptionCommandSpace));
    EXPECT_THAT(owner(kOptionCommandSpace), Optional(Eq("Spotlight")));
    EXPECT_THAT(owner(kCommandSpace), Eq(std::nullopt));
}

} // namespace
} // namespace pello
