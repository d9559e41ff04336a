#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello::text {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextTest, ACharacterIsWhatAReaderSeesAsOne) {
    EXPECT_THAT(characters("ab"), ElementsAre("a", "b"));
    EXPECT_THAT(characters("e\u0301x"), ElementsAre("e\u0301", "x"));
    EXPECT_THAT(characters("👩‍👩‍👧🇩🇪"), ElementsAre("👩‍👩‍👧", "🇩🇪"));
    EXPECT_THAT(characters("a\r\nb"), ElementsAre("a", "\r\n", "b"));
    EXPECT_THAT(characters("a\rb"), ElementsAre("a", "\r", "b"));
    EXPECT_THAT(characters(""), IsEmpty());
    EXPECT_EQ(characterCount("n\u0303u"), 2U);
}

TEST(TextTest, DroppingCharactersKeepsTheRestWhole) {
    EXPECT_EQ(droppingFirst("Safari", 3), "ari");
    EXPECT_EQ(droppingFirst("e\u0301te\u0301", 1), "te\u0301");
    EXPECT_EQ(droppingFirst("ab", 2), "");
    EXPECT_EQ(droppingFirst("ab", 9), "");
    EXPECT_EQ(droppingFirst("ab", 0), "ab");
}

TEST(TextTest, CaseMapsTheWholeString) {
    EXPECT_EQ(lowercased("FooBar"), "foobar");
    EXPECT_EQ(lowercased("ΟΔΟΣ"), "οδος") << "the last sigma is a final one";
    EXPECT_EQ(lowercased("İ"), "i\u0307");
    EXPECT_EQ(lowercased("\u212A"), "k") << "the Kelvin sign";
    EXPECT_EQ(uppercased("straße"), "STRASSE");
    EXPECT_EQ(lowercased("I"), "i") << "whatever the locale";
}

TEST(TextTest, CanonicallyEquivalentCharactersAreTheSame) {
    EXPECT_TRUE(isSameCharacter("é", "e\u0301"));
    EXPECT_TRUE(isSameCharacter("\u212B", "Å"));
    EXPECT_FALSE(isSameCharacter("e", "é"));
    EXPECT_FALSE(isSameCharacter("ﬁ", "fi")) << "compatible is not equivalent";
}

TEST(TextTest, TrimmingTakesTheNamedSetOnly) {
    EXPECT_EQ(trimmingBlanks(" \t\u00A0\u3000x y \t"), "x y");
    EXPECT_EQ(trimmingBlanks("\nx\n"), "\nx\n") << "line breaks are not blanks";
    EXPECT_EQ(trimmingBlanks("\u200Ex"), "\u200Ex");
    EXPECT_EQ(trimmingBlanks(" \t "), "");
    EXPECT_EQ(trimmingWhitespaceAndControls("\u200E\n\x01 Name\r\n\u200F"), "Name");
    EXPECT_TRUE(isBlank(" \u2003\t"));
    EXPECT_FALSE(isBlank("\n"));
}

TEST(TextTest, WhitespaceIsDroppedByCharacter) {
    EXPECT_EQ(droppingWhitespace(" a b\tc\nd\u00A0"), "abcd");
    EXPECT_EQ(droppingWhitespace("\u0600 x"), "\u0600 x") << "a prefix joined with its space";
    EXPECT_TRUE(containsWhitespace("a\u2009b"));
    EXPECT_FALSE(containsWhitespace("ab"));
}

TEST(TextTest, CaseOfACharacterOfSeveralScalarsIsByMapping) {
    EXPECT_TRUE(isLowercase("a"));
    EXPECT_TRUE(isLowercase("ª")) << "lowercase by property, without a mapping";
    EXPECT_TRUE(isUppercase("Ⅷ")) << "a Roman numeral";
    EXPECT_FALSE(isUppercase("ǅ")) << "title case is neither";
    EXPECT_FALSE(isLowercase("ǅ"));
    EXPECT_TRUE(isLowercase("e\u0301"));
    EXPECT_TRUE(isUppercase("E\u0301"));
    EXPECT_FALSE(isLowercase("한"));
    EXPECT_FALSE(isLowercase(""));
}

TEST(TextTest, LettersAndNumbersByTheFirstScalar) {
    EXPECT_TRUE(isLetter("e\u0301"));
    EXPECT_TRUE(isLetter("漢"));
    EXPECT_FALSE(isLetter("1"));
    EXPECT_TRUE(isNumber("٣"));
    EXPECT_TRUE(isNumber("½"));
    EXPECT_FALSE(isNumber("a"));
    EXPECT_TRUE(containsLetterOrNumber("--7--"));
    EXPECT_FALSE(containsLetterOrNumber("…—"));
}

TEST(TextTest, SplittingDropsEmptyPieces) {
    EXPECT_THAT(split("com.example..Editor.", '.'), ElementsAre("com", "example", "Editor"));
    EXPECT_THAT(split("::", ':'), IsEmpty());
    EXPECT_THAT(split("", ':'), IsEmpty());
}

TEST(TextTest, MalformedBytesNeverBreakAnything) {
    EXPECT_EQ(wellFormed("a\xFF"
                         "b\xE2\x82"),
              "a\uFFFDb\uFFFD");
    EXPECT_EQ(characterCount("\xF0\x9F"), 1U);
    EXPECT_EQ(lowercased("\xC3X"), "\xC3x") << "kept as it is";
    EXPECT_EQ(trimmingBlanks(" \x80 "), "\x80");
}

} // namespace
} // namespace pello::text
