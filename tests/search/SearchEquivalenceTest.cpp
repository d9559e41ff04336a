// The engine and the naive search on random catalogues and queries: every score, every order and
// every highlight must be the same. The fuzz target of the same name goes on for longer.

#include "support/RandomSearch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace pello {
namespace {

using testing::Draw;
using testing::RandomSearch;

class SearchEquivalenceTest : public ::testing::TestWithParam<unsigned> {};

TEST_P(SearchEquivalenceTest, EveryRowIsTheNaiveOne) {
    constexpr int kCatalogues = 25;
    std::mt19937_64 generator(GetParam());
    const Draw draw = [&](std::size_t bound) { return generator() % bound; };
    for (int catalogue = 0; catalogue < kCatalogues; ++catalogue) {
        RandomSearch search(draw);
        for (std::size_t round = 0; round < 6; ++round) {
            const auto limit = RandomSearch::limit(draw);
            for (const std::string& query : search.typedQueries(draw)) {
                ASSERT_EQ(search.difference(query, limit), "")
                    << "seed " << GetParam() << ", catalogue " << catalogue;
            }
            ASSERT_EQ(search.difference(" ", limit), "");
            search.use(draw);
            if (round % 2 == 1) {
                search.replaceList(draw);
            }
        }
    }
}

TEST(FuzzyMatcherEquivalenceTest, EveryMatchIsTheNaiveOne) {
    std::mt19937_64 generator(1);
    const Draw draw = [&](std::size_t bound) { return generator() % bound; };
    for (int round = 0; round < 3000; ++round) {
        const std::string query = testing::randomText(draw);
        const std::string candidate = testing::randomText(draw);
        ASSERT_EQ(testing::matchDifference(query.substr(0, query.size() / 4), candidate), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SearchEquivalenceTest, ::testing::Range(1U, 6U));

} // namespace
} // namespace pello
