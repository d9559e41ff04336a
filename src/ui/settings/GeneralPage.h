#pragma once

#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsServices.h"

namespace pello {

/// What summons the launcher, and what it does at large.
class GeneralPage final : public SettingsPage {
public:
    /// `services` must outlive the page.
    explicit GeneralPage(const SettingsServices& services);

    void refresh() override;

private:
    void addShortcuts();
    void addComboRow(SettingsSection& section);
    void addGlyphRow(SettingsSection& section);
    void addHyperRow(SettingsSection& section);
    void addSearching();
    void addMemory();
    void showComboProblem();
    void showHyper();
    void checkHyper();

    const SettingsServices& services_;
    PelloSettings& settings_;
    std::optional<bool> isHyperActive_;
    SettingRow* comboRow_ = nullptr;
    SettingRow* glyphRow_ = nullptr;
    SettingRow* hyperRow_ = nullptr;
    std::function<void()> showMemory_;
};

} // namespace pello
