/// Shows the real windows about releases over a feed in a file, for looking at them: as the
/// arguments say, in one appearance or the other, for any installed version.

#include "Preview.h"
#include "platform/qt/QtFeedReader.h"
#include "platform/qt/QtMainLoop.h"
#include "ui/notes/NotesWindow.h"
#include "ui/notes/UpdateDialog.h"

#include <iostream>

using namespace pello;

int main(int argc, char** argv) {
    const Preview preview(argc, argv,
                          {{"check", "Check for updates instead of showing the notes"},
                           {"installed", "The installed version", "version", "0.1.0"}});
    QtMainLoop loop;
    QtFeedReader reader;
    const NotesServices services{
        .reader = reader,
        .loop = loop,
        .feed = preview.argument(),
        .installed = ReleaseVersion::from(preview.text("installed")).value(),
        .openAddress = [](const std::string& address) { std::cout << address << std::endl; }};
    if (preview.has("check")) {
        auto* dialog = new UpdateDialog(services, [] { std::cout << "notes" << std::endl; });
        dialog->present();
    } else {
        auto* window = new NotesWindow(services); // deletes itself when it is closed
        window->present();
    }
    return Preview::run();
}
