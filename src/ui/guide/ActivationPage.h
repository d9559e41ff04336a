#pragma once

#include "ui/guide/GuidePage.h"
#include "ui/guide/GuideServices.h"
#include "ui/guide/PromptCard.h"
#include "ui/settings/SettingRow.h"

#include <QComboBox>

namespace pello {

/// What opens the launcher is chosen, and tried.
class ActivationPage final : public GuidePage {
public:
    /// `services` must outlive the page.
    ActivationPage(const GuideServices& services, QWidget* parent);

    /// The activation gesture was made.
    void prove() { card_->confirm(); }

    [[nodiscard]] const PromptCard& card() const { return *card_; }
    [[nodiscard]] QWidget& firstControl() override { return *box_; }
    void refresh() override { showProblem(); }

    /// The keys that open the launcher, as they are printed on them.
    [[nodiscard]] static QStringList keys(const SettingsServices& services);

private:
    void addRecorder();
    void askAnew();
    void showProblem();

    const GuideServices& services_;
    QComboBox* box_;
    SettingRow* recorderRow_ = nullptr;
    PromptCard* card_;
};

} // namespace pello
