/// Shows the real windows about releases over a feed in a file, for looking at them: as the
/// arguments say, in one appearance or the other, for any installed version.

#include "platform/qt/QtFeedReader.h"
#include "platform/qt/QtMainLoop.h"
#include "ui/notes/NotesWindow.h"
#include "ui/notes/UpdateDialog.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>

#include <iostream>

namespace {

using namespace pello;

void makeDark() {
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x30, 0x30, 0x36));
    dark.setColor(QPalette::Link, QColor(0x8a, 0xb4, 0xf8));
    QApplication::setPalette(dark);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({"dark", "Dark appearance"});
    options.addOption({"check", "Check for updates instead of showing the notes"});
    options.addOption({"installed", "The installed version", "version", "0.1.0"});
    options.addPositionalArgument("feed", "Address of the feed");
    options.process(application);
    if (options.isSet("dark")) {
        makeDark();
    }

    QtMainLoop loop;
    QtFeedReader reader;
    const NotesServices services{
        .reader = reader,
        .loop = loop,
        .feed = options.positionalArguments().value(0).toStdString(),
        .installed = ReleaseVersion::from(options.value("installed").toStdString()).value(),
        .openAddress = [](const std::string& address) { std::cout << address << std::endl; }};
    if (options.isSet("check")) {
        auto* dialog = new UpdateDialog(services, [] { std::cout << "notes" << std::endl; });
        dialog->present();
    } else {
        auto* window = new NotesWindow(services); // deletes itself when it is closed
        window->present();
    }
    return QApplication::exec();
}
