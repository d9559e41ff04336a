#include "ui/settings/SettingsSection.h"

#include "ui/settings/SettingsCard.h"

#include <QLabel>

#include <algorithm>

namespace pello {
namespace {

constexpr int kTitleGap = 7;

bool holdsAll(const QString& text, const QStringList& words) {
    return std::ranges::all_of(
        words, [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace

SettingsSection::SettingsSection(const QString& title) : title_(title), card_(new SettingsCard) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(kTitleGap);
    if (!title.isEmpty()) {
        auto* label = new QLabel(title);
        QFont font = label->font();
        font.setWeight(QFont::DemiBold);
        label->setFont(font);
        layout->addWidget(label);
    }
    layout->addWidget(card_, 1);
    cardLayout_ = new QVBoxLayout(card_);
    cardLayout_->setContentsMargins(1, 1, 1, 1);
    cardLayout_->setSpacing(0);
}

SettingRow& SettingsSection::addRow(const QString& label, const QString& description,
                                    QWidget* control, SettingRow::Placement placement) {
    auto* row = new SettingRow(label, description, control, placement);
    cardLayout_->addWidget(row);
    rows_.push_back(row);
    return *row;
}

int SettingsSection::filter(const QString& context, const QStringList& words) {
    int shown = 0;
    for (SettingRow* row : rows_) {
        const QStringList texts{context, title_, row->label(), row->description()};
        const bool isShown = holdsAll(texts.join(u'\n'), words);
        row->setVisible(isShown);
        shown += isShown ? 1 : 0;
    }
    setVisible(shown > 0);
    card_->update();
    return shown;
}

} // namespace pello
