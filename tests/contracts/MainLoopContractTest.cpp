#include "platform/memory/MemoryMainLoop.h"
#include "platform/qt/QtMainLoop.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace pello {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// One kind of main loop, and how it is turned until something has happened.
class LoopDriver {
public:
    virtual ~LoopDriver() = default;
    virtual std::unique_ptr<MainLoop> make() = 0;
    virtual void turn(MainLoop& loop) = 0;

    void turnUntil(MainLoop& loop, const std::function<bool()>& happened) {
        while (!happened()) {
            turn(loop);
        }
    }
};

class MemoryDriver final : public LoopDriver {
public:
    static constexpr bool hasWorkers = false;
    std::unique_ptr<MainLoop> make() override { return std::make_unique<MemoryMainLoop>(); }
    void turn(MainLoop& loop) override {
        auto& memory = dynamic_cast<MemoryMainLoop&>(loop);
        memory.settle();
        memory.advance(1ms);
    }
};

class QtDriver final : public LoopDriver {
public:
    static constexpr bool hasWorkers = true;
    std::unique_ptr<MainLoop> make() override {
        static int argc = 1;
        static std::string name = "contract";
        static std::array<char*, 2> arguments = {name.data(), nullptr};
        static const QCoreApplication application(argc, arguments.data());
        return std::make_unique<QtMainLoop>();
    }
    void turn(MainLoop& /*loop*/) override {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

template <class Driver>
class MainLoopContract : public testing::Test {
protected:
    /// An action that notes `what`.
    auto note(const std::string& what) {
        return [this, what] { seen.push_back(what); };
    }
    void turnUntilSeen(std::size_t count) {
        driver.turnUntil(*loop, [&] { return seen.size() >= count; });
    }
    /// Turns until everything due within `delay` must have fired.
    void let(std::chrono::milliseconds delay, MainLoop& witness) {
        bool passed = false;
        const auto timer = witness.after(delay, [&] { passed = true; });
        driver.turnUntil(witness, [&] { return passed; });
    }

    Driver driver;
    std::unique_ptr<MainLoop> loop = driver.make();
    std::vector<std::string> seen;
};

using Drivers = testing::Types<MemoryDriver, QtDriver>;
TYPED_TEST_SUITE(MainLoopContract, Drivers);

TYPED_TEST(MainLoopContract, PostsRunLaterAndInOrder) {
    this->loop->post([this] {
        this->seen.emplace_back("a");
        this->loop->post(this->note("c"));
        this->seen.emplace_back("still a");
    });
    this->loop->post(this->note("b"));
    EXPECT_THAT(this->seen, IsEmpty()) << "a post never runs inside the call";
    this->turnUntilSeen(4);
    EXPECT_THAT(this->seen, ElementsAre("a", "still a", "b", "c"));
}

TYPED_TEST(MainLoopContract, PostsOfOtherThreadsArriveOnTheMainThreadInTheirOrder) {
    constexpr int kPosts = 200;
    std::vector<int> first;
    std::vector<int> second;
    std::atomic<int> strays = 0;
    const auto main = std::this_thread::get_id();
    const auto poster = [&](std::vector<int>& into) {
        for (int i = 0; i < kPosts; ++i) {
            this->loop->post([&, i] {
                strays += std::this_thread::get_id() == main ? 0 : 1;
                into.push_back(i);
            });
        }
    };
    std::thread one(poster, std::ref(first));
    std::thread two(poster, std::ref(second));
    this->driver.turnUntil(*this->loop,
                           [&] { return first.size() + second.size() == 2UL * kPosts; });
    one.join();
    two.join();
    EXPECT_EQ(strays, 0);
    EXPECT_TRUE(std::is_sorted(first.begin(), first.end()));
    EXPECT_TRUE(std::is_sorted(second.begin(), second.end()));
}

TYPED_TEST(MainLoopContract, DelaysEndInTheOrderOfTheirTimesAndTheClockShowsIt) {
    const Date start = this->loop->now();
    const auto late = this->loop->after(30ms, this->note("late"));
    const auto soon = this->loop->after(10ms, this->note("soon"));
    const auto past = this->loop->after(-5ms, this->note("at once"));
    EXPECT_THAT(this->seen, IsEmpty());
    this->turnUntilSeen(3);
    EXPECT_THAT(this->seen, ElementsAre("at once", "soon", "late"));
    EXPECT_GE((this->loop->now() - start).count(), 0.029);
}

TYPED_TEST(MainLoopContract, ADelayEndsWithItsSubscription) {
    auto dropped = this->loop->after(5ms, this->note("dropped"));
    auto replaced = this->loop->after(5ms, this->note("replaced"));
    dropped.reset();
    replaced = this->loop->after(5ms, this->note("replacement"));
    auto cancelledByAnother = this->loop->after(8ms, this->note("cancelled"));
    const auto canceller = this->loop->after(6ms, [&] { cancelledByAnother.reset(); });
    this->let(20ms, *this->loop);
    EXPECT_THAT(this->seen, ElementsAre("replacement"));
}

TYPED_TEST(MainLoopContract, ADelayMayEndOrReplaceItselfWhileItFires) {
    Subscription timer;
    timer = this->loop->after(1ms, [&] {
        timer.reset();
        this->seen.emplace_back("first");
        timer = this->loop->after(1ms, this->note("second"));
    });
    this->turnUntilSeen(2);
    EXPECT_THAT(this->seen, ElementsAre("first", "second"));
}

TYPED_TEST(MainLoopContract, BackgroundWorkCompletesOnTheMainThread) {
    const auto main = std::this_thread::get_id();
    this->loop->background([] { return std::this_thread::get_id(); },
                           [&](std::thread::id worker) {
                               EXPECT_EQ(std::this_thread::get_id(), main);
                               EXPECT_EQ(worker == main, !TypeParam::hasWorkers);
                               this->seen.emplace_back("worked");
                           });
    EXPECT_THAT(this->seen, IsEmpty());
    this->turnUntilSeen(1);
    EXPECT_THAT(this->seen, ElementsAre("worked"));
}

TYPED_TEST(MainLoopContract, NothingFiresAfterItsEnd) {
    auto timer = this->loop->after(1ms, this->note("timer"));
    this->loop->post(this->note("post"));
    this->loop->background([] { return 1; }, [this](int) { this->seen.emplace_back("done"); });
    this->loop.reset();
    const auto witness = this->driver.make();
    this->let(10ms, *witness);
    EXPECT_THAT(this->seen, IsEmpty());
    timer.reset(); // outlived its loop
}

TEST(QtMainLoopTest, NoBackgroundWorkIsUnderWayOnceItWasEnded) {
    constexpr int kJobs = 200;
    const auto loop = QtDriver().make();
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    std::atomic<std::uint64_t> sum = 0;
    for (int job = 0; job < kJobs; ++job) {
        loop->background(
            [&] {
                ++begun;
                for (std::uint64_t i = 0; i < 10'000; ++i) {
                    sum += i;
                }
                return ++ended;
            },
            [](int) {});
    }
    dynamic_cast<QtMainLoop&>(*loop).endBackgroundWork();
    const int seen = begun;
    EXPECT_EQ(ended, seen);
    QCoreApplication::processEvents();
    EXPECT_EQ(begun, seen);
}

} // namespace
} // namespace pello
