#pragma once

#include "ui/guide/GuidePage.h"
#include "ui/guide/GuideServices.h"
#include "ui/settings/ToggleSwitch.h"

namespace pello {

/// Offers to start with the session.
class LoginPage final : public GuidePage {
public:
    /// `services` must outlive the page.
    LoginPage(const GuideServices& services, QWidget* parent);

    [[nodiscard]] QWidget& firstControl() override { return *toggle_; }
    void refresh() override { services_.settings.settings.launchAtLogin.reload(); }

private:
    const GuideServices& services_;
    ToggleSwitch* toggle_;
};

} // namespace pello
