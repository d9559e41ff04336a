#pragma once

#include "ui/guide/GuidePage.h"
#include "ui/guide/GuideServices.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <vector>

namespace pello {

/// What the platform has to give, each explained and looked at; and what helps a listener that
/// stands still.
class ChecksPage final : public GuidePage {
public:
    /// `services` must outlive the page.
    ChecksPage(const GuideServices& services, QWidget* parent);

    /// Looks at everything anew.
    void refresh() override;

    [[nodiscard]] QString summary() const { return summary_->text(); }
    /// What is said of a listener that does not listen; empty when it does.
    [[nodiscard]] QString problem() const { return problem_->text(); }

private:
    void addHelp();
    void showListener();
    void showChecks(const std::vector<GuideCheck>& checks);
    void askToReset();

    const GuideServices& services_;
    QLabel* summary_;
    QPushButton* again_;
    QFrame* card_;
    QLabel* problem_;
    QPushButton* relaunch_;
    QPushButton* reset_;
    QString refusal_; // of what was tried last
};

} // namespace pello
