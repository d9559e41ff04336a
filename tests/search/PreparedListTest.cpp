#include "search/PreparedList.h"

#include "search/KeptRows.h"
#include "search/SearchEngine.h"
#include "search/TieOrder.h"
#include "support/LaunchItems.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace pello {
namespace {

using testing::ItemSketch;
using testing::launchItems;
using testing::RandomText;

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

TEST(PreparedListTest, KeptRowsAreTheFirstOfAllOffered) {
    RandomText random(2);
    std::vector<ItemSketch> sketches;
    for (int i = 0; i < 40; ++i) {
        sketches.push_back({.title = random.text(2), .id = std::to_string(i)});
    }
    const Catalogue catalogue = {PreparedList::make(launchItems(std::move(sketches)))};
    for (int round = 0; round < 500; ++round) {
        SearchWork work;
        const std::size_t limit = 1 + random.below(10);
        KeptRows kept(catalogue, limit, work);
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
        ASSERT_EQ(kept.rows().size(), std::min(limit, best.size()));
        for (std::size_t i = 0; i < kept.rows().size(); ++i) {
            ASSERT_EQ(kept.rows()[i].item, best[i].item);
            ASSERT_EQ(kept.rows()[i].score, best[i].score);
        }
    }
}

} // namespace
} // namespace pello
