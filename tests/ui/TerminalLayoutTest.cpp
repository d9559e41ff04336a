#include "ui/terminal/TerminalLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

using terminal::layOut;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class TerminalLayoutTest : public testing::Test {
protected:
    TerminalLayoutTest() { std::setlocale(LC_CTYPE, "C.UTF-8"); }

    LaunchItem& add(const std::string& title, std::vector<int> marks = {}) {
        auto item = std::make_shared<LaunchItem>(LaunchItem{.id = title, .title = title});
        LaunchItem& added = *item;
        results.push_back({.item = std::move(item), .score = 0, .titleMatches = std::move(marks)});
        return added;
    }

    [[nodiscard]] TerminalScreen screen(int rows, int columns) {
        view.results = results;
        view.failures = failures;
        return layOut(view, {.rows = rows, .columns = columns});
    }

    [[nodiscard]] std::vector<std::string> lines(int rows, int columns) {
        const TerminalScreen made = screen(rows, columns);
        std::vector<std::string> texts;
        for (int row = 0; row < rows; ++row) {
            texts.push_back(made.text(row));
        }
        return texts;
    }

    /// The columns of a line that have a style.
    static std::string columnsOf(const TerminalScreen& made, int row, TerminalCell::Style style) {
        std::string text;
        for (const TerminalCell& cell : made.line(row)) {
            text += cell.style == style ? cell.text : "";
        }
        return text;
    }

    std::vector<SearchResult> results;
    std::vector<ScriptFailure> failures;
    TerminalView view;
};

TEST_F(TerminalLayoutTest, TheFieldIsAboveTheRowsAndTheCaretBehindWhatIsTyped) {
    view.beforeCaret = "sa";
    view.completion = "fari";
    LaunchItem& safari = add("Safari", {0, 1});
    safari.subtitle = "/usr/bin/safari";
    safari.accessory = "⌘1";
    add("Safe Mode");
    view.selection = 1;
    EXPECT_THAT(lines(9, 40), ElementsAre(" ›  safari", StartsWith("────"),
                                          "    Safari  /usr/bin/safari          ⌘1", //
                                          "    Safe Mode                         ↩", "", "", "", "",
                                          " Return run · Tab complete · Ctrl+R re…"));
    const TerminalScreen made = screen(9, 40);
    EXPECT_EQ(made.caret, (TerminalScreen::Place{.row = 0, .column = 6}));
    EXPECT_EQ(columnsOf(made, 0, TerminalCell::Style::dim), "fari");
    EXPECT_EQ(columnsOf(made, 2, TerminalCell::Style::marked), "Sa");
    EXPECT_FALSE(made.line(2)[10].isSelected);
    EXPECT_TRUE(made.line(3)[10].isSelected);
}

TEST_F(TerminalLayoutTest, WideCharactersAndPicturesKeepTheColumns) {
    add("日本語").accessory = "x";
    add("👨‍👩‍👧 family").accessory = "x";
    add("👍🏽❤️ é\u0301 🇩🇪!").accessory = "x";
    add("שלום").accessory = "x";
    results[1].titleMatches = {2};
    const TerminalScreen made = screen(12, 30);
    EXPECT_EQ(made.text(3), "    👨 family               x");
    EXPECT_EQ(made.text(4), "    👍❤ é\u0301 🇩🇪!               x");
    EXPECT_EQ(made.text(5), "    שלום                    x");
    EXPECT_EQ(columnsOf(made, 3, TerminalCell::Style::marked), "f");
    for (int row = 2; row < 6; ++row) {
        EXPECT_THAT(made.line(row)[28].text, testing::AnyOf("x", "↩")) << row;
    }
    EXPECT_EQ(made.line(2)[4].text, "日");
    EXPECT_EQ(made.line(2)[5].text, "");
    EXPECT_EQ(made.line(2)[6].text, "本");
}

TEST_F(TerminalLayoutTest, ControlCharactersAndWhatTakesNoRoomCannotSpoilALine) {
    add("a\x1b[31mb\tc\nd");
    add("x\u200b\u202ey\xff");
    view.selection = 1;
    EXPECT_THAT(lines(4, 40), ElementsAre(" ›  Type to search", "    a [31mb c d",
                                          StartsWith("    xy\uFFFD "), ""));
}

TEST_F(TerminalLayoutTest, LongTitlesAreElidedInTheirMiddleAndNeverRunIntoTheAccessory) {
    add(std::string(30, 'a') + std::string(30, 'z')).accessory = "Application";
    add("日本語日本語日本語日本語日本語日本語").accessory = "x";
    view.selection = 2;
    EXPECT_THAT(lines(4, 40), ElementsAre(testing::_, "    aaaaaaaaaaa…zzzzzzzzzz  Application",
                                          testing::_, testing::_));
    for (int columns = 1; columns < 60; ++columns) {
        const std::string line = screen(4, columns).text(2);
        if (columns > 20) {
            EXPECT_THAT(line, EndsWith("x")) << columns;
        }
        EXPECT_LE(terminal::width(terminal::glyphs(line)), columns);
    }
}

TEST_F(TerminalLayoutTest, LongTextsShowWhereTheCaretIs) {
    view.beforeCaret = "0123456789日";
    view.afterCaret = "xyz";
    const TerminalScreen made = screen(3, 12);
    EXPECT_EQ(made.text(0), " › 456789日x");
    EXPECT_EQ(made.caret->column, 11);
}

TEST_F(TerminalLayoutTest, WhatIsAskedOrToldHasRoomInTheSmallestWindow) {
    add("Safari");
    view.notice = "The disk is full and nothing can be saved.";
    failures.push_back({.name = "post", .status = 3, .detail = "no network\nmore"});
    view.selectedFailure = 0;
    EXPECT_THAT(lines(7, 40), ElementsAre(testing::_, "    Safari", "", "",
                                          " !  post failed  no network           3",
                                          " ! The disk is full and nothing can be", " saved."));
    EXPECT_TRUE(screen(7, 40).line(4)[0].isSelected);
    EXPECT_FALSE(screen(7, 40).line(1)[0].isSelected);

    view.question = {.title = "Empty it?", .message = "It is gone then.", .confirmTitle = "Empty"};
    EXPECT_THAT(lines(2, 20), ElementsAre(testing::_, " y: Empty   n: Can…"));
    EXPECT_FALSE(screen(7, 40).caret);
    for (int rows = 1; rows < 6; ++rows) {
        for (int columns = 1; columns < 12; ++columns) {
            EXPECT_THAT(screen(rows, columns).text(0), StartsWith(columns > 1 ? " ›" : ""));
        }
    }
}

TEST_F(TerminalLayoutTest, TheSelectedRowIsAlwaysSeen) {
    for (int number = 0; number < 50; ++number) {
        add("row " + std::to_string(number));
    }
    for (int selected = 0; selected < 50; ++selected) {
        view.selection = selected;
        bool isSeen = false;
        for (const std::string& line : lines(10, 40)) {
            isSeen = isSeen || line.starts_with("    row " + std::to_string(selected) + " ");
        }
        EXPECT_TRUE(isSeen) << selected;
    }
    EXPECT_EQ(terminal::rowsAtOnce(view, {.rows = 10, .columns = 40}), 7);
    EXPECT_EQ(terminal::rowsAtOnce(view, {.rows = 1, .columns = 1}), 1);
}

TEST_F(TerminalLayoutTest, AFailureIsReadInPlaceOfTheRows) {
    add("Safari");
    const ScriptFailure failure{
        .name = "post", .fileName = "post.sh", .status = 3, .detail = "one\ntwo\nthree"};
    view.opened = &failure;
    view.firstLine = 1;
    EXPECT_THAT(lines(8, 50), ElementsAre(testing::_, testing::_, " post failed: post.sh, status 3",
                                          " two", " three", "", "", HasSubstr("Esc back")));
}

} // namespace
} // namespace pello
