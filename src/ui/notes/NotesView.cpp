#include "ui/notes/NotesView.h"

#include "ui/notes/NotesText.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PanelTheme.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextFrame>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kMargin = 28;
constexpr int kPadding = 20;
constexpr int kGap = 14;
constexpr int kNotesGap = 10;
constexpr int kIndent = 22;
constexpr double kLineHeight = 122; // percent
constexpr double kRadius = 9;
constexpr double kLineShare = 0.13;
constexpr double kBadgeShare = 0.12;
constexpr double kVersionScale = 1.35;
constexpr double kBadgeScale = 0.85;

QTextBlockFormat gapFormat() {
    QTextBlockFormat format;
    format.setLineHeight(kGap, QTextBlockFormat::FixedHeight);
    return format;
}

} // namespace

NotesView::NotesView() {
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(u"Release notes"_s);
    viewport()->setBackgroundRole(QPalette::Window);
    document()->setDocumentMargin(kMargin);
    document()->setIndentWidth(kIndent);
    document()->setUndoRedoEnabled(false);
}

void NotesView::show(const std::vector<Release>& releases, const ReleaseVersion& installed) {
    releases_ = releases;
    installed_ = installed;
    write();
    verticalScrollBar()->setValue(0);
}

void NotesView::write() {
    const int scrolled = verticalScrollBar()->value();
    cards_.clear();
    badges_.clear();
    clear();
    QTextFrameFormat whole = document()->rootFrame()->frameFormat();
    whole.setTopMargin(0); // the header has a margin of its own
    document()->rootFrame()->setFrameFormat(whole);
    QTextCursor cursor(document());
    cursor.setBlockFormat(gapFormat());
    if (installed_) {
        writeReleases(cursor, *installed_);
    }
    verticalScrollBar()->setValue(scrolled);
}

void NotesView::writeReleases(QTextCursor& cursor, const ReleaseVersion& installed) {
    const std::size_t newer = newerCount(releases_, installed);
    for (std::size_t index = 0; index < releases_.size(); ++index) {
        if (index == newer && releases_[index].version != installed) {
            writeYourPlace(cursor, installed);
        }
        writeRelease(cursor, releases_[index], installed);
    }
    if (newer == releases_.size()) {
        writeYourPlace(cursor, installed);
    }
}

void NotesView::writeRelease(QTextCursor& cursor, const Release& release,
                             const ReleaseVersion& installed) {
    QTextFrameFormat card;
    card.setPadding(kPadding);
    card.setBottomMargin(0);
    cards_.push_back(cursor.insertFrame(card));

    QTextCharFormat version;
    version.setFontPointSize(font().pointSizeF() * kVersionScale);
    version.setFontWeight(QFont::DemiBold);
    cursor.setBlockFormat({});
    cursor.insertText(u"Pello "_s + shown(release.version.text()), version);
    if (release.version == installed) {
        writeBadge(cursor, u"Installed"_s, SettingsPalette::blend(palette(), kBadgeShare),
                   palette().color(QPalette::Text));
    } else if (release.version > installed) {
        writeBadge(cursor, u"New"_s, PanelTheme::matching(palette()).accent,
                   palette().color(QPalette::Base));
    }
    if (release.date) {
        QTextCharFormat dim;
        dim.setForeground(palette().color(SettingsPalette::kDim));
        cursor.insertBlock({}, dim);
        cursor.insertText(dateText(*release.date));
    }
    if (!release.notes.empty()) {
        writeNotes(cursor, shown(release.notes));
    }
    cursor = document()->rootFrame()->lastCursorPosition();
    cursor.setBlockFormat(gapFormat());
}

void NotesView::writeNotes(QTextCursor& cursor, const QString& notes) {
    cursor.insertBlock({}, {});
    const int start = cursor.position();
    cursor.insertHtml(notes);
    QTextBlockFormat airy;
    airy.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    cursor.setPosition(start, QTextCursor::KeepAnchor);
    cursor.mergeBlockFormat(airy);
    cursor.setPosition(start);
    QTextBlockFormat first = cursor.blockFormat();
    first.setTopMargin(kNotesGap);
    cursor.setBlockFormat(first);
}

void NotesView::writeBadge(QTextCursor& cursor, const QString& word, const QColor& ground,
                           const QColor& text) {
    QTextCharFormat format;
    format.setFontPointSize(font().pointSizeF() * kBadgeScale);
    format.setFontWeight(QFont::DemiBold);
    format.setForeground(text);
    cursor.insertText(u"    "_s, format);
    badges_.push_back(
        {.position = cursor.position(), .length = static_cast<int>(word.size()), .ground = ground});
    cursor.insertText(word, format);
}

/// Where the installed version would stand, which the feed does not know.
void NotesView::writeYourPlace(QTextCursor& cursor, const ReleaseVersion& installed) {
    QTextCharFormat dim;
    dim.setForeground(palette().color(SettingsPalette::kDim));
    QTextBlockFormat middle;
    middle.setAlignment(Qt::AlignHCenter);
    middle.setTopMargin(kGap);
    cursor.insertBlock(middle, dim);
    cursor.insertText(u"You have Pello %1"_s.arg(shown(installed.text())), dim);
    cursor.insertBlock(gapFormat(), {});
}

QVariant NotesView::loadResource(int /*type*/, const QUrl& /*name*/) {
    return {};
}

void NotesView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        QScrollBar* bar = verticalScrollBar();
        bar->setValue(event->key() == Qt::Key_Home ? bar->minimum() : bar->maximum());
        return;
    }
    QTextBrowser::keyPressEvent(event);
}

QRectF NotesView::areaOf(const Badge& badge) const {
    const QTextBlock block = document()->findBlock(badge.position);
    const int start = badge.position - block.position();
    const QTextLine line = block.layout()->lineForTextPosition(start);
    const QPointF origin = document()->documentLayout()->blockBoundingRect(block).topLeft();
    const double left = line.cursorToX(start);
    const double right = line.cursorToX(start + badge.length);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kBadgeScale);
    const QFontMetricsF metrics(small);
    const double baseline = line.y() + line.ascent();
    const QRectF text(left, baseline - metrics.ascent(), right - left, metrics.height());
    return text.translated(origin).adjusted(-8, -2, 8, 2);
}

void NotesView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
        painter.setPen(SettingsPalette::blend(palette(), kLineShare));
        painter.setBrush(palette().color(QPalette::Base));
        for (QTextFrame* card : cards_) {
            const QRectF area = document()->documentLayout()->frameBoundingRect(card);
            painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
        }
        painter.setPen(Qt::NoPen);
        for (const Badge& badge : badges_) {
            const QRectF area = areaOf(badge);
            painter.setBrush(badge.ground);
            painter.drawRoundedRect(area, area.height() / 2, area.height() / 2);
        }
    }
    QTextBrowser::paintEvent(event);
}

void NotesView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    const bool isNew =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (isNew && installed_) {
        write(); // the text is written in the colours of before
    }
}

} // namespace pello
