#include "sources/SystemActions.h"

#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class InsertTest : public testing::Test {
protected:
    InsertTest() {
        pasteboard.copyElsewhere("former");
        keystrokes.onPaste = [this] { pasted.push_back(pasteboard.text().value_or("?")); };
    }

    MemoryMainLoop loop;
    MemoryPasteboard pasteboard;
    MemoryKeystrokes keystrokes;
    SystemActions actions{loop, pasteboard, keystrokes};
    std::vector<std::string> pasted;
    int failures = 0;
    Subscription failing = actions.failed.connect([this](const std::string&) { ++failures; });
};

TEST_F(InsertTest, CopiesWaitsPastesWaitsAndPutsTheFormerTextBack) {
    actions.insert("🔥");
    EXPECT_EQ(pasteboard.text(), "🔥");
    loop.advance(119ms);
    EXPECT_THAT(pasted, IsEmpty());
    loop.advance(1ms);
    EXPECT_THAT(pasted, ElementsAre("🔥"));
    loop.advance(499ms);
    EXPECT_EQ(pasteboard.text(), "🔥") << "the other program may not have fetched it";
    loop.advance(1ms);
    EXPECT_EQ(pasteboard.text(), "former");
}

TEST_F(InsertTest, WhatIsCopiedMeanwhileStays) {
    actions.insert("🔥");
    loop.advance(300ms);
    pasteboard.copyElsewhere("newer");
    loop.advance(1s);
    EXPECT_EQ(pasteboard.text(), "newer");
    actions.insert("🔥");
    loop.advance(300ms);
    pasteboard.copyElsewhere("🔥");
    loop.advance(1s);
    EXPECT_EQ(pasteboard.text(), "🔥") << "copied by the user this time";
    actions.insert("⌘");
    loop.advance(300ms);
    pasteboard.setText("42");
    loop.advance(1s);
    EXPECT_EQ(pasteboard.text(), "42") << "copied from the panel";
}

TEST_F(InsertTest, TheNextOneWaitsUntilTheOtherProgramHasFetchedTheText) {
    actions.insert("a");
    actions.insert("b");
    loop.advance(130ms);
    actions.insert("c");
    loop.advance(489ms);
    EXPECT_THAT(pasted, ElementsAre("a"));
    EXPECT_EQ(pasteboard.text(), "a");
    loop.advance(1ms);
    EXPECT_EQ(pasteboard.text(), "b");
    loop.advance(620ms);
    EXPECT_EQ(pasteboard.text(), "c");
    pasteboard.copyElsewhere("newer");
    actions.insert("d");
    loop.advance(10s);
    EXPECT_EQ(pasteboard.text(), "newer") << "what was copied between two of them";
}

TEST_F(InsertTest, NothingIsReplacedBeforeItHasBeenRead) {
    pasteboard.isSlow = true;
    actions.insert("a");
    actions.insert("b");
    loop.advance(10s);
    EXPECT_EQ(pasteboard.text(), "former");
    pasteboard.readings = 0;
    pasteboard.handOver();
    EXPECT_EQ(pasteboard.readings, 1);
    EXPECT_EQ(pasteboard.text(), "a");
    loop.advance(10s);
    EXPECT_THAT(pasted, ElementsAre("a", "b"));
    EXPECT_EQ(pasteboard.text(), "former");
    EXPECT_EQ(failures, 0);
}

TEST_F(InsertTest, WhatCannotBeReadIsReplacedButNotSilently) {
    pasteboard.isReadable = false;
    actions.insert("a");
    EXPECT_EQ(failures, 1);
    pasteboard.isReadable = true;
    actions.insert("b");
    loop.advance(10s);
    EXPECT_THAT(pasted, ElementsAre("a", "b"));
    EXPECT_EQ(pasteboard.text(), "b");
    EXPECT_EQ(failures, 1);
}

TEST_F(InsertTest, WaitsUntilAnotherWindowHasTheKeyboard) {
    keystrokes.outcome = Keystrokes::Outcome::tooEarly;
    actions.insert("🔥");
    loop.advance(400ms);
    keystrokes.outcome = Keystrokes::Outcome::pressed;
    loop.advance(20ms);
    EXPECT_THAT(pasted, ElementsAre("🔥"));
    loop.advance(499ms);
    EXPECT_EQ(pasteboard.text(), "🔥");
    loop.advance(1ms);
    EXPECT_EQ(pasteboard.text(), "former");
}

TEST_F(InsertTest, WhatCannotBePastedStaysForTheUserToPaste) {
    for (const auto outcome : {Keystrokes::Outcome::tooEarly, Keystrokes::Outcome::impossible}) {
        keystrokes.outcome = outcome;
        actions.insert("🔥");
        loop.advance(1min);
        EXPECT_THAT(pasted, IsEmpty());
        EXPECT_EQ(pasteboard.text(), "🔥");
    }
    keystrokes.outcome = Keystrokes::Outcome::pressed;
    loop.advance(1min);
    EXPECT_THAT(pasted, IsEmpty()) << "not long afterwards";
}

TEST_F(InsertTest, WithoutAFormerTextTheGlyphStays) {
    pasteboard.copyElsewhere("");
    actions.insert("🔥");
    loop.advance(2s);
    EXPECT_EQ(pasteboard.text(), "🔥");
}

} // namespace
} // namespace pello
