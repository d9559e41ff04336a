#include "scripts/ScriptFailureLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;

class ScriptFailureLogTest : public testing::Test {
protected:
    void record(const std::string& fileName, std::int32_t status = 1) {
        log.record({.name = "A Name", .fileName = fileName, .status = status, .date = {++now}});
    }

    std::vector<std::string> fileNames() const {
        std::vector<std::string> names;
        for (const auto& failure : log.failures()) {
            names.push_back(failure.fileName);
        }
        return names;
    }

    ScriptFailureLog log;
    double now = 0;
    int changes = 0;
    Subscription counting = log.changed.connect([this] { ++changes; });
};

TEST_F(ScriptFailureLogTest, KeepsTheFiveNewestNewestFirst) {
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
        record(name);
    }
    EXPECT_THAT(fileNames(), ElementsAre("f", "e", "d", "c", "b"));
    EXPECT_EQ(changes, 6);
}

TEST_F(ScriptFailureLogTest, AScriptStandsInItOnceWithItsLatestFailure) {
    record("a", 1);
    record("b");
    record("A");
    const auto first = log.failures().back();
    record("a", 2);
    EXPECT_THAT(fileNames(), ElementsAre("a", "A", "b"));
    EXPECT_EQ(log.failures().front().status, 2);
    EXPECT_NE(log.failures().front().id, first.id);
    EXPECT_NE(log.failures().front().date, first.date);
}

TEST_F(ScriptFailureLogTest, DismissedFailuresGoAndOthersStay) {
    record("a");
    const auto replaced = log.failures().front();
    record("a");
    record("b");
    record("c");
    changes = 0;
    log.dismiss(replaced);
    EXPECT_EQ(changes, 0);
    log.dismiss(log.failures()[1]);
    EXPECT_THAT(fileNames(), ElementsAre("c", "a"));
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace pello
