/// Shows the real settings window over settings in memory, for looking at it: the page, the
/// appearance and what is searched for as the arguments say.

#include "Preview.h"
#include "PreviewSettings.h"
#include "platform/linux/X11KeyCodes.h"
#include "ui/settings/SettingsWindow.h"

namespace {

using namespace pello;

/// Settings in memory, with services that answer something.
class Desktop {
public:
    Desktop() {
        kept.settings.extraDirectories.set({"/opt/applications"});
        kept.settings.urlAliases.set({{.alias = "mail", .url = "mail.example.org"},
                                      {.alias = "router", .url = "http://192.168.1.1"}});
    }

    SettingsServices services() {
        SettingsServices all = kept.services();
        all.virtualKey = [](std::uint32_t scanCode) {
            return x11Keys::virtualKey(static_cast<xcb_keycode_t>(scanCode));
        };
        all.checkHyperMapping = [](const auto& done) { done(false); };
        all.historyCount = [this] { return history; };
        all.clearHistory = [this] { history = 0; };
        all.learnedCount = [this] { return learned; };
        all.forgetLearnedOrder = [this] { learned = 0; };
        all.found = [](SettingsSource) { return std::optional<std::size_t>(12); };
        all.rescan = [] {};
        all.scriptsFolder = "/home/user/.local/share/Pello/Scripts";
        all.openFolder = [](const auto&) {};
        all.writeSampleScript = [] {};
        return all;
    }

    PreviewSettings kept;

private:
    std::size_t history = 23;
    std::size_t learned = 41;
};

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv,
                          {{"page", "The page to show", "name", "general"},
                           {"search", "What to search for", "text"},
                           {"conflict", "Open with a shortcut of the system"}});
    Desktop desktop;
    if (preview.has("conflict")) {
        PelloSettings& settings = desktop.kept.settings;
        settings.activation.set(Activation::keyCombo);
        settings.keyCombo.set(KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kCommand));
        settings.capsLockIsHyper.set(true);
    }
    SettingsWindow window(desktop.services());
    window.present(fromRawValue<SettingsTab>(preview.text("page")));
    if (preview.has("search")) {
        window.searchField().setText(QString::fromStdString(preview.text("search")));
    }
    return Preview::run();
}
