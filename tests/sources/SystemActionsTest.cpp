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
        keystrokes.onPaste = [this] { pasted.push_back(pasteboard.text()); };
    }

    MemoryMainLoop loop;
    MemoryPasteboard pasteboard;
    MemoryKeystrokes keystrokes;
    SystemActions actions{loop, pasteboard, keystrokes};
    std::vector<std::string> pasted;
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

TEST_F(InsertTest, SeveralAreAllPastedAndTheUsersTextComesBack) {
    actions.insert("a");
    loop.advance(60ms);
    actions.insert("b");
    loop.advance(400ms);
    actions.insert("c");
    loop.advance(2s);
    EXPECT_THAT(pasted, ElementsAre("a", "b", "c"));
    EXPECT_EQ(pasteboard.text(), "former");
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
