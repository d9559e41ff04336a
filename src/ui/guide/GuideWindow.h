#pragma once

#include "ui/guide/GuideServices.h"
#include "ui/guide/GuideStep.h"

#include <QDialog>
#include <QPushButton>
#include <QScrollArea>

#include <functional>
#include <vector>

namespace pello {

class ActivationPage;
class GuidePage;
class StepDots;

/// Sets the program up, step by step: what opens it, what it needs, whether it starts by itself.
///
/// Every change is in effect as it is made; leaving the guide undoes nothing. Main thread only.
class GuideWindow final : public QDialog {
public:
    explicit GuideWindow(GuideServices services);
    ~GuideWindow() override;
    GuideWindow(const GuideWindow&) = delete;
    GuideWindow& operator=(const GuideWindow&) = delete;

    /// Brings the window to the front.
    void present();
    void goTo(GuideStep step);
    [[nodiscard]] GuideStep step() const { return step_; }

    /// The activation gesture was made. True when it was made to try it, and opens nothing: the
    /// guide has the keyboard and asks for it.
    bool prove();

    /// Goes, as if it was closed, as soon as `other` is shown.
    void giveWayTo(QWidget& other) { other.installEventFilter(this); }

    /// The user came to the end, or closed the guide.
    std::function<void()> onFinished;

    /// The parts, for tests that look at what is shown.
    [[nodiscard]] const GuidePage& page(GuideStep step) const;
    [[nodiscard]] QPushButton& next() { return *next_; }
    [[nodiscard]] QPushButton& back() { return *back_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] GuidePage& page() const;
    [[nodiscard]] QWidget* newFooter();
    void addPages();
    void step(int by);
    void takePalette();

    GuideServices services_;
    QScrollArea* contents_;
    QWidget* stack_;
    QPushButton* back_;
    QPushButton* next_;
    StepDots* dots_ = nullptr;
    ActivationPage* activation_ = nullptr;
    std::vector<GuidePage*> pages_;
    GuideStep step_ = GuideStep::welcome;
    bool isTakingPalette_ = false;
};

} // namespace pello
