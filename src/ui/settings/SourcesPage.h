#pragma once

#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsServices.h"

#include <functional>
#include <vector>

namespace pello {

/// What the launcher searches: the sources with what they found, and the user's scripts.
class SourcesPage final : public SettingsPage {
public:
    /// `services` must outlive the page.
    explicit SourcesPage(const SettingsServices& services);

    void refresh() override;

private:
    void addSwitches();
    void addScripts();
    void addRescan(SettingsSection& section);

    const SettingsServices& services_;
    std::vector<std::function<void()>> showCounts_;
};

} // namespace pello
