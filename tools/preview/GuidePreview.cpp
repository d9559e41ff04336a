/// Shows the real guide over settings in memory, for looking at it: the step, the appearance and
/// the size of texts as the arguments say.

#include "platform/memory/MemoryDialogs.h"
#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryPreferenceDomains.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "ui/guide/GuideWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>
#include <QTimer>

namespace {

using namespace pello;

void makeDark() {
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x30, 0x30, 0x36));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0x74, 0xd8));
    QApplication::setPalette(dark);
}

/// A desktop in memory on which one thing is wrong.
class Desktop {
public:
    GuideServices services() {
        return {
            .settings = {.settings = settings,
                         .layout = layout,
                         .preferences = preferences,
                         .modifierNames = {.command = "Super", .option = "Alt", .control = "Ctrl"},
                         .virtualKey = [](std::uint32_t) { return std::uint16_t{0}; },
                         .comboProblem =
                             [](const KeyCombo&) {
                                 return std::optional<std::string>(
                                     "This shortcut does not arrive: another program has it.");
                             }},
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

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};

private:
    MemoryKeyboardLayout layout;
    MemoryPreferenceDomains preferences;
    MemoryDialogs dialogs;
    Signal<> changed;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption({"dark", "Dark appearance"});
    options.addOption({"step", "The step to show, from 0", "number", "0"});
    options.addOption({"size", "The font size of the settings", "points", "16"});
    options.addOption({"combo", "Open with a shortcut that another program has"});
    options.addOption({"proven", "As after the key was pressed"});
    options.process(application);
    if (options.isSet("dark")) {
        makeDark();
    }
    Desktop desktop;
    desktop.settings.fontSize.set(options.value("size").toDouble());
    if (options.isSet("combo")) {
        desktop.settings.activation.set(Activation::keyCombo);
    }
    GuideWindow window(desktop.services());
    window.onFinished = [] { QApplication::quit(); };
    window.goTo(static_cast<GuideStep>(options.value("step").toInt()));
    window.present();
    if (options.isSet("proven")) {
        QTimer::singleShot(500, &window, [&window] { (void)window.prove(); });
    }
    return QApplication::exec();
}
