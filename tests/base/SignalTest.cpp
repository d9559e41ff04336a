#include "base/Signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SignalTest : public testing::Test {
protected:
    /// A subscriber that notes `name` at each emission.
    [[nodiscard]] Subscription note(const std::string& name) {
        return signal->connect([this, name] { heard.push_back(name); });
    }

    std::optional<Signal<>> signal{std::in_place};
    std::vector<std::string> heard;
};

TEST_F(SignalTest, CallsSubscribersInOrderAsLongAsTheySubscribe) {
    const auto first = note("first");
    auto second = note("second");
    signal->emit();
    second.reset();
    second.reset();
    signal->emit();
    EXPECT_THAT(heard, ElementsAre("first", "second", "first"));
}

TEST_F(SignalTest, ASubscriberMayEndItselfAndOthersWhileNotified) {
    Subscription self;
    Subscription later;
    self = signal->connect([&] {
        heard.emplace_back("self");
        self.reset();
        later.reset();
    });
    later = note("later");
    const auto last = note("last");
    signal->emit();
    signal->emit();
    EXPECT_THAT(heard, ElementsAre("self", "last", "last"));
}

TEST_F(SignalTest, ASubscriberAddedWhileNotifyingHearsTheNextEmission) {
    std::vector<Subscription> added;
    const auto adder = signal->connect([&] { added.push_back(note("added")); });
    signal->emit();
    EXPECT_THAT(heard, IsEmpty());
    signal->emit();
    EXPECT_THAT(heard, ElementsAre("added"));
}

TEST_F(SignalTest, EmittingWhileNotifyingReachesEveryoneAgain) {
    bool again = true;
    const auto outer = signal->connect([&] {
        if (std::exchange(again, false)) {
            signal->emit();
        }
    });
    const auto other = note("other");
    signal->emit();
    EXPECT_THAT(heard, ElementsAre("other", "other"));
}

TEST_F(SignalTest, MayBeDestroyedWhileNotifying) {
    const auto destroyer = signal->connect([&] { signal.reset(); });
    const auto other = note("other");
    signal->emit();
    EXPECT_THAT(heard, ElementsAre("other"));
}

TEST(SignalWithArgumentsTest, PassesThemToEverySubscriber) {
    Signal<const std::string&, int> signal;
    std::string text;
    const auto both = signal.connect(
        [&](const std::string& word, int count) { text += word + std::to_string(count); });
    signal.emit("a", 1);
    signal.emit("b", 2);
    EXPECT_EQ(text, "a1b2");
}

} // namespace
} // namespace pello
