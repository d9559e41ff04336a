#include "ui/settings/RecordsPage.h"

#include "ui/settings/RecordModel.h"
#include "ui/settings/SettingsPalette.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kMostBytes = qint64{4} * 1024 * 1024; // more is no list that somebody wrote
const auto kFileKinds = u"JSON files (*.json);;All files (*)"_s;

QPushButton* newTool(const QString& text, const QString& name, std::function<void()> action) {
    auto* button = new QPushButton(text);
    button->setAccessibleName(name);
    QObject::connect(button, &QPushButton::clicked, button, std::move(action));
    return button;
}

} // namespace

std::unique_ptr<RecordsPage> RecordsPage::bangs(PelloSettings& settings) {
    return std::make_unique<RecordsPage>(
        Texts{.title = u"Bangs"_s,
              .description =
                  u"Type a keyword, a space and some text to search a site for it. {query} stands "
                  u"for the text and {clipboard} for what was copied last; without {query} the "
                  u"keyword alone opens the address."_s,
              .file = u"pello-bangs.json"_s},
        std::make_unique<RecordModel<Bang>>(settings.bangs));
}

std::unique_ptr<RecordsPage> RecordsPage::aliases(PelloSettings& settings) {
    return std::make_unique<RecordsPage>(
        Texts{.title = u"Aliases"_s,
              .description =
                  u"Names for addresses: type the name to find it among everything else. An "
                  u"address without a scheme becomes a secure web address."_s,
              .file = u"pello-aliases.json"_s},
        std::make_unique<RecordModel<URLAlias>>(settings.urlAliases));
}

RecordsPage::RecordsPage(const Texts& texts, std::unique_ptr<RecordTable> table)
    : SettingsPage(texts.title, Height::all),
      table_(std::move(table)),
      view_(new RecordView(*table_)),
      status_(new QLabel) {
    auto* editor = new QWidget;
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins({});
    layout->addWidget(view_, 1);
    layout->addWidget(newTools(texts));
    layout->addWidget(status_);
    status_->setForegroundRole(SettingsPalette::kDim);
    status_->setTextFormat(Qt::PlainText);
    status_->setWordWrap(true);
    status_->hide();
    editor->setFocusProxy(view_);
    row_ = &addSection({}).addRow(u"Your %1"_s.arg(texts.title.toLower()), texts.description,
                                  editor, SettingRow::Placement::below);
    table_->onChanged = [this] { showProblems(); };
    showProblems();
}

QWidget* RecordsPage::newTools(const Texts& texts) {
    auto* tools = new QWidget;
    auto* layout = new QHBoxLayout(tools);
    layout->setContentsMargins({});
    const auto add = [layout](const QString& text, const QString& name,
                              std::function<void()> action) {
        layout->addWidget(newTool(text, name, std::move(action)));
    };
    add(u"Add"_s, u"Add a row"_s, [this] { view_->addRecord(); });
    add(u"Remove"_s, u"Remove the selected row"_s, [this] { view_->removeCurrent(); });
    add(u"↑"_s, u"Move the selected row up"_s, [this] { view_->moveCurrentUp(); });
    add(u"↓"_s, u"Move the selected row down"_s, [this] { view_->moveCurrentDown(); });
    layout->addStretch();
    add(u"Import…"_s, u"Import from a file"_s,
        [this] { importFile(QFileDialog::getOpenFileName(this, u"Import"_s, {}, kFileKinds)); });
    add(u"Export…"_s, u"Export to a file"_s, [this, suggested = texts.file] {
        exportFile(QFileDialog::getSaveFileName(this, u"Export"_s, suggested, kFileKinds));
    });
    return tools;
}

void RecordsPage::importFile(const QString& path) {
    if (path.isEmpty()) {
        return;
    }
    QFile file(path);
    const int before = table_->rowCount({});
    const QString name = QFileInfo(path).fileName();
    if (!file.open(QIODevice::ReadOnly)) {
        status_->setText(u"%1 cannot be read: %2."_s.arg(name, file.errorString()));
    } else if (file.size() > kMostBytes || !table_->import(file.readAll().toStdString())) {
        status_->setText(
            u"%1 holds no list of %2. Nothing was changed."_s.arg(name, title().toLower()));
    } else {
        const int added = table_->rowCount({}) - before;
        status_->setText(u"Imported %1: %2 added."_s.arg(name).arg(added));
    }
    status_->show();
}

void RecordsPage::exportFile(const QString& path) {
    if (path.isEmpty()) {
        return;
    }
    QSaveFile file(path);
    const std::string text = table_->exported();
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.write(text.data(), qint64(text.size())) == qint64(text.size()) &&
                           file.commit();
    const QString name = QFileInfo(path).fileName();
    status_->setText(isWritten ? u"Exported to %1."_s.arg(name)
                               : u"%1 cannot be written: %2."_s.arg(name, file.errorString()));
    status_->show();
}

void RecordsPage::showProblems() {
    row_->setNotice(table_->problems().join(u'\n'));
}

} // namespace pello
