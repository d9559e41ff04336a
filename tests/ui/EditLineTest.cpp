#include "ui/terminal/EditLine.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace pello {
namespace {

using Edit = void (EditLine::*)();

/// What edits make of a text with the caret behind it; "|" is the caret.
std::string edited(std::string_view text, std::initializer_list<Edit> edits) {
    EditLine line;
    line.setText(text);
    for (const Edit edit : edits) {
        (line.*edit)();
    }
    return line.beforeCaret() + "|" + line.afterCaret();
}

TEST(EditLineTest, TheCaretMovesAndErasesByWhatUsersCallACharacter) {
    constexpr auto kLeft = &EditLine::moveLeft;
    EXPECT_EQ(edited("a👨‍👩‍👧e\u0301", {kLeft, kLeft}), "a|👨‍👩‍👧e\u0301");
    EXPECT_EQ(edited("a🇩🇪b", {kLeft, &EditLine::eraseLeft}), "a|b");
    EXPECT_EQ(edited("ab", {kLeft, kLeft, kLeft, &EditLine::moveRight}), "a|b");
    EXPECT_EQ(edited("a👍🏽", {kLeft, &EditLine::eraseRight, &EditLine::eraseRight}), "a|");
    EXPECT_EQ(edited("", {&EditLine::eraseLeft, &EditLine::eraseRight, kLeft}), "|");
}

TEST(EditLineTest, WordsStandBetweenBlanks) {
    EXPECT_EQ(edited("open the-file  ", {&EditLine::eraseWordLeft}), "open |");
    EXPECT_EQ(edited("open it", {&EditLine::eraseWordLeft, &EditLine::eraseWordLeft}), "|");
    EXPECT_EQ(edited("one two", {&EditLine::moveWordLeft}), "one |two");
    EXPECT_EQ(edited("one two", {&EditLine::moveToStart, &EditLine::moveWordRight}), "one| two");
    EXPECT_EQ(edited("one two", {&EditLine::moveToStart, &EditLine::moveWordRight,
                                 &EditLine::moveWordRight, &EditLine::moveWordRight}),
              "one two|");
    EXPECT_EQ(edited("one two", {&EditLine::moveWordLeft, &EditLine::eraseToEnd}), "one |");
    EXPECT_EQ(edited("one two", {&EditLine::moveWordLeft, &EditLine::eraseToStart}), "|two");
}

} // namespace
} // namespace pello
