#pragma once

#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsServices.h"

namespace pello {

/// How the launcher and the switchers look, and where they stand.
class AppearancePage final : public SettingsPage {
public:
    /// `services` must outlive the page.
    explicit AppearancePage(const SettingsServices& services);

private:
    void addPanel();
    void addStrip();
    void addCommandTab();

    PelloSettings& settings_;
};

} // namespace pello
