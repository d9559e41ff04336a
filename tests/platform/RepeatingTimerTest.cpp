#include "platform/RepeatingTimer.h"

#include "platform/memory/MemoryMainLoop.h"

#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

using namespace std::chrono_literals;

TEST(RepeatingTimerTest, TicksEachPeriodUntilItIsStopped) {
    MemoryMainLoop loop;
    RepeatingTimer timer(loop);
    int ticks = 0;
    timer.start(50ms, [&] {
        if (++ticks == 3) {
            timer.stop();
        }
    });
    loop.advance(149ms);
    EXPECT_EQ(ticks, 2);
    EXPECT_TRUE(timer.isRunning());
    loop.advance(1000ms);
    EXPECT_EQ(ticks, 3);
    EXPECT_FALSE(timer.isRunning());
}

TEST(RepeatingTimerTest, MayBeStartedAfreshOrDestroyedByItsAction) {
    MemoryMainLoop loop;
    auto timer = std::make_unique<RepeatingTimer>(loop);
    int slowTicks = 0;
    timer->start(10ms, [&] {
        timer->start(100ms, [&] {
            ++slowTicks;
            timer.reset();
        });
    });
    loop.advance(109ms);
    EXPECT_EQ(slowTicks, 0);
    loop.advance(1000ms);
    EXPECT_EQ(slowTicks, 1);
}

} // namespace
} // namespace pello
