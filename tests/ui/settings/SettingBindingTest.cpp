#include "ui/settings/SettingBinding.h"

#include "ui/settings/PointsBox.h"
#include "ui/settings/SettingsFixture.h"
#include "ui/settings/ToggleSwitch.h"

#include <QComboBox>
#include <QLineEdit>

namespace pello {
namespace {

class SettingBindingTest : public SettingsFixture {};

TEST_F(SettingBindingTest, SwitchAndSettingFollowEachOther) {
    ToggleSwitch control({});
    binding::bind(control, settings.usesGlass);
    EXPECT_TRUE(control.isChecked());
    EXPECT_EQ(defaults.writeCount(), 0) << "showing a setting writes nothing";
    control.click();
    EXPECT_FALSE(settings.usesGlass());
    EXPECT_EQ(defaults.value("usesGlass"), PropertyValue(false));
    const int writes = defaults.writeCount();
    defaults.setElsewhere("usesGlass", true);
    EXPECT_TRUE(control.isChecked());
    EXPECT_EQ(defaults.writeCount(), writes) << "what came from elsewhere is not written back";
}

TEST_F(SettingBindingTest, SwitchThatTheSystemRefusesJumpsBack) {
    ToggleSwitch control({});
    binding::bind(control, settings.launchAtLogin);
    loginItem.refuses = true;
    control.click();
    EXPECT_FALSE(control.isChecked());
    loginItem.refuses = false;
    control.click();
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(loginItem.enabled);
}

TEST_F(SettingBindingTest, NumbersAreWrittenAsTheyAreTyped) {
    PointsBox control;
    binding::bind(control, settings.fontSize);
    EXPECT_EQ(control.text(), "16 pt");
    auto* field = control.findChild<QLineEdit*>();
    field->clear();
    for (const char* digit : {"2", "4", ".", "5"}) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromLatin1(digit));
        QApplication::sendEvent(&control, &key);
    }
    EXPECT_EQ(settings.fontSize(), 24.5);
    EXPECT_EQ(defaults.value("fontSize"), PropertyValue(24.5));
    settings.fontSize.set(30);
    EXPECT_EQ(control.text(), "30 pt");
}

TEST_F(SettingBindingTest, NumberBeyondTheRangeIsShownAsTheNearestAndKept) {
    QSpinBox control;
    defaults.setElsewhere("maximumResults", 400);
    binding::bind(control, settings.maximumResults);
    EXPECT_EQ(control.value(), 50);
    EXPECT_EQ(settings.maximumResults(), 400);
    control.stepDown();
    EXPECT_EQ(settings.maximumResults(), 49);
    defaults.setElsewhere("maximumResults", -3);
    EXPECT_EQ(control.value(), 1);
    EXPECT_EQ(settings.maximumResults(), -3);
}

TEST_F(SettingBindingTest, ChoiceIsTheCaseAtItsPlace) {
    QComboBox control;
    control.addItems({"launcher", "top", "center", "bottom"});
    binding::bind(control, settings.commandTabPosition);
    EXPECT_EQ(control.currentIndex(), 0);
    control.setCurrentIndex(3);
    EXPECT_EQ(settings.commandTabPosition(), CommandTabPosition::bottom);
    settings.commandTabPosition.set(CommandTabPosition::top);
    EXPECT_EQ(control.currentText(), "top");
}

TEST_F(SettingBindingTest, ControlThatIsGoneIsLeftAlone) {
    {
        ToggleSwitch control({});
        binding::bind(control, settings.usesGlass);
    }
    settings.usesGlass.set(false);
    EXPECT_FALSE(settings.usesGlass());
}

} // namespace
} // namespace pello
