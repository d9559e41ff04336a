#include "core/settings/QueryHistory.h"

#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class QueryHistoryTest : public testing::Test {
protected:
    std::vector<std::string> record(const std::vector<std::string>& queries) {
        QueryHistory history(defaults);
        for (const std::string& query : queries) {
            history.record(query);
        }
        EXPECT_EQ(QueryHistory(defaults).entries(), history.entries()) << "after a restart";
        return history.entries();
    }

    MemoryUserDefaults defaults;
};

TEST_F(QueryHistoryTest, KeepsQueriesAsTypedNewestFirst) {
    EXPECT_THAT(record({"a", " abc", "b "}), ElementsAre("b ", " abc", "a"));
}

TEST_F(QueryHistoryTest, ABlankQueryIsNotKept) {
    EXPECT_THAT(record({"", "   ", "\t \u3000"}), IsEmpty());
    EXPECT_EQ(defaults.writeCount(), 0);
}

TEST_F(QueryHistoryTest, AQueryRecordedAgainMovesToTheFrontCaseCounts) {
    EXPECT_THAT(record({"Safari", "safari", "x", "safari"}), ElementsAre("safari", "x", "Safari"));
}

TEST_F(QueryHistoryTest, TheFiftyFirstPushesOutTheOldest) {
    std::vector<std::string> queries;
    for (int i = 0; i <= 50; ++i) {
        queries.push_back(std::to_string(i));
    }
    const auto entries = record(queries);
    EXPECT_THAT(entries, SizeIs(50));
    EXPECT_EQ(entries.front(), "50");
    EXPECT_EQ(entries.back(), "1");
}

TEST_F(QueryHistoryTest, AnEntryOfItsOwnMayBeRecorded) {
    QueryHistory history(defaults);
    history.record("first");
    history.record("second");
    history.record(history.entries().back());
    EXPECT_THAT(history.entries(), ElementsAre("first", "second"));
}

TEST_F(QueryHistoryTest, RepairsAStoredListAndDropsWhatIsNone) {
    defaults.set("query.history", propertyArray({"b", "a", "b"}));
    EXPECT_THAT(QueryHistory(defaults).entries(), ElementsAre("b", "a"));
    defaults.set("query.history", PropertyArray{"a", 7});
    EXPECT_THAT(QueryHistory(defaults).entries(), IsEmpty());
}

TEST_F(QueryHistoryTest, TakesOverWhatAnotherProcessRecorded) {
    QueryHistory history(defaults);
    history.record("mine");
    defaults.setElsewhere("query.history", propertyArray({"theirs", "mine"}));
    history.record("next");
    EXPECT_THAT(history.entries(), ElementsAre("next", "theirs", "mine"));
}

} // namespace
} // namespace pello
