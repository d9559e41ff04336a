#include "ui/guide/CheckRow.h"

#include "ui/guide/StateMark.h"
#include "ui/settings/SettingsPalette.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QMargins kMargins(16, 9, 16, 9);
constexpr int kGap = 12;
constexpr int kTextGap = 2;

QLabel* newLabel(const std::string& text, QPalette::ColorRole role) {
    auto* label = new QLabel(QString::fromStdString(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setForegroundRole(role);
    label->setVisible(!text.empty());
    return label;
}

} // namespace

CheckRow::CheckRow(const GuideCheck& check, QWidget* parent) : QWidget(parent) {
    const bool isWrong = check.state == GuideCheck::State::wrong;
    const auto text = [](const std::string& part) { return QString::fromStdString(part); };
    setAccessibleName(
        u"%1: %2. %3"_s.arg(text(check.title), StateMark::word(check.state), text(check.finding)));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kGap);
    auto* mark = new StateMark(this);
    mark->setState(check.state);
    layout->addWidget(mark, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(kTextGap);
    texts->addWidget(newLabel(check.title, QPalette::Text));
    texts->addWidget(newLabel(check.purpose, SettingsPalette::kDim));
    texts->addWidget(
        newLabel(check.finding, isWrong ? SettingsPalette::kProblem : SettingsPalette::kDim));
    layout->addLayout(texts, 1);
    if (check.open) {
        auto* button = new QPushButton(text(check.openTitle), this);
        button->setAutoDefault(false);
        button->setAccessibleDescription(accessibleName());
        connect(button, &QPushButton::clicked, this, check.open);
        layout->addWidget(button, 0, Qt::AlignVCenter);
    }
}

} // namespace pello
