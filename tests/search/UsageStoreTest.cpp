#include "search/UsageStore.h"

#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pello {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kDay = 86400;

PropertyValue data(std::string_view text) {
    return PropertyData(text.begin(), text.end());
}

class UsageStoreTest : public ::testing::Test {
protected:
    /// The store as the next start finds it.
    UsageStore& reopened() {
        again_ = std::make_unique<UsageStore>(defaults_, loop_);
        return *again_;
    }

    UsageStore& loaded(std::string_view records) {
        defaults_.set("usage.records", data(records));
        return reopened();
    }

    MemoryUserDefaults defaults_;
    MemoryMainLoop loop_{Date{700000000}};
    UsageStore store_{defaults_, loop_};
    std::unique_ptr<UsageStore> again_;
};

TEST_F(UsageStoreTest, EachRunLifts) {
    EXPECT_EQ(store_.boost("app:x", "x"), 0);
    store_.record("app:x", "");
    EXPECT_EQ(store_.boost("app:x", ""), 28);
    store_.record("app:x", "");
    store_.record("app:x", "");
    EXPECT_EQ(store_.boost("app:x", ""), 56);
    EXPECT_EQ(store_.boost("app:y", ""), 0);
}

TEST_F(UsageStoreTest, BoostHalvesEveryFourteenDays) {
    store_.record("app:x", "");
    loop_.setNow(loop_.now() + Seconds(14 * kDay));
    EXPECT_EQ(store_.boost("app:x", ""), 14);
    loop_.setNow(loop_.now() + Seconds(14 * kDay));
    EXPECT_EQ(store_.boost("app:x", ""), 7);
    store_.record("app:x", "");
    EXPECT_EQ(store_.boost("app:x", ""), 28 * std::log2(3)) << "recent again";
}

TEST_F(UsageStoreTest, TheLastChoiceForAQueryIsBoundToIt) {
    store_.record("app:a", " Saf");
    EXPECT_EQ(store_.boost("app:a", "saf "), 428);
    EXPECT_EQ(store_.boostParts("app:a", "SAF").binding, 400);
    EXPECT_EQ(store_.boost("app:a", "sa"), 28);
    store_.record("app:b", "saf");
    EXPECT_EQ(store_.boost("app:b", "saf"), 428);
    EXPECT_EQ(store_.boost("app:a", "saf"), 28);
}

TEST_F(UsageStoreTest, ABlankQueryBindsNothing) {
    store_.record("app:a", " \t");
    EXPECT_EQ(store_.boost("app:a", " "), 28);
    EXPECT_EQ(store_.boost("app:a", ""), 28);
    store_.record("app:a", "two  words");
    EXPECT_EQ(store_.boost("app:a", "two words"), 28 * std::log2(3)) << "inner blanks count";
}

TEST_F(UsageStoreTest, EverythingSurvivesARestart) {
    store_.record("app:\xC3\xA9 \"quoted\"", "q");
    loop_.setNow(loop_.now() + Seconds(0.25));
    store_.record("app:b", "");
    EXPECT_EQ(reopened().records(), store_.records());
    EXPECT_EQ(reopened().boost("app:\xC3\xA9 \"quoted\"", "q"),
              store_.boost("app:\xC3\xA9 \"quoted\"", "q"));
}

TEST_F(UsageStoreTest, AnIdThatIsNotUnicodeNeitherThrowsNorSpoilsTheRest) {
    store_.record("app:/tmp/\xFF\xC3", "");
    store_.record("app:b", "");
    EXPECT_EQ(reopened().boost("app:b", ""), 28);
}

TEST_F(UsageStoreTest, UndecodableDataCountsAsAbsentUntilTheNextRecord) {
    for (const auto* bad :
         {"", "{", "[]", "null", "7", R"({"a": 1})", R"({"a": {"count": "2", "lastUsed": 1}})",
          R"({"a": {"count": 2}})", R"({"a": {"count": 2.5, "lastUsed": 1}})",
          R"({"a": {"count": 2, "lastUsed": null}})", R"({"a": {"count": 2, "lastUsed": NaN}})",
          R"({"a": {"count": 2, "lastUsed": 1e999}})", "{\"\xFF\": {}}"}) {
        EXPECT_THAT(loaded(bad).records(), IsEmpty()) << bad;
    }
    defaults_.set("usage.records", "{}");
    EXPECT_THAT(reopened().records(), IsEmpty());
    again_->record("app:x", "");
    EXPECT_EQ(reopened().boost("app:x", ""), 28);
}

TEST_F(UsageStoreTest, AbsurdNumbersAreRepaired) {
    const auto boostOf = [&](const std::string& count, const std::string& lastUsed) {
        return loaded(R"({"a": {"count": )" + count + R"(, "lastUsed": )" + lastUsed + "}}")
            .boost("a", "");
    };
    EXPECT_EQ(boostOf("0", "700000000"), 28) << "at least one run";
    EXPECT_EQ(boostOf("-7", "700000000"), 28);
    EXPECT_EQ(boostOf("3.0", "700000000"), 56);
    EXPECT_EQ(boostOf("9223372036854775807", "700000000"), 28 * 63);
    EXPECT_EQ(boostOf("18446744073709551615", "700000000"), 28 * 63);
    again_->record("a", "");
    EXPECT_EQ(again_->boost("a", ""), 28 * 63) << "counting stops at the largest integer";
    EXPECT_EQ(boostOf("1", "701209600"), 56) << "from the future: the clock was set back";
    EXPECT_EQ(boostOf("1", "1e300"), 0) << "no infinite boost";
    EXPECT_EQ(boostOf("1", "-1e300"), 0);
}

TEST_F(UsageStoreTest, BindingsThatAreNotAllTextAreDropped) {
    defaults_.set("usage.bindings", PropertyDictionary{{"q", "app:a"}});
    EXPECT_EQ(reopened().boost("app:a", "q"), 400);
    defaults_.set("usage.bindings", PropertyDictionary{{"q", "app:a"}, {"r", 1}});
    EXPECT_EQ(reopened().boost("app:a", "q"), 0);
    defaults_.set("usage.bindings", "q");
    EXPECT_EQ(reopened().boost("app:a", "q"), 0);
}

TEST_F(UsageStoreTest, PruningForgetsWhatIsGone) {
    store_.record("app:gone", "g");
    store_.record("app:here", "h");
    store_.record("menu:File", "f");
    const auto isMenu = [](std::string_view id) { return id.substr(0, 5) == "menu:"; };
    store_.prune({"app:here"}, isMenu);
    EXPECT_THAT(reopened().records(), SizeIs(2));
    EXPECT_EQ(again_->boost("app:gone", "g"), 0);
    EXPECT_EQ(again_->boost("menu:File", "f"), 428);
    const int writes = defaults_.writeCount();
    store_.prune({"app:here"}, isMenu);
    EXPECT_EQ(defaults_.writeCount(), writes) << "nothing to forget, nothing written";
}

TEST_F(UsageStoreTest, TakesOverWhatAnotherProcessLearned) {
    int changes = 0;
    const auto subscription = store_.changed.connect([&] { ++changes; });
    defaults_.setElsewhere("usage.records",
                           data(R"({"app:x": {"count": 1, "lastUsed": 700000000}})"));
    EXPECT_EQ(store_.boost("app:x", ""), 28);
    EXPECT_EQ(changes, 1);
    defaults_.setElsewhere("fontSize", 12);
    EXPECT_EQ(changes, 1);
    store_.record("app:y", "");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(reopened().boost("app:x", ""), 28) << "kept by the next write";
    store_.forgetAll();
    store_.forgetAll();
    EXPECT_EQ(changes, 3);
}

} // namespace
} // namespace pello
