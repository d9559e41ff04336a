// How much work a keystroke takes on a catalogue of 10,000 items, in counts that are the same on
// every machine: what keeps a change from making the search slow unnoticed.

#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "search/SearchCorpus.h"
#include "search/SearchEngine.h"
#include "support/AllocationCount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace pello {
namespace {

namespace Corpus = bench::SearchCorpus;

constexpr std::size_t kItems = 10000;

class SearchWorkTest : public ::testing::Test {
protected:
    SearchWorkTest() {
        const auto sources = Corpus::sources(kItems);
        catalogue_ = Corpus::catalogue(kItems);
        keystrokes_ = Corpus::keystrokes(Corpus::queries(sources, 200));
        Corpus::use(usage_, loop_, sources, 300);
    }

    [[nodiscard]] double perKeystroke(std::size_t total) const {
        return static_cast<double>(total) / static_cast<double>(keystrokes_.size());
    }

    MemoryUserDefaults defaults_;
    MemoryMainLoop loop_{Date{700000000}};
    UsageStore usage_{defaults_, loop_};
    Catalogue catalogue_;
    std::vector<std::string> keystrokes_;
};

TEST_F(SearchWorkTest, FewTablesAreFilledAndFewTitlesCompared) {
    SearchWork total;
    for (const std::string& query : keystrokes_) {
        SearchWork work;
        const auto rows = SearchEngine::results(query, catalogue_, {}, usage_, 8, &work);
        total.textsTried += work.textsTried;
        total.tablesFilled += work.tablesFilled;
        total.titleComparisons += work.titleComparisons;
    }
    EXPECT_LE(perKeystroke(total.tablesFilled), 30);
    EXPECT_LE(perKeystroke(total.titleComparisons), 10);
    EXPECT_LE(perKeystroke(total.textsTried), kItems / 10);
}

TEST_F(SearchWorkTest, NothingIsAllocatedForACandidate) {
    (void)SearchEngine::results("warm up", catalogue_, {}, usage_, 8);
    std::size_t most = 0;
    for (const std::string& query : keystrokes_) {
        const std::size_t before = testing::allocationCount();
        const auto rows = SearchEngine::results(query, catalogue_, {}, usage_, 8);
        most = std::max(most, testing::allocationCount() - before);
    }
    EXPECT_LE(most, 120) << "for a query, its lists and its rows, whatever they hold";
}

TEST_F(SearchWorkTest, TheIndexIsSmall) {
    std::size_t bytes = 0;
    for (const auto& list : catalogue_) {
        bytes += list->footprint();
    }
    EXPECT_LE(static_cast<double>(bytes) / kItems, 300);
}

} // namespace
} // namespace pello
