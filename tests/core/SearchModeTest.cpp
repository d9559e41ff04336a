#include "core/controller/SearchMode.h"

#include "core/controller/Completion.h"

#include <gtest/gtest.h>

namespace pello {
namespace {

using Kind = SearchMode::Kind;

SearchMode mode(Kind kind, const char* text) {
    return {.kind = kind, .text = text};
}

TEST(SearchModeTest, WindowsAfterWAndAnyDoubleQuotationMark) {
    EXPECT_EQ(SearchMode::of("w\"safari"), mode(Kind::windows, "safari"));
    EXPECT_EQ(SearchMode::of("w\u201C safari "), mode(Kind::windows, "safari"));
    EXPECT_EQ(SearchMode::of("w\u201D"), mode(Kind::windows, ""));
    EXPECT_EQ(SearchMode::of("w safari"), mode(Kind::normal, "w safari"));
    EXPECT_EQ(SearchMode::of("W\"safari"), mode(Kind::normal, "W\"safari"));
}

TEST(SearchModeTest, GlyphsAfterAColonOrAWordAndOneSpace) {
    EXPECT_EQ(SearchMode::of(":fire"), mode(Kind::glyphs, "fire"));
    EXPECT_EQ(SearchMode::of(": fire"), mode(Kind::glyphs, "fire"));
    EXPECT_EQ(SearchMode::of("emoji  fire"), mode(Kind::glyphs, "fire"));
    EXPECT_EQ(SearchMode::of("key up"), mode(Kind::glyphs, "up"));
    EXPECT_EQ(SearchMode::of("keyup"), mode(Kind::normal, "keyup"));
    EXPECT_EQ(SearchMode::of(" :fire"), mode(Kind::normal, " :fire"));
}

TEST(CompletionTest, IsWhatTheTitleHasBeyondTheQuery) {
    EXPECT_EQ(completion("saf", "Safari"), "ari");
    EXPECT_EQ(completion("SAFARI B", "Safari Books"), "ooks");
    EXPECT_EQ(completion("", "Safari"), std::nullopt);
    EXPECT_EQ(completion("safari", "Safari"), std::nullopt);
    EXPECT_EQ(completion("far", "Safari"), std::nullopt);
}

TEST(CompletionTest, ComparesCharactersNotBytes) {
    EXPECT_EQ(completion("e\u0301", "Écran"), "cran") << "composed and decomposed are the same";
    EXPECT_EQ(completion("e", "e\u0301cran"), std::nullopt) << "half a character is none";
    EXPECT_EQ(completion("👩", "👩‍👩‍👧 Family"), std::nullopt);
}

} // namespace
} // namespace pello
