#include "ui/settings/SettingsPage.h"

#include <QLabel>

namespace pello {
namespace {

constexpr int kSectionGap = 22;
constexpr double kTitleScale = 1.5;

} // namespace

SettingsPage::SettingsPage(const QString& title, Height height) : title_(title), height_(height) {
    sectionLayout_ = new QVBoxLayout(this);
    sectionLayout_->setContentsMargins({});
    sectionLayout_->setSpacing(kSectionGap);
    auto* heading = new QLabel(title);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    sectionLayout_->addWidget(heading);
    if (height == Height::needed) {
        sectionLayout_->addStretch();
    }
}

SettingsSection& SettingsPage::addSection(const QString& title) {
    auto* section = new SettingsSection(title);
    if (height_ == Height::all) {
        sectionLayout_->addWidget(section, 1);
    } else {
        sectionLayout_->insertWidget(sectionLayout_->count() - 1, section);
    }
    sections_.push_back(section);
    return *section;
}

SettingRow* SettingsPage::row(const QString& label) const {
    for (const SettingsSection* section : sections_) {
        for (SettingRow* row : section->rows()) {
            if (row->label() == label) {
                return row;
            }
        }
    }
    return nullptr;
}

QWidget* SettingsPage::firstControl() const {
    for (const SettingsSection* section : sections_) {
        for (const SettingRow* row : section->rows()) {
            if (!row->isHidden() && row->control().isEnabled()) {
                return &row->control();
            }
        }
    }
    return nullptr;
}

int SettingsPage::filter(const QStringList& words) {
    int shown = 0;
    for (SettingsSection* section : sections_) {
        shown += section->filter(title_, words);
    }
    return shown;
}

} // namespace pello
