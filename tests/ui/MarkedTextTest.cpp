#include "ui/panel/MarkedText.h"

#include "ui/panel/TextLine.h"

#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <ranges>
#include <string>
#include <vector>

namespace pello {
namespace {

/// `text` with the marked runs in brackets.
std::string show(const MarkedText& text) {
    QString shown = text.text();
    const auto ranges = text.markedRanges();
    for (const auto& range : std::views::reverse(ranges)) {
        shown.insert(range.start + range.length, ']').insert(range.start, '[');
    }
    return shown.toStdString();
}

std::string marked(std::string_view text, const std::vector<int>& marks) {
    return show(MarkedText(text, marks));
}

TEST(MarkedTextTest, MarksCountCharactersAsUsersSeeThem) {
    EXPECT_EQ(marked("Firefox", {0, 1, 4}), "[Fi]re[f]ox");
    EXPECT_EQ(marked("👩‍🚒 fighter", {0, 2}), "[👩‍🚒] [f]ighter");
    EXPECT_EQ(marked("e\u0301te\u0301", {0, 2}), "[e\u0301]t[e\u0301]");
    EXPECT_EQ(marked("🇩🇪🇫🇷", {1}), "🇩🇪[🇫🇷]");
    EXPECT_EQ(marked("متصفح", {0}), "[م]تصفح");
}

TEST(MarkedTextTest, MarksBeyondTheEndCountForNothing) {
    EXPECT_EQ(marked("ab", {-1, 1, 2, 900}), "a[b]");
    EXPECT_EQ(marked("", {0}), "");
}

TEST(MarkedTextTest, AnyTextMakesOneLine) {
    EXPECT_EQ(marked("one\ntwo\r\nthree\tfour\u2028five", {4}), "one [t]wo  three four five");
    EXPECT_EQ(MarkedText("broken \xff\xfe bytes").text().count(QChar::LineFeed), 0);
}

TEST(MarkedTextTest, ElidingKeepsBothEndsAndTheirMarks) {
    const MarkedText text("a long title 🇩🇪", std::vector{0, 3, 13});
    EXPECT_EQ(show(text.elided(5)), "[a] l… [🇩🇪]") << "marks of what is left out go with it";
    EXPECT_EQ(show(text.elided(0)), "…");
    EXPECT_EQ(show(text.elided(14)), show(text));
}

/// Whether anything was painted in the columns from `first` on.
bool isPaintedFrom(const QImage& image, int first) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = first; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0) {
                return true;
            }
        }
    }
    return false;
}

TEST(TextLineTest, ALongLineNeverLeavesItsArea) {
    const std::string words = "Wide Wild Windows With Words ";
    const std::string rightToLeft = "متصفح الإنترنت الطويل جدا ";
    for (const std::string& piece : {words, rightToLeft, std::string("漢字🔥")}) {
        std::string title;
        for (int i = 0; i < 200; ++i) {
            title += piece;
        }
        QImage image(400, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(0);
        QPainter painter(&image);
        QFont font;
        font.setPixelSize(16);
        std::vector<int> marks(5000);
        std::iota(marks.begin(), marks.end(), 0);
        paintLine(painter, QRectF(0, 0, 300, 40), 25, MarkedText(title, marks), font,
                  {.color = Qt::red});
        painter.end();
        EXPECT_TRUE(isPaintedFrom(image, 250)) << piece << ": as much as fits";
        EXPECT_FALSE(isPaintedFrom(image, 302)) << piece;
    }
}

} // namespace
} // namespace pello
