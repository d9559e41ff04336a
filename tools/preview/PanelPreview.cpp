/// Shows the real panel over a desktop in memory, for looking at it: glyphs, answers, failures and
/// notices, in the appearance that the arguments ask for.

#include "core/controller/PelloController.h"
#include "platform/linux/X11Compositor.h"
#include "platform/memory/MemoryAddressHandlers.h"
#include "platform/memory/MemoryBundleReader.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "platform/qt/QtMainLoop.h"
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

    QtMainLoop loop;
    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings(defaults, loginItem);
    settings.fontSize.set(options.value("font-size").toDouble());
    settings.usesGlass.set(!options.isSet("opaque"));
    UsageStore usage(defaults, loop);
    QueryHistory history(defaults);
    MemoryBundleReader bundles;
    MemoryFolderWatcher watcher;
    MemoryWorkspace workspace;
    AppIndexer indexer(loop, watcher, bundles, workspace, {});
    const MemoryAddressHandlers handlers;
    MemoryPasteboard pasteboard;
    AliasIndex aliases(loop, handlers, workspace);
    ScriptsIndex scripts(loop, watcher, {}, nullptr);
    QuickActions quickActions(loop, workspace, pasteboard);
    quickActions.prepare({});
    MemoryKeystrokes keystrokes;
    SystemActions actions(loop, pasteboard, keystrokes);
    GlyphCatalogue glyphs(loop, actions);
    glyphs.prepare();
    PelloController controller({.settings = settings,
                                .indexer = indexer,
                                .aliases = aliases,
                                .scripts = scripts,
                                .quickActions = quickActions,
                                .usage = usage,
                                .queryHistory = history,
                                .loop = loop,
                                .workspace = workspace,
                                .pasteboard = pasteboard,
                                .bundles = bundles,
                                .glyphs = glyphs});
    const std::vector<std::string> themes{"Adwaita"};
    IconLoader icons(loop, nullptr,
                     std::make_shared<const IconTheme>(themes, IconTheme::standardRoots()));
    const X11Compositor compositor;
    ScriptFailureLog failures;
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
