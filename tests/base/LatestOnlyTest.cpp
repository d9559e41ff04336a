#include "base/LatestOnly.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LatestOnlyTest : public testing::Test {
protected:
    std::function<void(int)> job() {
        return latest->wrap(
            std::function<void(int)>([this](int answer) { got.push_back(answer); }));
    }

    std::optional<LatestOnly> latest{std::in_place};
    std::vector<int> got;
};

TEST_F(LatestOnlyTest, OnlyTheJobStartedLastCountsInWhateverOrderTheyEnd) {
    const auto older = job();
    const auto newer = job();
    newer(2);
    older(1);
    EXPECT_THAT(got, ElementsAre(2));
}

TEST_F(LatestOnlyTest, NothingCountsAfterCancellingOrAfterItsOwnerDied) {
    const auto cancelled = job();
    latest->cancel();
    cancelled(1);
    const auto orphan = job();
    latest.reset();
    orphan(2);
    EXPECT_THAT(got, IsEmpty());
}

} // namespace
} // namespace pello
