/// Shows the real panel over a desktop in memory, for looking at it: applications, glyphs,
/// answers, failures and notices, in the appearance that the arguments ask for.

#include "Preview.h"
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

namespace {

using namespace pello;

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
    const Preview preview(argc, argv,
                          {{"opaque", "No glass"},
                           {"font-size", "Size of the titles", "points", "16"},
                           {"query", "What to search", "text", ":fire"},
                           {"failure", "What a script that failed said", "text"},
                           {"notice", "A sentence below the rows", "text"}});
    Desktop desktop;
    desktop.install({"Calculator", "Calendar", "Files", "Firefox", "Terminal", "Text Editor"});
    Launcher launcher(desktop.ports());
    launcher.settings().fontSize.set(preview.number("font-size"));
    launcher.settings().usesGlass.set(!preview.has("opaque"));
    PelloController& controller = launcher.controller();
    controller.reindex();
    IconLoader icons(desktop.loop, nullptr, std::make_shared<SharedIconTheme>([] {
                         return IconTheme(std::vector<std::string>{"Adwaita"},
                                          IconTheme::standardRoots());
                     }));
    const X11Compositor compositor;
    ScriptFailureLog& failures = launcher.scriptFailures();
    if (preview.has("failure")) {
        failures.record({.name = "Backup",
                         .fileName = "backup",
                         .status = 12,
                         .detail = preview.text("failure")});
    }
    PanelWindow panel(controller, icons, compositor, failures);
    if (preview.has("notice")) {
        controller.report(preview.text("notice"));
    }
    controller.show(preview.text("query"));
    return Preview::run();
}
