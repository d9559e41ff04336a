#include "ui/guide/GuideWindow.h"

#include "platform/memory/MemoryDialogs.h"
#include "ui/guide/ActivationPage.h"
#include "ui/guide/ChecksPage.h"
#include "ui/settings/SettingsFixture.h"

#include <QLabel>

namespace pello {
namespace {

using Health = HotkeyManager::Health;

class GuideWindowTest : public SettingsFixture {
protected:
    GuideServices guideServices() {
        return {.settings = services(),
                .listener = [this] { return listener; },
                .listenerChanged = listenerChanged,
                .check = [this](const auto& done) { done(checks); },
                .relaunch = [this] { ++relaunched; },
                .resetPermissions = [](const auto& done) { done(false); },
                .dialogs = dialogs};
    }

    /// Makes the listener be like that, and has it tell.
    void become(const GuideServices::Listener& state) {
        listener = state;
        listenerChanged.emit();
    }

    [[nodiscard]] const ActivationPage& activation() {
        return dynamic_cast<const ActivationPage&>(window.page(GuideStep::activation));
    }
    [[nodiscard]] const ChecksPage& checksPage() {
        return dynamic_cast<const ChecksPage&>(window.page(GuideStep::checks));
    }
    [[nodiscard]] std::vector<QString> buttonsOf(const QWidget& page) {
        std::vector<QString> texts;
        for (const QPushButton* button : page.findChildren<QPushButton*>()) {
            if (!button->isHidden()) {
                texts.push_back(button->text());
            }
        }
        return texts;
    }

    GuideServices::Listener listener;
    Signal<> listenerChanged;
    std::vector<GuideCheck> checks;
    int relaunched = 0;
    MemoryDialogs dialogs;
    GuideWindow window{guideServices()};
};

TEST_F(GuideWindowTest, ReturnLeadsThroughAllStepsAndEscapeLeaves) {
    int finished = 0;
    window.onFinished = [&] { ++finished; };
    window.present();
    for (const auto step : {GuideStep::welcome, GuideStep::activation, GuideStep::checks,
                            GuideStep::login, GuideStep::ready}) {
        EXPECT_EQ(window.step(), step);
        EXPECT_TRUE(window.page(step).isVisible());
        EXPECT_EQ(window.back().isVisible(), step != GuideStep::welcome);
        EXPECT_EQ(finished, 0);
        press(window, Qt::Key_Return);
    }
    EXPECT_EQ(finished, 1);
    EXPECT_FALSE(window.isVisible());
    window.present();
    press(window, Qt::Key_Escape);
    EXPECT_EQ(finished, 2);
}

TEST_F(GuideWindowTest, TheActivationIsProvenWhereItIsAskedForAndOnlyThere) {
    EXPECT_FALSE(window.prove()) << "not shown";
    window.present();
    QApplication::setActiveWindow(&window);
    EXPECT_FALSE(window.prove()) << "the welcome does not ask for it";
    window.goTo(GuideStep::activation);
    EXPECT_TRUE(window.prove());
    EXPECT_TRUE(activation().card().isConfirmed());
    EXPECT_TRUE(window.next().hasFocus());
    EXPECT_TRUE(window.next().accessibleDescription().startsWith("Seen"));
    settings.activation.set(Activation::rightOption);
    EXPECT_FALSE(activation().card().isConfirmed()) << "that was another key";
}

TEST_F(GuideWindowTest, WhatKeepsTheKeyFromArrivingIsSaid) {
    settings.keyCombo.set(KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kOption));
    taken = settings.keyCombo();
    const auto status = [this] { return activation().card().status(); };
    const QString waiting = status();
    settings.activation.set(Activation::keyCombo);
    EXPECT_EQ(status(), "Another program has it.");
    EXPECT_EQ(ActivationPage::keys(services()), (QStringList{"Option", "Space"}));
    taken.reset();
    listenerChanged.emit();
    EXPECT_EQ(status(), waiting);
    become({.health = Health::blocked, .failure = "No keyboard."});
    EXPECT_EQ(status(), "No keyboard.");
}

TEST_F(GuideWindowTest, WhatIsWrongIsCountedAndLookedAtAnew) {
    checks = {{.state = GuideCheck::State::works, .title = "Display"},
              {.state = GuideCheck::State::absent, .title = "Sound"},
              {.state = GuideCheck::State::wrong, .title = "Tray", .finding = "none"}};
    window.goTo(GuideStep::checks);
    EXPECT_EQ(checksPage().summary(), "One thing needs you.");
    checks.pop_back();
    checksPage().findChild<QPushButton*>()->click();
    EXPECT_EQ(checksPage().summary(), "Everything that is switched on works.");
}

TEST_F(GuideWindowTest, AListenerThatStandsStillIsHelped) {
    window.goTo(GuideStep::checks);
    EXPECT_EQ(buttonsOf(checksPage()), std::vector<QString>{"Check Again"});
    become({.health = Health::suspended, .failure = "x"});
    EXPECT_TRUE(checksPage().problem().endsWith("picks up where they stand now."));
    EXPECT_EQ(buttonsOf(checksPage()), (std::vector<QString>{"Check Again", "Relaunch"}));

    become({.health = Health::blocked, .failure = "Refused."});
    EXPECT_EQ(checksPage().problem(), "Refused.");
    for (QPushButton* button : checksPage().findChildren<QPushButton*>()) {
        if (button->text() == "Reset and Relaunch…") {
            button->click();
        }
    }
    ASSERT_EQ(dialogs.openCount(), 1U);
    EXPECT_EQ(dialogs.question().title, "Reset Pello's permissions?");
    dialogs.answer(Dialogs::Answer::confirmed);
    EXPECT_TRUE(checksPage().problem().startsWith("Pello couldn't reset its permissions."));
}

TEST_F(GuideWindowTest, GoesWhenThePanelComes) {
    int finished = 0;
    window.onFinished = [&] { ++finished; };
    QWidget panel;
    window.giveWayTo(panel);
    window.present();
    panel.show();
    QApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(finished, 1);
}

} // namespace
} // namespace pello
