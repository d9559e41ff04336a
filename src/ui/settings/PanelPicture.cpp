#include "ui/settings/PanelPicture.h"

#include "ui/settings/SettingBinding.h"
#include "ui/theme/PanelStyle.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <array>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kHeight = 176;
constexpr int kRadius = 7;
constexpr int kMargin = 22;
/// The picture shows the launcher at this share of its size.
constexpr double kShare = 0.62;

struct Row {
    QString title;
    QString subtitle;
    QColor tile;
};

const std::array kRows{
    Row{u"Text Editor"_s, u"Application"_s, QColor(0x3a, 0x73, 0xd1)},
    Row{u"Terminal"_s, u"Application"_s, QColor(0x51, 0x60, 0x79)},
    Row{u"Test Report"_s, u"Script"_s, QColor(0x3a, 0x7d, 0x5f)},
};

} // namespace

PanelPicture::PanelPicture(PelloSettings& settings) : settings_(settings) {
    setFixedHeight(kHeight);
    for (Signal<>* changed : {&settings.fontSize.changed, &settings.usesGlass.changed,
                              &settings.startsCompact.changed, &settings.maximumResults.changed}) {
        binding::follow(*this, *changed, [this] { update(); });
    }
}

void PanelPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QPainterPath frame;
    frame.addRoundedRect(rect(), kRadius, kRadius);
    painter.setClipPath(frame);
    paintBackdrop(painter);
    const auto style = PanelStyle::make(palette(), QGuiApplication::font(), settings_.fontSize());
    painter.translate(kMargin, kMargin);
    painter.scale(kShare, kShare);
    const int width = static_cast<int>((this->width() - 2 * kMargin) / kShare);
    const auto rows = settings_.startsCompact()
                          ? 0
                          : std::min<std::int64_t>(settings_.maximumResults(), kRows.size());
    const int listHeight =
        rows == 0 ? 0
                  : 2 * style.metrics.listPadding + static_cast<int>(rows) * style.metrics.rowPitch;
    const QRect panel(0, 0, width, style.metrics.headerHeight + listHeight);
    QColor ground = style.theme.ground;
    ground.setAlphaF(settings_.usesGlass() ? static_cast<float>(style.theme.glassOpacity) : 1.0F);
    painter.setPen(style.theme.line);
    painter.setBrush(ground);
    painter.drawRoundedRect(panel, style.metrics.radius, style.metrics.radius);
    painter.setClipRect(panel, Qt::IntersectClip);
    paintField(painter, style);
    if (rows > 0) {
        paintRows(painter, style);
    }
}

void PanelPicture::paintBackdrop(QPainter& painter) const {
    QLinearGradient gradient(rect().topLeft(), rect().bottomRight());
    gradient.setColorAt(0, QColor(0x5b, 0x7f, 0xd6));
    gradient.setColorAt(0.55, QColor(0x8a, 0x6f, 0xc9));
    gradient.setColorAt(1, QColor(0xd5, 0x8b, 0x86));
    painter.fillRect(rect(), gradient);
}

void PanelPicture::paintField(QPainter& painter, const PanelStyle& style) const {
    const auto& metrics = style.metrics;
    const QRect field(metrics.headerPadding, 0, width() * 2, metrics.headerHeight);
    painter.setFont(style.fieldFont);
    const QString typed = settings_.startsCompact() ? QString() : u"te"_s;
    painter.setPen(style.theme.text);
    painter.drawText(field, Qt::AlignVCenter | Qt::AlignLeft, typed);
    const int caret =
        metrics.headerPadding + QFontMetrics(style.fieldFont).horizontalAdvance(typed);
    painter.setPen(style.theme.dim);
    painter.drawText(field.adjusted(caret - field.left(), 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft,
                     typed.isEmpty() ? u"Search"_s : u"xt editor"_s);
    const int caretHeight = QFontMetrics(style.fieldFont).height();
    painter.fillRect(caret, (metrics.headerHeight - caretHeight) / 2, metrics.caretWidth,
                     caretHeight, style.theme.accent);
}

void PanelPicture::paintRows(QPainter& painter, const PanelStyle& style) const {
    const auto& metrics = style.metrics;
    const int panelWidth = static_cast<int>((width() - 2 * kMargin) / kShare);
    QRect row(metrics.rowMargin, metrics.headerHeight + metrics.listPadding,
              panelWidth - 2 * metrics.rowMargin, metrics.rowPitch);
    painter.fillRect(0, metrics.headerHeight - 1, panelWidth, 1, style.theme.line);
    const auto shown =
        static_cast<std::size_t>(std::min<std::int64_t>(settings_.maximumResults(), kRows.size()));
    for (std::size_t i = 0; i < shown; ++i, row.translate(0, metrics.rowPitch)) {
        painter.setPen(Qt::NoPen);
        if (i == 0) {
            painter.setBrush(style.theme.selection);
            painter.drawRoundedRect(row.adjusted(0, metrics.rowGap, 0, -metrics.rowGap),
                                    metrics.rowRadius, metrics.rowRadius);
        }
        const QRect icon(row.left() + metrics.rowPadding,
                         row.top() + (row.height() - metrics.icon) / 2, metrics.icon, metrics.icon);
        painter.setBrush(kRows.at(i).tile);
        painter.drawRoundedRect(icon, metrics.icon / 4.0, metrics.icon / 4.0);
        const QRect texts = row.adjusted(icon.right() + metrics.rowPadding - row.left(), 0, 0, 0);
        painter.setFont(style.titleFont);
        painter.setPen(style.theme.text);
        painter.drawText(texts.adjusted(0, 0, 0, -row.height() / 2 + 3),
                         Qt::AlignBottom | Qt::AlignLeft, kRows.at(i).title);
        painter.setFont(style.subtitleFont);
        painter.setPen(style.theme.dim);
        painter.drawText(texts.adjusted(0, row.height() / 2 + 3, 0, 0),
                         Qt::AlignTop | Qt::AlignLeft, kRows.at(i).subtitle);
    }
}

} // namespace pello
