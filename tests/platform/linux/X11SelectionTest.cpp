#include "platform/linux/X11Selection.h"

#include "support/ClipboardHolder.h"
#include "support/PrivateDisplay.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using namespace std::chrono_literals;

constexpr X11Selection::Limits kPlenty{.silence = 30s, .whole = 30s, .bytes = 64U << 20U};
constexpr X11Selection::Limits kImpatient{.silence = 1ms, .whole = 30s, .bytes = 64U << 20U};

class X11SelectionTest : public testing::Test {
protected:
    void beginToRead(const X11Selection::Limits& limits) {
        answers.clear();
        selection.read(limits, [this](auto text) { answers.push_back(std::move(text)); });
    }

    std::optional<std::string> awaitAnswer() {
        turnQtUntil([&] { return !answers.empty(); });
        return answers.at(0);
    }

    /// Takes a piece to the end, as far as it is fetched.
    void handOver(ClipboardHolder& holder, const std::string& piece) {
        holder.write(piece);
        turnQtUntil([&] { return holder.isFetched(); });
    }

    PrivateDisplay display;
    X11Selection selection;
    std::vector<std::optional<std::string>> answers;
};

TEST_F(X11SelectionTest, TextsOfAnyLengthAreReadWithAndWithoutWaiting) {
    EXPECT_EQ(selection.wait(kPlenty), "") << "nobody holds any";
    const TemporaryFolder folder;
    for (const std::size_t length : {5U, 300'000U, 1'100'000U, 20'000'000U}) {
        std::string text = "ü" + std::string(length, 'x') + "!";
        folder.write("text", text);
        PrivateDisplay::run("cd '" + folder.path().string() +
                            "'; xclip -selection clipboard text >/dev/null 2>&1\n"
                            "until xclip -selection clipboard -o | cmp -s - text; do :; done");
        EXPECT_TRUE(selection.wait(kPlenty) == text) << length;
        beginToRead(kPlenty);
        EXPECT_TRUE(awaitAnswer() == text) << length;
        EXPECT_EQ(selection.wait({.silence = 30s, .whole = 30s, .bytes = length + 2}),
                  std::nullopt);
        const auto again = selection.wait({.silence = 30s, .whole = 30s, .bytes = length + 3});
        EXPECT_TRUE(again == text) << length << (again ? again->size() : 1);
    }
}

TEST_F(X11SelectionTest, PiecesAreJoinedAndTheWindowStaysUntilTheLast) {
    ClipboardHolder holder;
    beginToRead(kPlenty);
    holder.awaitRequest();
    holder.announcePieces();
    turnQtUntil([&] { return holder.isFetched(); });
    for (const char* piece : {"one ", "two ", "three"}) {
        handOver(holder, piece);
        EXPECT_TRUE(answers.empty());
    }
    handOver(holder, "");
    EXPECT_EQ(awaitAnswer(), "one two three");
    EXPECT_EQ(holder.errors(), 0);
}

TEST_F(X11SelectionTest, WhoAnswersTooLateIsNotLeftInTheLurchNorTakenForAnother) {
    ClipboardHolder late;
    beginToRead(kImpatient);
    EXPECT_EQ(awaitAnswer(), std::nullopt);
    EXPECT_EQ(selection.wait({.silence = 1ms, .whole = 1ms, .bytes = 99}), std::nullopt);
    late.awaitRequest();
    {
        ClipboardHolder other;
        beginToRead(kPlenty);
        other.awaitRequest();
        late.announcePieces();
        turnQtUntil([&] { return late.isFetched(); });
        handOver(late, "too late");
        handOver(late, "");
        EXPECT_TRUE(answers.empty());
        other.write("right");
        other.notify();
        EXPECT_EQ(awaitAnswer(), "right");
        EXPECT_EQ(other.errors(), 0);
    }
    late.awaitRequest(); // that of the one who waited
    late.write("too late as well");
    late.notify();
    turnQtUntil([&] { return late.isFetched(); });
    EXPECT_EQ(late.errors(), 0);
    EXPECT_EQ(answers.size(), 1U);
}

TEST_F(X11SelectionTest, WhatIsTooLongIsKnownEarlyAndTakenToItsEnd) {
    ClipboardHolder holder;
    beginToRead({.silence = 30s, .whole = 30s, .bytes = 10});
    holder.awaitRequest();
    holder.announcePieces();
    turnQtUntil([&] { return holder.isFetched(); });
    handOver(holder, "nine char");
    EXPECT_TRUE(answers.empty());
    handOver(holder, std::string(100'000, 'x'));
    EXPECT_EQ(awaitAnswer(), std::nullopt);
    handOver(holder, "more");
    handOver(holder, "");
    EXPECT_EQ(answers.size(), 1U);
    EXPECT_EQ(holder.errors(), 0);
}

TEST_F(X11SelectionTest, ARefusalIsNoTextAndALostServerIsNoAnswer) {
    ClipboardHolder holder;
    beginToRead(kPlenty);
    holder.awaitRequest();
    holder.refuse();
    EXPECT_EQ(awaitAnswer(), "");
    beginToRead(kPlenty);
    holder.awaitRequest();
    display.endServer();
    EXPECT_EQ(awaitAnswer(), std::nullopt);
    EXPECT_EQ(selection.wait(kPlenty), std::nullopt);
    beginToRead(kPlenty);
    EXPECT_EQ(awaitAnswer(), std::nullopt);
}

} // namespace
} // namespace pello
