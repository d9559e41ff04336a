#include "platform/qt/QtDialogs.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace pello {
namespace {

/// The text itself, where one character would underline the next.
QString buttonText(const std::string& title) {
    return QString::fromStdString(title).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

void QtDialogs::confirm(const Confirmation& question, std::function<void(Answer answer)> answered) {
    auto* box = new QMessageBox(QMessageBox::Warning, QString::fromStdString(question.title),
                                QString::fromStdString(question.title));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(QString::fromStdString(question.message));
    for (QLabel* label : box->findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // what looks like markup is part of the text
    }
    QPushButton* confirming =
        box->addButton(buttonText(question.confirmTitle), QMessageBox::AcceptRole);
    QPushButton* cancel = box->addButton(QStringLiteral("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(confirming);
    box->setEscapeButton(cancel);
    QObject::connect(&receiver_, &QObject::destroyed, box, &QObject::deleteLater);
    QObject::connect(
        box, &QMessageBox::finished, &receiver_, [box, confirming, answered = std::move(answered)] {
            answered(box->clickedButton() == confirming ? Answer::confirmed : Answer::cancelled);
        });
    box->open();
    box->raise();
    box->activateWindow();
}

} // namespace pello
