#include "ui/settings/SourcesPage.h"

#include "ui/settings/SettingBinding.h"
#include "ui/settings/ToggleSwitch.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <array>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

struct SwitchedSource {
    SettingsSource source;
    Setting<bool> PelloSettings::* setting;
    QString label;
    QString description;
};

const std::array kSources{
    SwitchedSource{SettingsSource::runningApps, &PelloSettings::includesRunningApps,
                   u"Running applications"_s, u"Commands to quit each application that runs."_s},
    SwitchedSource{SettingsSource::systemCommands, &PelloSettings::includesSystemCommands,
                   u"System commands"_s,
                   u"Sleep, restart, dark mode, volume, the trash and more."_s},
    SwitchedSource{SettingsSource::settingsPanes, &PelloSettings::includesSettingsPanes,
                   u"System settings"_s, u"The pages of the system's own settings, by name."_s},
    SwitchedSource{SettingsSource::audioOutputs, &PelloSettings::includesAudioOutputs,
                   u"Audio outputs"_s, u"Commands that send the sound to another device."_s},
    SwitchedSource{SettingsSource::shortcuts, &PelloSettings::includesShortcuts, u"Shortcuts"_s,
                   u"The shortcuts that you made in the system's Shortcuts application."_s},
    SwitchedSource{SettingsSource::menuItems, &PelloSettings::includesMenuItems, u"Menu items"_s,
                   u"What the menus of the application in front offer."_s},
    SwitchedSource{SettingsSource::scripts, &PelloSettings::includesScripts, u"Scripts"_s,
                   u"Commands of your own, from the scripts folder."_s},
};

const auto kScriptsText =
    u"Executable files in the scripts folder become commands. Optional “# pello.” comments in a "
    u"script's header set its name, keyword, icon, description, argument (none, optional or "
    u"required) and confirm. Typing the keyword, a space, then text passes the text as the "
    u"script's first argument. What the script prints arrives as a notification when it finishes; "
    u"a failure also marks the menu bar icon and shows in the launcher until dismissed, so Do Not "
    u"Disturb can't hide it."_s;

/// A control with how many items were found beside it.
QWidget* withCount(QWidget* control, QLabel* count) {
    auto* both = new QWidget;
    auto* layout = new QHBoxLayout(both);
    layout->setContentsMargins({});
    layout->setSpacing(12);
    count->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(count);
    layout->addWidget(control);
    both->setFocusProxy(control);
    return both;
}

} // namespace

SourcesPage::SourcesPage(const SettingsServices& services)
    : SettingsPage(u"Sources"_s), services_(services) {
    addSwitches();
    addScripts();
    refresh();
    if (services.foundChanged != nullptr) {
        binding::follow(*this, *services.foundChanged, [this] {
            if (isVisible()) {
                refresh();
            }
        });
    }
}

void SourcesPage::addSwitches() {
    auto& section = addSection(u"What is searched"_s);
    if (services_.rescan) {
        addRescan(section);
    }
    for (const SwitchedSource& source : kSources) {
        auto* control = new ToggleSwitch(source.label);
        auto* count = new QLabel;
        section.addRow(source.label, source.description, withCount(control, count));
        binding::bind(*control, services_.settings.*source.setting);
        showCounts_.emplace_back([this, count, kind = source.source] {
            const auto found = services_.found ? services_.found(kind) : std::nullopt;
            count->setText(found ? u"%1 found"_s.arg(*found) : QString());
        });
    }
}

void SourcesPage::addRescan(SettingsSection& section) {
    auto* rescan = new QPushButton(u"Rescan"_s);
    auto& row = section.addRow(u"Applications"_s, u"Looks for all of it again."_s, rescan);
    rescan->setAccessibleName(u"Rescan all sources"_s);
    connect(rescan, &QPushButton::clicked, this, [this] { services_.rescan(); });
    showCounts_.emplace_back([this, &row] {
        const auto found =
            services_.found ? services_.found(SettingsSource::applications) : std::nullopt;
        row.setDescription(found ? u"%1 found. Rescan looks for everything again."_s.arg(*found)
                                 : u"Rescan looks for everything again."_s);
    });
}

void SourcesPage::addScripts() {
    auto& section = addSection(u"Scripts"_s);
    const QString folder = QString::fromStdString(services_.scriptsFolder.string());
    if (services_.openFolder) {
        auto* open = new QPushButton(u"Open Folder"_s);
        section.addRow(u"Scripts folder"_s, folder, open);
        open->setAccessibleName(u"Open the scripts folder"_s);
        connect(open, &QPushButton::clicked, this,
                [this] { services_.openFolder(services_.scriptsFolder); });
    }
    if (services_.writeSampleScript) {
        auto* sample = new QPushButton(u"Create Sample"_s);
        section.addRow(u"How scripts become commands"_s, kScriptsText, sample);
        sample->setAccessibleName(u"Create a sample script"_s);
        connect(sample, &QPushButton::clicked, this, [this] { services_.writeSampleScript(); });
    }
}

void SourcesPage::refresh() {
    for (const auto& show : showCounts_) {
        show();
    }
}

} // namespace pello
