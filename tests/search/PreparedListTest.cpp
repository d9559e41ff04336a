#include "search/PreparedList.h"

#include "search/KeptRows.h"
#include "search/SearchEngine.h"
#include "search/TieOrder.h"
#include "support/LaunchItems.h"
#include "support/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace pello {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ItemSketch;
using testing::launchItems;
using testing::RandomText;
using ::testing::UnorderedElementsAre;

TEST(PreparedListTest, ARowKeepsItsListAlive) {
    auto list = PreparedList::make(launchItems({{"a"}, {"b"}}));
    const std::weak_ptr<const PreparedList> watched = list;
    LaunchItemRef row = list->ref(1);
    list.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(row->title, "b");
    row.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(PreparedListTest, TextsLieByLengthAndKeepTheirNumbers) {
    const auto list = PreparedList::make(launchItems({{"ccc"}, {""}, {"B"}, {"aaa"}, {"é"}}));
    const TextTable& titles = list->titles();
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t slot = 0; slot < titles.size(); ++slot) {
        numbers.push_back(titles.numberAt(slot));
        EXPECT_EQ(titles.slotOf(numbers.back()), slot);
    }
    EXPECT_THAT(numbers, ElementsAre(1, 2, 4, 0, 3));
    EXPECT_EQ(titles.groups().size(), 3U);
    EXPECT_EQ(titles.bytes(titles.slotOf(2)).characters[0], 'b');
    EXPECT_FALSE(titles.hasCodes(titles.slotOf(2)));
    EXPECT_THAT(titles.codes(titles.slotOf(4)).characters, ElementsAre(U'é'));
}

TEST(PreparedListTest, ItemsAreFoundByIdEvenIfItIsThereTwice) {
    const auto list = PreparedList::make(launchItems(
        {{.title = "a", .id = "x"}, {.title = "b", .id = "y"}, {.title = "c", .id = "x"}}));
    const auto found = [&](std::string_view id) {
        std::vector<std::uint32_t> indices;
        list->ids().find(id, list->items(), [&](std::uint32_t i) { indices.push_back(i); });
        return indices;
    };
    EXPECT_THAT(found("x"), UnorderedElementsAre(0, 2));
    EXPECT_THAT(found("y"), ElementsAre(1));
    EXPECT_THAT(found("z"), IsEmpty());
}

TEST(PreparedListTest, TheFirstItemsOfAKeywordAreTheFirstByTheOrderForTies) {
    RandomText random(1);
    std::vector<ItemSketch> sketches;
    for (int i = 0; i < 300; ++i) {
        sketches.push_back({.title = random.text(3),
                            .keywords = {"all", "all"},
                            .kind = static_cast<LaunchItem::Kind>(random.below(9)),
                            .id = std::to_string(i)});
    }
    const auto list = PreparedList::make(launchItems(std::move(sketches)));
    const auto items = list->keywords().itemsOf(0);
    ASSERT_EQ(items.size(), 300U) << "each once, though it has the keyword twice";
    std::vector<std::uint32_t> sorted(items.begin(), items.end());
    std::sort(sorted.begin(), sorted.end());
    std::stable_sort(sorted.begin(), sorted.end(), [&](std::uint32_t left, std::uint32_t right) {
        return TieOrder::compare(list->items()[left], list->items()[right]) < 0;
    });
    EXPECT_TRUE(std::equal(sorted.begin(), sorted.begin() + KeywordIndex::kOrdered, items.begin()));
}

TEST(PreparedListTest, KeywordsAreFoundWithoutRegardToCaseAndWhiteSpace) {
    const auto list =
        PreparedList::make(launchItems({{"a", {"Web Browser", "webbrowser", "web", "É", " "}}}));
    const auto exactly = [&](std::string_view query) {
        return list->keywords().exactly(SearchQuery(query)).size();
    };
    EXPECT_EQ(exactly("WEB browser"), 2U);
    EXPECT_EQ(exactly("web"), 1U);
    EXPECT_EQ(exactly("e\u0301"), 1U) << "canonically equivalent";
    EXPECT_EQ(exactly("browser"), 0U);
    EXPECT_EQ(exactly("\n"), 1U);
}

TEST(PreparedListTest, KeptRowsAreTheFirstOfAllOffered) {
    RandomText random(2);
    std::vector<ItemSketch> sketches;
    for (int i = 0; i < 40; ++i) {
        sketches.push_back({.title = random.text(2), .id = std::to_string(i)});
    }
    const Catalogue catalogue = {PreparedList::make(launchItems(std::move(sketches)))};
    for (int round = 0; round < 500; ++round) {
        SearchWork work;
        KeptRows kept(catalogue, 1 + random.below(10), work);
        std::vector<ScoredRow> best; // each item's highest
        for (std::size_t offers = random.below(60); offers > 0; --offers) {
            const ScoredRow row = {.score = static_cast<double>(random.below(6)),
                                   .list = 0,
                                   .item = static_cast<std::uint32_t>(random.below(40)),
                                   .isByTitle = false};
            kept.offer(row);
            const auto known = std::find_if(best.begin(), best.end(), [&](const ScoredRow& other) {
                return other.item == row.item;
            });
            if (known == best.end()) {
                best.push_back(row);
            } else {
                known->score = std::max(known->score, row.score);
            }
        }
        std::sort(best.begin(), best.end(), RowOrder(catalogue, work));
        ASSERT_LE(kept.rows().size(), best.size());
        for (std::size_t i = 0; i < kept.rows().size(); ++i) {
            ASSERT_EQ(kept.rows()[i].item, best[i].item);
            ASSERT_EQ(kept.rows()[i].score, best[i].score);
        }
    }
}

} // namespace
} // namespace pello
