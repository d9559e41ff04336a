#include "search/SearchEngine.h"

#include "base/Text.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "search/FuzzyMatcher.h"
#include "support/LaunchItems.h"
#include "support/MarkedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace pello {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ItemSketch;
using testing::launchItems;
using testing::sharedItem;
using ::testing::SizeIs;
using testing::titles;
using Kind = LaunchItem::Kind;

class SearchEngineTest : public ::testing::Test {
protected:
    std::vector<SearchResult> search(std::string_view query) {
        return SearchEngine::results(query, catalogue_, actions_, usage_, limit_);
    }

    std::vector<std::string> found(std::string_view query) { return titles(search(query)); }

    std::vector<SearchExplanation> explained(std::string_view query) {
        return SearchEngine::explain(query, catalogue_, actions_, usage_, limit_);
    }

    void add(std::vector<ItemSketch> sketches) {
        catalogue_.push_back(PreparedList::make(launchItems(std::move(sketches))));
    }

    static double scoreOf(std::string_view query, std::string_view text) {
        return FuzzyMatcher::match(pello::text::characters(query), text)->score;
    }

    MemoryUserDefaults defaults_;
    MemoryMainLoop loop_;
    UsageStore usage_{defaults_, loop_};
    Catalogue catalogue_;
    std::vector<LaunchItemRef> actions_;
    std::ptrdiff_t limit_ = 8;
};

TEST_F(SearchEngineTest, TheBetterMatchIsFirstAndMarked) {
    add({{"Safe Mode"}, {"Best of Africa"}, {"Terminal"}, {"Safari"}});
    const auto rows = search(" SAF");
    EXPECT_THAT(titles(rows), ElementsAre("Safari", "Safe Mode", "Best of Africa"));
    EXPECT_EQ(testing::marked("Best of Africa", rows[2].titleMatches), "Be[s]t of [Af]rica");
    EXPECT_EQ(rows[0].score, scoreOf("saf", "Safari"));
    EXPECT_EQ(rows[0].item.get(), &catalogue_[0]->items()[3]) << "shared, not copied";
}

TEST_F(SearchEngineTest, AnExactKeywordCountsMoreThanAnyShortTitleAndHasNoMarks) {
    add({{"Browser of apples", {"safari"}}, {"Safari"}, {"Other", {"Sa Fa Ri"}}});
    const auto rows = search("Safari");
    EXPECT_THAT(titles(rows), ElementsAre("Browser of apples", "Other", "Safari"));
    EXPECT_EQ(rows[0].score, 200);
    EXPECT_EQ(rows[1].score, 200) << "white space and case do not count";
    EXPECT_THAT(rows[0].titleMatches, IsEmpty());
}

TEST_F(SearchEngineTest, AnExactKeywordReplacesEvenAHigherTitleScore) {
    add({{"extraordinary", {"extraordinary"}}, {"extraordinary tales"}});
    EXPECT_GT(scoreOf("extraordinary", "extraordinary tales"), 200);
    EXPECT_THAT(found("extraordinary"), ElementsAre("extraordinary tales", "extraordinary"));
}

TEST_F(SearchEngineTest, AKeywordCountsALittleMoreThanHalf) {
    add({{"Mail", {"postal letters"}}, {"Ex-Post"}});
    const auto rows = search("post");
    EXPECT_THAT(titles(rows), ElementsAre("Ex-Post", "Mail"));
    EXPECT_EQ(rows[1].score, scoreOf("post", "postal letters") * 0.55);
    EXPECT_THAT(rows[1].titleMatches, IsEmpty());
    add({{"x x x x x s x x f", {"sf sf"}}});
    EXPECT_EQ(search("sf")[0].score, scoreOf("sf", "sf sf") * 0.55);
    EXPECT_THAT(search("sf")[0].titleMatches, IsEmpty()) << "a worse title is hidden";
}

TEST_F(SearchEngineTest, SeveralWordsMayBeSpreadOverTitleAndKeywords) {
    add({{"Sound", {"fx"}}});
    const auto rows = search("s f");
    ASSERT_THAT(rows, SizeIs(1));
    EXPECT_EQ(rows[0].score, scoreOf("sf", "Sound fx") * 0.55);
    EXPECT_THAT(found("sf"), IsEmpty()) << "one word is not spread";
    EXPECT_THAT(found("f s"), IsEmpty()) << "in the order of title and keywords";
}

TEST_F(SearchEngineTest, EqualScoresAreOrderedByKindThenTitleThenCatalogue) {
    add({{"same", {}, Kind::webSearch, "1"},
         {"same", {}, Kind::url, "2"},
         {"samf", {}, Kind::window, "3"},
         {"SAME", {}, Kind::command, "4"},
         {"same", {}, Kind::script, "5"}});
    add({{"same", {}, Kind::menuItem, "6"},
         {"same", {}, Kind::application, "7"},
         {"same", {}, Kind::bang, "8"}});
    std::vector<std::string> ids;
    for (const auto& row : search("sam")) {
        ids.push_back(row.id());
    }
    EXPECT_THAT(ids, ElementsAre("8", "7", "4", "5", "6", "3", "2", "1"));
}

TEST_F(SearchEngineTest, TheLimitCutsMatchesButNotActions) {
    add({{"aa"}, {"ab"}, {"ac"}});
    actions_ = {sharedItem({"Search the web for a", {}, Kind::webSearch})};
    limit_ = 2;
    EXPECT_THAT(found("a"), ElementsAre("aa", "ab", "Search the web for a"));
    limit_ = 0;
    EXPECT_THAT(found("a"), ElementsAre("Search the web for a"));
    limit_ = -5;
    EXPECT_THAT(found("a"), ElementsAre("Search the web for a"));
    limit_ = std::numeric_limits<std::ptrdiff_t>::max();
    EXPECT_THAT(found("a"), SizeIs(4));
}

TEST_F(SearchEngineTest, ActionsHaveTheirPlaces) {
    add({{"one"}, {"other"}});
    actions_ = {sharedItem({"o.com", {}, Kind::url}), sharedItem({"1", {}, Kind::calculation}),
                sharedItem({"!o", {}, Kind::bang}), sharedItem({"web", {}, Kind::webSearch}),
                sharedItem({"o.org", {}, Kind::url})};
    EXPECT_THAT(found("o"), ElementsAre("!o", "o.org", "1", "one", "o.com", "other", "web"));
    EXPECT_EQ(search("o")[0].score, std::numeric_limits<double>::infinity());
    EXPECT_EQ(search("o")[4].score, 0);
    actions_.resize(1);
    EXPECT_THAT(found("oq"), ElementsAre("o.com"));
}

TEST_F(SearchEngineTest, ABlankQueryShowsWhatWasUsed) {
    add({{"never"}, {"once"}, {"twice"}});
    add({{"also once"}});
    usage_.record("once", "");
    usage_.record("also once", "");
    usage_.record("twice", "q");
    usage_.record("twice", "q");
    usage_.record("gone", "");
    actions_ = {sharedItem({"web", {}, Kind::webSearch})};
    EXPECT_THAT(found(" \t"), ElementsAre("twice", "once", "also once"));
    EXPECT_EQ(search("")[1].score, 28);
    limit_ = 1;
    EXPECT_THAT(found(""), ElementsAre("twice"));
}

TEST_F(SearchEngineTest, WhatWasChosenBeforeRises) {
    add({{"Safari"}, {"Safe Mode"}, {"Best of Africa"}, {"Terminal"}});
    usage_.record("Best of Africa", "saf");
    EXPECT_THAT(found("saf"), ElementsAre("Best of Africa", "Safari", "Safe Mode"));
    EXPECT_EQ(search("Saf ")[0].score, scoreOf("saf", "Best of Africa") + 428);
    EXPECT_EQ(search("af")[0].score, scoreOf("af", "Best of Africa") + 28);
    usage_.record("Terminal", "saf");
    EXPECT_THAT(found("saf"), ElementsAre("Best of Africa", "Safari", "Safe Mode"))
        << "what does not match is not shown, however often it ran";
}

TEST_F(SearchEngineTest, BoostsAreThoseOfTheClockEvenWhenItIsSetBack) {
    const Date start = loop_.now();
    usage_.record("x", "");
    loop_.setNow(start + Seconds(1));
    usage_.record("x yz", "");
    limit_ = 1;
    EXPECT_THAT(found("x"), IsEmpty());
    loop_.setNow(start + Seconds(140 * 86400.0));
    add({{"x yz"}, {"x"}}); // looked up while their boosts are next to nothing
    EXPECT_THAT(found("x"), ElementsAre("x"));
    loop_.setNow(start + Seconds(2));
    EXPECT_THAT(found("x"), ElementsAre("x"));
}

TEST_F(SearchEngineTest, AQueryOfLineBreaksMatchesEverythingAlike) {
    add({{"b"}, {"a", {" "}}, {"c", {"d"}, Kind::url}});
    const auto rows = search("\n");
    EXPECT_THAT(titles(rows), ElementsAre("a", "b", "c"));
    EXPECT_EQ(rows[0].score, 200) << "a keyword of nothing but white space is the query";
    EXPECT_EQ(rows[1].score, 0);
    EXPECT_EQ(originName(explained("\n")[2]), "title") << "a keyword must score more to count";
}

TEST_F(SearchEngineTest, ExplainsWhatMadeEachPlace) {
    add({{"Sound", {"fx"}},
         {"Safari"},
         {"Mail", {"saf"}},
         {"Post", {"safes"}},
         {"Safer", {}, Kind::command},
         {"Safes", {}, Kind::command}});
    usage_.record("Safari", "saf");
    actions_ = {sharedItem({"web", {}, Kind::webSearch})};
    const auto rows = explained("saf");
    std::vector<std::string> places;
    for (const auto& row : rows) {
        places.push_back(row.result.item->title + ": " + std::string(originName(row)));
    }
    EXPECT_THAT(places, ElementsAre("Safari: title", "Mail: exact keyword", "Safer: title",
                                    "Safes: title", "Post: keyword", "web: quick action"));
    EXPECT_EQ(rows[0].boost.binding, 400);
    EXPECT_EQ(rows[0].boost.recency * rows[0].boost.frequency, 28);
    EXPECT_EQ(rows[0].match->score + rows[0].boost.sum(), rows[0].result.score);
    EXPECT_EQ(rows[4].match->text, "safes");
    EXPECT_EQ(rows[2].kindPriority, 1);
    EXPECT_EQ(originName(explained("un fx")[0]), "combined");
    EXPECT_EQ(originName(explained("")[0]), "learned");
}

TEST_F(SearchEngineTest, ExplainsWhatDecidedBetweenEqualScores) {
    add({{"Zeta", {}, Kind::command, "3"},
         {"Zeta", {}, Kind::application, "1"},
         {"Beta", {}, Kind::command, "2"},
         {"Zeta", {}, Kind::command, "4"},
         {"Zeta Mode", {}, Kind::application, "5"}});
    actions_ = {sharedItem({"web", {}, Kind::webSearch})};
    const auto decisions = [this](std::string_view query) {
        std::vector<std::string> found;
        for (const auto& row : explained(query)) {
            found.push_back(row.result.item->id + ' ' + std::string(orderName(row.orderedBy)));
        }
        return found;
    };
    EXPECT_THAT(decisions("eta"),
                ElementsAre("1 score", "2 kind", "3 name", "4 catalogue", "5 score", "web score"));
    usage_.record("4", "");
    usage_.record("3", "");
    EXPECT_THAT(decisions(""), ElementsAre("3 score", "4 catalogue"));
}

} // namespace
} // namespace pello
