#include "ui/settings/SettingRow.h"

#include "ui/settings/SettingsPalette.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace pello {
namespace {

constexpr QMargins kMargins(16, 11, 16, 11);
constexpr int kTextGap = 3;
constexpr int kControlGap = 24;
constexpr int kBelowGap = 10;

QLabel* newLabel(const QString& text, QPalette::ColorRole role) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setForegroundRole(role);
    label->setVisible(!text.isEmpty());
    return label;
}

void setText(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

SettingRow::SettingRow(const QString& label, const QString& description, QWidget* control,
                       Placement placement)
    : label_(newLabel(label, QPalette::Text)),
      description_(newLabel(description, SettingsPalette::kDim)),
      notice_(newLabel({}, SettingsPalette::kProblem)),
      control_(control->focusProxy() != nullptr ? *control->focusProxy() : *control) {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(kTextGap);
    texts->addWidget(label_);
    texts->addWidget(description_);
    texts->addWidget(notice_);
    auto* layout = new QBoxLayout(
        placement == Placement::beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(placement == Placement::beside ? kControlGap : kBelowGap);
    layout->addLayout(texts, placement == Placement::beside ? 1 : 0);
    layout->addWidget(control, placement == Placement::beside ? 0 : 1,
                      placement == Placement::beside ? Qt::AlignVCenter : Qt::Alignment());
    label_->setBuddy(&control_);
    control_.setAccessibleName(label);
    setDescription(description);
}

void SettingRow::setDescription(const QString& text) {
    setText(*description_, text);
    control_.setAccessibleDescription(text);
}

void SettingRow::setNotice(const QString& text) {
    setText(*notice_, text);
    control_.setAccessibleDescription(text.isEmpty() ? description_->text()
                                                     : description_->text() + u' ' + text);
}

void SettingRow::mouseReleaseEvent(QMouseEvent* event) {
    auto* button = qobject_cast<QAbstractButton*>(&control_);
    if (button != nullptr && button->isCheckable() && event->button() == Qt::LeftButton &&
        rect().contains(event->position().toPoint())) {
        button->click(); // all of the row belongs to its switch
    }
}

} // namespace pello
