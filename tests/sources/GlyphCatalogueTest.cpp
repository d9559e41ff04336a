#include "sources/GlyphCatalogue.h"

#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class GlyphCatalogueTest : public testing::Test {
protected:
    GlyphCatalogueTest() {
        catalogue.prepare();
        loop.settle();
    }

    /// The glyph that a row stands for.
    static std::string glyph(const LaunchItem& item) {
        return std::get<LaunchItem::TextIcon>(item.icon).text;
    }

    [[nodiscard]] std::vector<std::string> found(std::string_view text) const {
        std::vector<std::string> glyphs;
        for (const SearchResult& row : catalogue.results(text, usage)) {
            glyphs.push_back(glyph(*row.item));
        }
        return glyphs;
    }

    [[nodiscard]] std::vector<std::string> variantsOf(const std::string& id) const {
        std::vector<std::string> glyphs;
        for (const LaunchItemRef& variant : catalogue.variants({.id = id})) {
            glyphs.push_back(glyph(*variant));
        }
        return glyphs;
    }

    MemoryMainLoop loop{Date{100'000'000}};
    MemoryPasteboard pasteboard;
    MemoryKeystrokes keystrokes;
    MemoryUserDefaults defaults;
    UsageStore usage{defaults, loop};
    SystemActions actions{loop, pasteboard, keystrokes};
    GlyphCatalogue catalogue{loop, actions};
};

TEST_F(GlyphCatalogueTest, TheTableIsWholeAndEachGlyphStandsOnce) {
    const auto items = catalogue.lists(usage).front()->items();
    EXPECT_GE(items.size(), 1870 + 380);
    std::set<std::string> ids;
    for (const LaunchItem& item : items) {
        EXPECT_FALSE(item.title.empty()) << item.id;
        EXPECT_EQ(item.id.find("-1f3f"), std::string::npos) << "is a variant: " << item.title;
        ids.insert(item.id);
    }
    EXPECT_THAT(ids, SizeIs(items.size()));
    EXPECT_EQ(items.front().id, "glyph:1f600");
    for (const char* symbol : {"⌘", "⌥", "⇧", "⌃", "⇪", "⎋", "⇥", "⏎", "⌫", "⌦", "↑", "↓", "←",
                               "→", "⇞", "⇟", "↖", "↘", "␣", "—", "“", "€", "≠", "✓", "─"}) {
        EXPECT_TRUE(ids.contains(glyphID(symbol))) << symbol;
    }
}

TEST_F(GlyphCatalogueTest, ItemsTellWhatTheyAreAndInsertThemselves) {
    const auto rows = catalogue.results("fire", usage);
    ASSERT_FALSE(rows.empty());
    const LaunchItem& fire = *rows.front().item;
    EXPECT_EQ(fire.id, "glyph:1f525");
    EXPECT_EQ(fire.title, "fire");
    EXPECT_EQ(fire.subtitle, "flame, tool");
    EXPECT_EQ(fire.kind, LaunchItem::Kind::command);
    EXPECT_EQ(glyph(fire), "🔥");
    fire.run();
    EXPECT_EQ(pasteboard.text(), "🔥");
    EXPECT_EQ(glyphID("❤️‍🔥"), "glyph:2764-fe0f-200d-1f525");
}

TEST_F(GlyphCatalogueTest, SearchesFindByNameAndByKeyword) {
    EXPECT_EQ(found("rofl").front(), "🤣");
    EXPECT_EQ(found("euro").front(), "€") << "before the banknote that has it as a keyword";
    EXPECT_EQ(found("germany").front(), "🇩🇪");
    EXPECT_EQ(found("cmd").front(), "⌘");
    EXPECT_EQ(found("backspace").front(), "⌫");
    EXPECT_EQ(found("nbsp").front(), "\u00A0");
    EXPECT_EQ(found("em dash").front(), "—");
    EXPECT_THAT(found("a"), SizeIs(GlyphCatalogue::kMaximumResults));
}

TEST_F(GlyphCatalogueTest, BrowsingShowsTheLearnedOnesFirstAndTheRestInOrder) {
    usage.record("glyph:2318", "");
    usage.record("glyph:1f525", "");
    usage.record("glyph:1f525", "");
    const auto browsed = found("");
    ASSERT_GT(browsed.size(), 2200U) << "all of them can be walked through";
    EXPECT_EQ(std::ranges::count(browsed, "🔥"), 1);
    EXPECT_THAT(std::vector(browsed.begin(), browsed.begin() + 4),
                ElementsAre("🔥", "⌘", "😀", "😃"));
}

TEST_F(GlyphCatalogueTest, SkinTonesStandWhereUnicodeWantsThem) {
    EXPECT_THAT(variantsOf("glyph:1f44d"), ElementsAre("👍🏻", "👍🏼", "👍🏽", "👍🏾", "👍🏿"));
    EXPECT_EQ(variantsOf(glyphID("🕵️‍♂️")).front(), "🕵🏻‍♂️")
        << "the tone replaces the style";
    EXPECT_EQ(variantsOf(glyphID("👩‍❤️‍👨")).back(), "👩🏿‍❤️‍👨🏿");
    EXPECT_EQ(variantsOf(glyphID("🧑‍🤝‍🧑")).back(), "🧑🏿‍🤝‍🧑🏿");
    EXPECT_EQ(variantsOf(glyphID("☝️")).front(), "☝🏻");
    EXPECT_THAT(variantsOf(glyphID("👍🏽")), SizeIs(5)) << "another tone for a variant";
    EXPECT_THAT(variantsOf("glyph:1f525"), IsEmpty());
    EXPECT_THAT(variantsOf("app:/Applications/Thumbs.app"), IsEmpty());
    const auto redHaired = catalogue.variants({.id = glyphID("👩‍🦰")});
    ASSERT_THAT(redHaired, SizeIs(5));
    EXPECT_EQ(redHaired[2]->title, "woman: red hair, medium skin tone");
}

TEST_F(GlyphCatalogueTest, AVariantIsFoundOnceItWasChosenAndUntilItIsForgotten) {
    const std::string variant = glyphID("👍🏽");
    EXPECT_THAT(found("thumbs up: medium"), IsEmpty());
    usage.record(variant, "thumbs");
    EXPECT_EQ(found("thumbs").front(), "👍🏽");
    EXPECT_EQ(found("").front(), "👍🏽");
    const auto* before = catalogue.lists(usage).back().get();
    usage.record("glyph:1f525", "");
    EXPECT_EQ(catalogue.lists(usage).back().get(), before) << "remade though nothing changed";
    usage.forgetAll();
    EXPECT_EQ(found("thumbs").front(), "👍");
    EXPECT_THAT(found("thumbs up: medium"), IsEmpty());
}

} // namespace
} // namespace pello
