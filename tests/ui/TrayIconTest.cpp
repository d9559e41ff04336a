#include "ui/tray/TrayIcon.h"

#include "support/MemoryLauncher.h"

#include <QImage>
#include <gmock/gmock.h>

namespace pello {
namespace {

using testing::ElementsAre;

std::vector<std::string> texts(const QMenu& menu) {
    std::vector<std::string> texts;
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator()) {
            texts.push_back(action->text().toStdString());
        }
    }
    return texts;
}

TEST(TrayIconTest, ItsMenuListsTheFailuresThatAreNotDismissed) {
    MemoryLauncher launcher;
    ScriptFailureLog failures;
    TrayIcon icon(launcher.controller, failures);
    EXPECT_THAT(texts(icon.menu()), ElementsAre("Open Pello", "Settings…", "Set-up Guide…",
                                                "Write a Sample Script", "Quit Pello"));
    failures.record({.name = "R&D", .fileName = "b", .status = 1, .detail = "x"});
    EXPECT_THAT(texts(icon.menu()),
                ElementsAre("Open Pello", "R&&D failed", "Settings…", "Set-up Guide…",
                            "Write a Sample Script", "Quit Pello"));
    failures.dismiss(ScriptFailure(failures.failures().front()));
    EXPECT_THAT(texts(icon.menu()), ElementsAre("Open Pello", "Settings…", "Set-up Guide…",
                                                "Write a Sample Script", "Quit Pello"));
}

TEST(TrayIconTest, TheMarkIsSeenOnDarkAndLightTrays) {
    for (const QColor& colour : {QColor(Qt::black), QColor(Qt::white)}) {
        const auto red = [&](bool isMarked) {
            const QImage image = TrayIcon::drawn(isMarked, colour).pixmap(64, 64).toImage();
            return image.pixelColor(48, 16) == QColor(0xe0, 0x3c, 0x31);
        };
        EXPECT_TRUE(red(true));
        EXPECT_FALSE(red(false));
    }
}

} // namespace
} // namespace pello
