#include "keyboard/keys/KeyCombo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

TEST(KeyComboTest, StoresItsKeyAndFlagsInDecimalAndParsesThemBack) {
    const KeyCombo combo(0, KeyCombo::kCommand);
    EXPECT_EQ(combo.storageValue(), "0:1048576");
    EXPECT_THAT(KeyCombo::fromStorage("0:1048576"), Optional(combo));
    EXPECT_THAT(KeyCombo::fromStorage("65535:1966080"),
                Optional(KeyCombo(65535, KeyCombo::kModifierMask)));
}

TEST(KeyComboTest, KeepsOnlyTheFourModifiers) {
    EXPECT_THAT(KeyCombo::fromStorage("49:1179648"),
                Optional(KeyCombo(49, KeyCombo::kShift | KeyCombo::kCommand)));
    EXPECT_EQ(KeyCombo::fromStorage("49:589824")->storageValue(), "49:524288"); // Caps Lock
    EXPECT_EQ(KeyCombo(49, 0xFFFF'FFFF'FFE1'FFFF).modifiers(), 0U);
}

TEST(KeyComboTest, RefusesEverythingButTwoDecimalNumbers) {
    for (const char* text :
         {"", ":", "49", "49:", ":1048576", "x:1048576", "49:1048576:5", "70000:1048576", "49:-1",
          "+49:1", "49:+1", " 49:1", "49:1 ", "49 :1", "12:0x80000", "49:1.0",
          "49:18446744073709551616", "-0:1", "49,1048576"}) {
        EXPECT_THAT(KeyCombo::fromStorage(text), Eq(std::nullopt)) << '"' << text << '"';
    }
}

} // namespace
} // namespace pello
