#include "ui/settings/ExtraFolders.h"

#include "ui/settings/SettingBinding.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kVisibleFolders = 4;

} // namespace

ExtraFolders::ExtraFolders(Setting<Folders>& setting)
    : setting_(setting), list_(new QListWidget), remove_(new QPushButton(u"Remove"_s)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    list_->setAccessibleName(u"Folders with applications"_s);
    list_->setTextElideMode(Qt::ElideMiddle);
    list_->setFixedHeight(kVisibleFolders * (fontMetrics().height() + 6));
    list_->setTabKeyNavigation(false);
    layout->addWidget(list_);
    auto* buttons = new QHBoxLayout;
    auto* add = new QPushButton(u"Add Folder…"_s);
    remove_->setAccessibleName(u"Remove the selected folder"_s);
    buttons->addWidget(add);
    buttons->addWidget(remove_);
    buttons->addStretch();
    layout->addLayout(buttons);
    setFocusProxy(list_);
    connect(add, &QPushButton::clicked, this, [this] { choose(); });
    connect(remove_, &QPushButton::clicked, this, [this] { removeSelected(); });
    connect(list_, &QListWidget::currentRowChanged, this,
            [this](int row) { remove_->setEnabled(row >= 0); });
    binding::follow(*this, setting.changed, [this] { show(); });
}

void ExtraFolders::show() {
    const int row = list_->currentRow();
    list_->clear();
    for (const auto& folder : setting_.get()) {
        list_->addItem(QString::fromStdString(folder.string()));
    }
    list_->setCurrentRow(std::min(row, list_->count() - 1));
    remove_->setEnabled(list_->currentRow() >= 0);
}

void ExtraFolders::add(const std::filesystem::path& folder) {
    Folders folders = setting_.get();
    if (std::ranges::find(folders, folder) == folders.end()) {
        folders.push_back(folder);
        setting_.set(std::move(folders));
    }
    list_->setCurrentRow(list_->count() - 1);
}

void ExtraFolders::removeSelected() {
    Folders folders = setting_.get();
    const int row = list_->currentRow();
    if (row >= 0 && row < static_cast<int>(folders.size())) {
        folders.erase(folders.begin() + row);
        setting_.set(std::move(folders));
    }
}

void ExtraFolders::choose() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, u"Add a folder with applications"_s);
    if (!folder.isEmpty()) {
        add(folder.toStdString());
    }
}

void ExtraFolders::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        removeSelected();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace pello
