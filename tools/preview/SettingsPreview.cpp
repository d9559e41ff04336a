/// Shows the real settings window over settings in memory, for looking at it: the page, the
/// appearance and what is searched for as the arguments say.

#include "platform/linux/X11KeyCodes.h"
#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryPreferenceDomains.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "ui/settings/SettingsWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>

namespace {

using namespace pello;

void makeDark() {
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x30, 0x30, 0x36));
    dark.setColor(QPalette::AlternateBase, QColor(0x35, 0x35, 0x3c));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0x74, 0xd8));
    QApplication::setPalette(dark);
}

/// Settings in memory, with services that answer something.
class Desktop {
public:
    Desktop() {
        settings.extraDirectories.set({"/opt/applications"});
        settings.urlAliases.set({{.alias = "mail", .url = "mail.example.org"},
                                 {.alias = "router", .url = "http://192.168.1.1"}});
    }

    SettingsServices services() {
        return {.settings = settings,
                .layout = layout,
                .preferences = preferences,
                .modifierNames = {.command = "Super", .option = "Alt", .control = "Ctrl"},
                .virtualKey =
                    [](std::uint32_t scanCode) {
                        return x11Keys::virtualKey(static_cast<xcb_keycode_t>(scanCode));
                    },
                .checkHyperMapping = [](const auto& done) { done(false); },
                .historyCount = [this] { return history; },
                .clearHistory = [this] { history = 0; },
                .learnedCount = [this] { return learned; },
                .forgetLearnedOrder = [this] { learned = 0; },
                .found = [](SettingsSource) { return std::optional<std::size_t>(12); },
                .rescan = [] {},
                .scriptsFolder = "/home/user/.local/share/Pello/Scripts",
                .openFolder = [](const auto&) {},
                .writeSampleScript = [] {}};
    }

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};

private:
    MemoryKeyboardLayout layout;
    MemoryPreferenceDomains preferences;
    std::size_t history = 23;
    std::size_t learned = 41;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({"dark", "Dark appearance"});
    options.addOption({"page", "The page to show", "name", "general"});
    options.addOption({"search", "What to search for", "text"});
    options.addOption({"conflict", "Open with a shortcut of the system"});
    options.process(application);
    if (options.isSet("dark")) {
        makeDark();
    }

    Desktop desktop;
    if (options.isSet("conflict")) {
        desktop.settings.activation.set(Activation::keyCombo);
        desktop.settings.keyCombo.set(KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kCommand));
        desktop.settings.capsLockIsHyper.set(true);
    }
    SettingsWindow window(desktop.services());
    window.present(fromRawValue<SettingsTab>(options.value("page").toStdString()));
    if (options.isSet("search")) {
        window.searchField().setText(options.value("search"));
    }
    return QApplication::exec();
}
