/// Shows the real guide over settings in memory, for looking at it: the step, the appearance and
/// the size of texts as the arguments say.

#include "Preview.h"
#include "PreviewSettings.h"
#include "platform/memory/MemoryDialogs.h"
#include "ui/guide/GuideWindow.h"

#include <QTimer>

namespace {

using namespace pello;

/// A desktop in memory on which one thing is wrong.
class Desktop {
public:
    GuideServices services() {
        SettingsServices services = kept.services();
        services.comboProblem = [](const KeyCombo&) {
            return std::optional<std::string>(
                "This shortcut does not arrive: another program has it.");
        };
        return {.settings = std::move(services),
                .listener = [] { return GuideServices::Listener{}; },
                .listenerChanged = changed,
                .check =
                    [](const auto& done) {
                        done({{.title = "Display",
                               .purpose = "Has the windows, and hears the keyboard.",
                               .finding = "The X.Org Foundation 21.1.7"},
                              {.state = GuideCheck::State::wrong,
                               .title = "Notifications",
                               .purpose = "Show what your scripts print.",
                               .finding = "nobody shows them: install a daemon, such as dunst"},
                              {.state = GuideCheck::State::absent,
                               .title = "Sound",
                               .purpose = "Lets you choose where sound goes.",
                               .finding = "none: audio outputs are not offered"}});
                    },
                .dialogs = dialogs,
                .openSettings = [] {}};
    }

    PreviewSettings kept;

private:
    MemoryDialogs dialogs;
    Signal<> changed;
};

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv,
                          {{"step", "The step to show, from 0", "number", "0"},
                           {"size", "The font size of the settings", "points", "16"},
                           {"combo", "Open with a shortcut that another program has"},
                           {"proven", "As after the key was pressed"}});
    Desktop desktop;
    PelloSettings& settings = desktop.kept.settings;
    settings.fontSize.set(preview.number("size"));
    if (preview.has("combo")) {
        settings.activation.set(Activation::keyCombo);
    }
    GuideWindow window(desktop.services());
    window.onFinished = [] { QApplication::quit(); };
    window.goTo(static_cast<GuideStep>(preview.number("step")));
    window.present();
    if (preview.has("proven")) {
        QTimer::singleShot(500, &window, [&window] { (void)window.prove(); });
    }
    return Preview::run();
}
