#include "ui/panel/TextLine.h"

#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <memory>

namespace pello {

namespace {

constexpr std::size_t kLongest = 300; // characters; no screen shows more in one row

/// A line that was laid out, and its title, which may have been shortened for it.
struct Line {
    std::unique_ptr<QTextLayout> layout;
    [[nodiscard]] double width() const { return layout->lineAt(0).naturalTextWidth(); }
};

Line layOut(const MarkedText& title, const QFont& font, const MarkStyle& marks, double width,
            Qt::Alignment alignment) {
    auto layout = std::make_unique<QTextLayout>(title.text(), font);
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    QList<QTextLayout::FormatRange> formats;
    for (const auto& range : title.markedRanges()) {
        QTextCharFormat format;
        format.setForeground(marks.color);
        format.setFontWeight(marks.weight);
        formats.append({range.start, range.length, format});
    }
    layout->setFormats(formats);
    layout->beginLayout();
    layout->createLine().setLineWidth(width);
    layout->endLayout();
    return {std::move(layout)};
}

} // namespace

void paintLine(QPainter& painter, const QRectF& area, double baseline, const MarkedText& title,
               const QFont& font, const MarkStyle& marks) {
    const bool isMirrored = painter.layoutDirection() == Qt::RightToLeft;
    const auto attempt = [&](const MarkedText& text) {
        return layOut(text, font, marks, area.width(), isMirrored ? Qt::AlignRight : Qt::AlignLeft);
    };
    Line line = attempt(title.elided(kLongest));
    if (line.width() > area.width()) {
        std::size_t fits = 0; // grows to the most characters that do
        std::size_t tooMany = std::min(title.characterCount(), kLongest);
        while (fits + 1 < tooMany) {
            const std::size_t middle = (fits + tooMany) / 2;
            (attempt(title.elided(middle)).width() <= area.width() ? fits : tooMany) = middle;
        }
        line = attempt(title.elided(fits));
    }
    const double ascent = line.layout->lineAt(0).ascent();
    line.layout->draw(&painter, QPointF(area.x(), baseline - ascent));
}

} // namespace pello
