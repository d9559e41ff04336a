/// Shows the real panel with sample rows, for looking at it: rows of every shape, in the appearance
/// that the arguments ask for. Searches what the query, which begins with a colon, says.

#include "core/controller/PelloController.h"
#include "platform/linux/X11Compositor.h"
#include "platform/memory/MemoryAddressHandlers.h"
#include "platform/memory/MemoryBundleReader.h"
#include "platform/memory/MemoryFolderWatcher.h"
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

LaunchItem sample(std::string title, std::string subtitle, std::string accessory,
                  LaunchItem::Icon icon) {
    LaunchItem item;
    item.id = title;
    item.title = std::move(title);
    item.subtitle = std::move(subtitle);
    if (!accessory.empty()) {
        item.accessory = std::move(accessory);
    }
    item.icon = std::move(icon);
    item.run = [] { QApplication::quit(); };
    return item;
}

std::vector<LaunchItem> samples() {
    using File = LaunchItem::FileIcon;
    using Symbol = LaunchItem::SymbolIcon;
    using Text = LaunchItem::TextIcon;
    return {
        sample("Firefox", "/usr/share/applications", "", File{"/firefox.desktop"}),
        sample("Fire Terminal", "/usr/share/applications", "", File{"xterm-color"}),
        sample("Firewall Configuration", "System Settings", "Settings", Symbol{"gearshape"}),
        sample("Force Quit Firefox", "Kills it immediately — unsaved changes are lost", "Running",
               Symbol{"power"}),
        sample("Find and Replace…", "Text Editor ▸ Search", "⌃H", Symbol{"macwindow"}),
        sample("Search for “fire”", "DuckDuckGo", "Web", Symbol{"magnifyingglass"}),
        sample(
            "A fire safety title that goes on and on until it cannot possibly fit into the width "
            "of one row of the panel, not even nearly",
            "/home/somebody/.local/share/flatpak/exports/share/applications/very/deep/down/in/"
            "folders/fire.desktop",
            "Accessory", Symbol{"nothing known"}),
        sample("火狐浏览器 fire 網頁瀏覽器", "网络 浏览器", "应用", File{"/cjk.desktop"}),
        sample("متصفح fire الإنترنت", "متصفح الويب", "تطبيق", File{"/rtl.desktop"}),
        sample("Fire 👩‍🚒 é́ fighters 🔥", "flame, tool", "Paste", Text{"🔥"}),
    };
}

/// Icons of the sample applications: the file's name is the icon's.
class NamedIcons final : public IconSource {
public:
    [[nodiscard]] std::optional<std::string>
    iconName(const std::filesystem::path& application) const override {
        return application.string();
    }
};

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
    QuickActions quickActions(loop, workspace, pasteboard);
    quickActions.prepare({});
    PelloController controller({.settings = settings,
                                .indexer = indexer,
                                .aliases = aliases,
                                .quickActions = quickActions,
                                .usage = usage,
                                .queryHistory = history,
                                .loop = loop,
                                .workspace = workspace,
                                .pasteboard = pasteboard,
                                .bundles = bundles,
                                .glyphs = {PreparedList::make(samples())}});
    const std::vector<std::string> themes{"Adwaita"};
    IconLoader icons(loop, std::make_shared<NamedIcons>(),
                     std::make_shared<const IconTheme>(themes, IconTheme::standardRoots()));
    const X11Compositor compositor;
    PanelWindow panel(controller, icons, compositor);
    if (options.isSet("notice")) {
        controller.report(options.value("notice").toStdString());
    }
    controller.show(options.value("query").toStdString());
    return QApplication::exec();
}
