#include "search/PreparedList.h"

#include "support/LaunchItems.h"

#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::launchItems;

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

} // namespace
} // namespace pello
