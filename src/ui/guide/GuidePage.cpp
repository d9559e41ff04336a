#include "ui/guide/GuidePage.h"

#include "ui/guide/ScaledFont.h"
#include "ui/settings/SettingsPalette.h"

#include <QLabel>

namespace pello {
namespace {

constexpr QMargins kMargins(44, 36, 44, 20);
constexpr int kTextGap = 8;
constexpr int kBodyGap = 20;
constexpr int kRowGap = 14;
constexpr double kTitleScale = 1.8;

} // namespace

GuidePage::GuidePage(const QString& title, const QString& text, QWidget* parent)
    : QWidget(parent), title_(title), text_(text), body_(new QVBoxLayout) {
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus); // so that it is read out
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kTextGap);
    auto* heading = new QLabel(title, this);
    QFont font = scaledFont(this->font(), kTitleScale);
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    heading->setWordWrap(true);
    layout->addWidget(heading);
    layout->addWidget(newNote(text));
    layout->addSpacing(kBodyGap);
    body_->setSpacing(kRowGap);
    layout->addLayout(body_);
    layout->addStretch(1);
}

QWidget* GuidePage::newNote(const QString& text) {
    auto* note = new QLabel(text);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setForegroundRole(SettingsPalette::kDim);
    return note;
}

} // namespace pello
