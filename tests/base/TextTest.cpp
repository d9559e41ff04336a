#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello::text {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A scalar of the Basic Multilingual Plane in UTF-8.
std::string utf8(char32_t scalar) {
    const auto byte = [](char32_t value) { return static_cast<char>(value); };
    if (scalar < 0x80) {
        return {byte(scalar)};
    }
    if (scalar < 0x800) {
        return {byte(0xC0 | (scalar >> 6)), byte(0x80 | (scalar & 0x3F))};
    }
    return {byte(0xE0 | (scalar >> 12)), byte(0x80 | ((scalar >> 6) & 0x3F)),
            byte(0x80 | (scalar & 0x3F))};
}

TEST(TextTest, ACharacterIsWhatAReaderSeesAsOne) {
    EXPECT_THAT(characters("ab"), ElementsAre("a", "b"));
    EXPECT_THAT(characters("e\u0301x"), ElementsAre("e\u0301", "x"));
    EXPECT_THAT(characters("👩‍👩‍👧🇩🇪"), ElementsAre("👩‍👩‍👧", "🇩🇪"));
    EXPECT_THAT(characters("a\r\nb"), ElementsAre("a", "\r\n", "b"));
    EXPECT_THAT(characters("a\rb"), ElementsAre("a", "\r", "b"));
    EXPECT_THAT(characters(""), IsEmpty());
    EXPECT_EQ(characterCount("n\u0303u"), 2U);
}

TEST(TextTest, TextsOfPlainScalarsAreSplitAsAllOthersAre) {
    // Scripts whose scalars never join are split without the Unicode rules. A combining mark at
    // the end makes the same text go by the rules.
    for (const auto& [first, last] : {std::pair<char32_t, char32_t>{0x20, 0x2FF},
                                      {0x370, 0x482},
                                      {0x48A, 0x590},
                                      {0x1E00, 0x200A},
                                      {0x2010, 0x2027},
                                      {0x3041, 0x3096},
                                      {0x309B, 0x30FF},
                                      {0x3400, 0x9FFF},
                                      {0xAC00, 0xD7A3}}) {
        std::string plain;
        for (char32_t scalar = first; scalar <= last; ++scalar) {
            plain += utf8(scalar);
        }
        EXPECT_EQ(characterCount(plain), last - first + 1);
        EXPECT_EQ(characterCount(plain + "\u0301"), last - first + 1);
    }
}

TEST(TextTest, ACharacterOfOneComposedScalarIsThatScalar) {
    EXPECT_EQ(composedScalar("a"), U'a');
    EXPECT_EQ(composedScalar("é"), U'é');
    EXPECT_EQ(composedScalar("e\u0301"), U'é');
    EXPECT_EQ(composedScalar("\u212B"), U'Å');
    EXPECT_EQ(composedScalar("\u0958"), std::nullopt) << "composed form takes it apart";
    EXPECT_EQ(composedScalar("x\u0301"), std::nullopt);
    EXPECT_EQ(composedScalar("\r\n"), std::nullopt);
    EXPECT_EQ(composedScalar(""), std::nullopt);
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
    EXPECT_TRUE(isSameCharacter("\xFF", "\uFFFD")) << "as malformed bytes read";
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
    EXPECT_TRUE(isShownAsEmoji("😌"));
    EXPECT_TRUE(isShownAsEmoji("☝\uFE0F"));
    EXPECT_FALSE(isShownAsEmoji("☝")) << "a text character by default";
    EXPECT_FALSE(isShownAsEmoji("⌘"));
    EXPECT_FALSE(isShownAsEmoji(""));
    EXPECT_TRUE(containsLetterOrNumber("--7--"));
    EXPECT_FALSE(containsLetterOrNumber("…—"));
}

TEST(TextTest, SplittingDropsEmptyPieces) {
    EXPECT_THAT(split("com.example..Editor.", '.'), ElementsAre("com", "example", "Editor"));
    EXPECT_THAT(split("::", ':'), IsEmpty());
    EXPECT_THAT(split("", ':'), IsEmpty());
}

TEST(TextTest, WordsStandBetweenWhiteSpaceOfAnyKind) {
    EXPECT_THAT(words("5 km\tto\u2009mi"), ElementsAre("5", "km", "to", "mi"));
    EXPECT_THAT(words("\r\n one\u0301  \u00A0two "), ElementsAre("one\u0301", "two"));
    EXPECT_THAT(words(" \n"), IsEmpty());
    EXPECT_THAT(words(""), IsEmpty());
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
