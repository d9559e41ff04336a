#include "ui/tray/FailureDialog.h"

#include "ui/theme/PelloIcon.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pello {
namespace {

constexpr QSize kUsualSize(560, 280);

QString shown(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

FailureDialog::FailureDialog(const ScriptFailure& failure, const Actions& actions) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(shown(failure.name + " failed"));
    setWindowIcon(pelloIcon());
    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel(shown(failure.fileName) + QStringLiteral(" — status ") +
                               QString::number(failure.status));
    heading->setTextFormat(Qt::PlainText);
    layout->addWidget(heading);
    auto* detail = new QPlainTextEdit(shown(failure.detail));
    detail->setReadOnly(true);
    detail->setAccessibleName(QStringLiteral("What the script said"));
    layout->addWidget(detail);

    auto* buttons = new QDialogButtonBox;
    const auto add = [&](const char* text, const std::function<void()>& action, bool closes) {
        auto* button = buttons->addButton(QString::fromUtf8(text), QDialogButtonBox::ActionRole);
        connect(button, &QPushButton::clicked, this, [this, action, closes] {
            action();
            if (closes) {
                close();
            }
        });
    };
    add("Copy", actions.copy, false);
    add("Reveal Script", actions.reveal, true);
    add("Dismiss", actions.dismiss, true);
    layout->addWidget(buttons);
    resize(kUsualSize);
}

void showFailure(const ScriptFailure& failure, PelloController& controller, ScriptFailureLog& log) {
    auto* dialog = new FailureDialog(
        failure,
        {.copy = [failure] { QGuiApplication::clipboard()->setText(shown(failure.detail)); },
         .reveal = [&controller, failure] { controller.revealScript(failure.fileName); },
         .dismiss = [&log, failure] { log.dismiss(failure); }});
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

} // namespace pello
