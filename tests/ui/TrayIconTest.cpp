#include "ui/tray/TrayIcon.h"

#include "support/MemoryLauncher.h"

#include <QImage>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace pello {
namespace {

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
    const auto expected = [](std::vector<std::string> failed) {
        std::vector<std::string> all = {"Open Pello"};
        std::ranges::move(failed, std::back_inserter(all));
        for (const char* text : {"Settings…", "Set-up Guide…", "Write a Sample Script",
                                 "What’s New in Pello", "Check for Updates", "Quit Pello"}) {
            all.emplace_back(text);
        }
        return all;
    };
    EXPECT_EQ(texts(icon.menu()), expected({}));
    failures.record({.name = "R&D", .fileName = "b", .status = 1, .detail = "x"});
    EXPECT_EQ(texts(icon.menu()), expected({"R&&D failed"}));
    failures.dismiss(ScriptFailure(failures.failures().front()));
    EXPECT_EQ(texts(icon.menu()), expected({}));
}

TEST(TrayIconTest, ItsMenuDoesWhatTheProgramInstalls) {
    MemoryLauncher launcher;
    ScriptFailureLog failures;
    TrayIcon icon(launcher.controller, failures);
    std::string done;
    launcher.controller.onShowReleaseNotes = [&] { done += "notes "; };
    launcher.controller.onCheckForUpdates = [&] { done += "check "; };
    for (QAction* action : icon.menu().actions()) {
        if (action->text().startsWith("What") || action->text().startsWith("Check")) {
            action->trigger();
        }
    }
    EXPECT_EQ(done, "notes check ");
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
