/// Shows the real panel over a desktop in memory, for looking at it: applications, glyphs,
/// answers, failures and notices, in the appearance that the arguments ask for.

#include "app/Launcher.h"
#include "platform/linux/X11Compositor.h"
#include "platform/memory/MemoryAddressHandlers.h"
#include "platform/memory/MemoryBundleReader.h"
#include "platform/memory/MemoryDialogs.h"
#include "platform/memory/MemoryFileAccess.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryLoginEnvironment.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryNotifier.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryProcesses.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "platform/qt/QtMainLoop.h"
#include "support/TemporaryFolder.h"
#include "ui/icons/IconLoader.h"
#include "ui/panel/PanelWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>

namespace {

using namespace pello;

void makeDark() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x26));
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
}

/// A desktop with a few applications that nothing can be done to.
class Desktop {
public:
    void install(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            const auto bundle = folder.makeFolder("Applications/" + name + ".app");
            bundles.descriptions[bundle] = {.name = name};
        }
    }

    Platform ports() {
        return {.loop = loop,
                .defaults = defaults,
                .watcher = watcher,
                .fileAccess = fileAccess,
                .bundles = bundles,
                .workspace = workspace,
                .addressHandlers = addressHandlers,
                .pasteboard = pasteboard,
                .keystrokes = keystrokes,
                .dialogs = dialogs,
                .notifier = notifier,
                .processes = processes,
                .loginEnvironment = loginEnvironment,
                .loginItem = loginItem,
                .log = log,
                .home = folder.path(),
                .scripts = folder.path() / "Scripts"};
    }

    QtMainLoop loop;

private:
    TemporaryFolder folder;
    MemoryUserDefaults defaults;
    MemoryFolderWatcher watcher;
    MemoryFileAccess fileAccess;
    MemoryBundleReader bundles{"app", {folder.makeFolder("Applications")}};
    MemoryWorkspace workspace;
    MemoryAddressHandlers addressHandlers;
    MemoryPasteboard pasteboard;
    MemoryKeystrokes keystrokes;
    MemoryDialogs dialogs;
    MemoryNotifier notifier;
    MemoryProcesses processes{loop};
    MemoryLoginEnvironment loginEnvironment;
    MemoryLoginItem loginItem;
    MemoryLog log;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({"dark", "Dark appearance"});
    options.addOption({"opaque", "No glass"});
    options.addOption({"font-size", "Size of the titles", "points", "16"});
    options.addOption({"query", "What to search", "text", ":fire"});
    options.addOption({"failure", "What a script that failed said", "text"});
    options.addOption({"notice", "A sentence below the rows", "text"});
    options.process(application);
    if (options.isSet("dark")) {
        makeDark();
    }

    Desktop desktop;
    desktop.install({"Calculator", "Calendar", "Files", "Firefox", "Terminal", "Text Editor"});
    Launcher launcher(desktop.ports());
    launcher.settings().fontSize.set(options.value("font-size").toDouble());
    launcher.settings().usesGlass.set(!options.isSet("opaque"));
    PelloController& controller = launcher.controller();
    controller.reindex();
    IconLoader icons(desktop.loop, nullptr, std::make_shared<SharedIconTheme>([] {
                         return IconTheme(std::vector<std::string>{"Adwaita"},
                                          IconTheme::standardRoots());
                     }));
    const X11Compositor compositor;
    ScriptFailureLog& failures = launcher.scriptFailures();
    if (options.isSet("failure")) {
        failures.record({.name = "Backup",
                         .fileName = "backup",
                         .status = 12,
                         .detail = options.value("failure").toStdString()});
    }
    PanelWindow panel(controller, icons, compositor, failures);
    if (options.isSet("notice")) {
        controller.report(options.value("notice").toStdString());
    }
    controller.show(options.value("query").toStdString());
    return QApplication::exec();
}
