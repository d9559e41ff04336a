#include "ui/guide/LoginPage.h"

#include "ui/settings/SettingBinding.h"
#include "ui/settings/SettingsSection.h"

namespace pello {

using namespace Qt::StringLiterals;

LoginPage::LoginPage(const GuideServices& services, QWidget* parent)
    : GuidePage(u"Always there"_s,
                u"Pello opens at once only if it is running. It waits without doing anything, and "
                u"takes little memory."_s,
                parent),
      services_(services),
      toggle_(new ToggleSwitch({})) {
    auto* section = new SettingsSection({});
    section->addRow(u"Open at login"_s, u"Pello is there as soon as you are."_s, toggle_);
    body().addWidget(section);
    binding::bind(*toggle_, services_.settings.settings.launchAtLogin);
}

} // namespace pello
