#include "ui/settings/AppearancePage.h"

#include "ui/settings/PanelPicture.h"
#include "ui/settings/PointsBox.h"
#include "ui/settings/SettingBinding.h"
#include "ui/settings/ToggleSwitch.h"

#include <QPushButton>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

ToggleSwitch* newSwitch(Setting<bool>& setting) {
    auto* control = new ToggleSwitch({});
    binding::bind(*control, setting);
    return control;
}

PointsBox* newPointsBox(Setting<double>& setting) {
    auto* control = new PointsBox;
    binding::bind(*control, setting);
    return control;
}

QSpinBox* newNumberBox(Setting<std::int64_t>& setting) {
    auto* control = new QSpinBox;
    control->setAlignment(Qt::AlignRight);
    binding::bind(*control, setting);
    return control;
}

/// Leaves `control` to be used only while `setting` is on.
void enableWith(QWidget& control, Setting<bool>& setting) {
    binding::follow(control, setting.changed,
                    [&control, &setting] { control.setEnabled(setting.get()); });
}

QPushButton* newPlacementButton(Setting<PanelPlacement>& setting) {
    auto* button = new QPushButton(u"Reset Position"_s);
    QObject::connect(button, &QPushButton::clicked, button, [&setting] { setting.reset(); });
    binding::follow(*button, setting.changed, [button, &setting] {
        button->setEnabled(!(setting.get() == PanelPlacement{}));
    });
    return button;
}

} // namespace

AppearancePage::AppearancePage(const SettingsServices& services)
    : SettingsPage(u"Appearance"_s), settings_(services.settings) {
    addPanel();
    if (services.switchers.strip) {
        addStrip();
    }
    if (services.switchers.commandTab) {
        addCommandTab();
    }
}

void AppearancePage::addPanel() {
    auto& section = addSection(u"Launcher"_s);
    section.addRow(u"Preview"_s, {}, new PanelPicture(settings_), SettingRow::Placement::below);
    section.addRow(u"Text size"_s, u"Everything in the launcher grows with it."_s,
                   newPointsBox(settings_.fontSize));
    section.addRow(u"Results"_s, u"How many rows are shown at most."_s,
                   newNumberBox(settings_.maximumResults));
    section.addRow(u"Glass"_s,
                   u"Lets what is behind the launcher shine through, where the desktop can."_s,
                   newSwitch(settings_.usesGlass));
    section.addRow(u"Start compact"_s, u"Shows no rows before something is typed."_s,
                   newSwitch(settings_.startsCompact));
    section.addRow(u"Position"_s, u"Drag the launcher by its free areas to move it."_s,
                   newPlacementButton(settings_.panelPlacement));
}

void AppearancePage::addStrip() {
    auto& section = addSection(u"Running apps"_s);
    section.addRow(u"Show running apps above the search field"_s,
                   u"⌥1–⌥9 switch to them. Most recently used first, like ⌘⇥ — so ⌥1 is always "
                   u"the app you were just in. The app you're in now comes last. The shortcuts "
                   u"only exist while Pello is open, so other apps keep ⌥1–⌥9."_s,
                   newSwitch(settings_.showsAppSwitcher));
    auto* size = newPointsBox(settings_.switcherIconSize);
    section.addRow(u"Icon size of running apps"_s, {}, size);
    enableWith(*size, settings_.showsAppSwitcher);
    auto* background = newSwitch(settings_.switcherHasBackground);
    section.addRow(u"Background behind running apps"_s, {}, background);
    enableWith(*background, settings_.showsAppSwitcher);
}

void AppearancePage::addCommandTab() {
    auto& section = addSection(u"Switcher"_s);
    section.addRow(u"Use Pello's switcher for ⌘⇥"_s,
                   u"Hold ⌘ and press ⇥ to step through, release to switch. With ⌘ held, ⇧⇥ goes "
                   u"back, a number jumps straight to that app, and Esc cancels. While a password "
                   u"field has focus, macOS keeps ⌘⇥ for itself."_s,
                   newSwitch(settings_.replacesCommandTab));
    auto* size = newPointsBox(settings_.commandTabIconSize);
    section.addRow(u"Icon size of the switcher"_s, {}, size);
    enableWith(*size, settings_.replacesCommandTab);
    auto* position = new QComboBox;
    position->addItems({u"Where the launcher is"_s, u"Top"_s, u"Centre"_s, u"Bottom"_s});
    binding::bind(*position, settings_.commandTabPosition);
    section.addRow(u"Position of the switcher"_s, {}, position);
    enableWith(*position, settings_.replacesCommandTab);
}

} // namespace pello
