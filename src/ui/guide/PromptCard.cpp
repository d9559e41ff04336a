#include "ui/guide/PromptCard.h"

#include "ui/guide/ScaledFont.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PanelTheme.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QMargins kMargins(24, 22, 24, 20);
constexpr int kGap = 14;
constexpr int kMarkGap = 8;
constexpr int kRadius = 12;
constexpr double kCapScale = 1.35;
constexpr int kWidestStatus = 26; // in heights of the font; more is wrapped
constexpr double kLineShare = 0.13;

} // namespace

PromptCard::PromptCard(QWidget* parent)
    : QFrame(parent),
      prompt_(new QLabel(this)),
      caps_(new KeyCaps({}, this)),
      mark_(new StateMark(this)),
      status_(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kGap);
    layout->addWidget(prompt_, 0, Qt::AlignHCenter);
    caps_->setFont(scaledFont(font(), kCapScale));
    layout->addWidget(caps_, 0, Qt::AlignHCenter);
    auto* line = new QHBoxLayout;
    line->setSpacing(kMarkGap);
    line->addStretch(1);
    line->addWidget(mark_, 0, Qt::AlignTop);
    line->addWidget(status_);
    line->addStretch(1);
    layout->addLayout(line);
    status_->setTextFormat(Qt::PlainText);
    status_->setWordWrap(true);
}

void PromptCard::ask(const QString& prompt, const QStringList& keys) {
    prompt_->setText(prompt);
    caps_->setKeys(keys);
    isConfirmed_ = false;
    showStatus();
}

void PromptCard::confirm() {
    isConfirmed_ = true;
    showStatus();
}

void PromptCard::setProblem(const QString& problem) {
    problem_ = problem;
    showStatus();
}

void PromptCard::showStatus() {
    mark_->setVisible(isConfirmed_ || !problem_.isEmpty());
    if (isConfirmed_) {
        mark_->setState(GuideCheck::State::works);
        say(u"Seen. That is how you open Pello, from anywhere."_s, QPalette::Text);
    } else if (!problem_.isEmpty()) {
        mark_->setState(GuideCheck::State::wrong);
        say(problem_, SettingsPalette::kProblem);
    } else {
        say(u"Waiting for it…"_s, SettingsPalette::kDim);
    }
    update();
}

void PromptCard::say(const QString& text, QPalette::ColorRole role) {
    status_->setText(text);
    status_->setForegroundRole(role);
    const QFontMetrics font = status_->fontMetrics();
    status_->setMinimumWidth(
        std::min(font.horizontalAdvance(text) + 1, kWidestStatus * font.height()));
}

void PromptCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = isConfirmed_ ? PanelTheme::matching(palette()).success
                                     : SettingsPalette::blend(palette(), kLineShare);
    painter.setPen(QPen(line, isConfirmed_ ? 2 : 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius, kRadius);
}

} // namespace pello
