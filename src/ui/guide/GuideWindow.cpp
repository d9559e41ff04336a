#include "ui/guide/GuideWindow.h"

#include "ui/guide/ActivationPage.h"
#include "ui/guide/ChecksPage.h"
#include "ui/guide/LoginPage.h"
#include "ui/guide/ReadyPage.h"
#include "ui/guide/ScaledFont.h"
#include "ui/guide/StepDots.h"
#include "ui/guide/WelcomePage.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PanelMetrics.h"
#include "ui/theme/PelloIcon.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsualSize(640, 580);
constexpr QMargins kFooterMargins(24, 8, 24, 20);
constexpr int kButtonWidth = 104;
// The panel's texts may be of any size; beyond these the guide would need scrolling throughout.
constexpr double kSmallest = 0.85;
constexpr double kLargest = 1.7;

} // namespace

GuideWindow::GuideWindow(GuideServices services)
    : services_(std::move(services)),
      contents_(new QScrollArea(this)),
      stack_(new QWidget),
      back_(new QPushButton(u"Back"_s)),
      next_(new QPushButton(u"Continue"_s)) {
    setWindowTitle(u"Pello Set-up Guide"_s);
    setWindowIcon(pelloIcon());
    const auto metrics = PanelMetrics::forFontSize(services_.settings.settings.fontSize());
    const double scale = std::clamp(metrics.scale, kSmallest, kLargest);
    setFont(scaledFont(font(), scale));
    takePalette();
    stack_->setLayout(new QVBoxLayout);
    stack_->layout()->setContentsMargins({});
    contents_->setWidget(stack_);
    contents_->setWidgetResizable(true);
    contents_->setFrameShape(QFrame::NoFrame);
    contents_->setFocusPolicy(Qt::NoFocus);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    addPages();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(contents_, 1);
    layout->addWidget(newFooter());
    resize((kUsualSize * scale).boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.9));
    goTo(step_);
    connect(this, &QDialog::finished, this, [this] {
        if (onFinished) {
            onFinished();
        }
    });
}

GuideWindow::~GuideWindow() {
    qDeleteAll(pages_); // while there still are the services that they work with
}

void GuideWindow::addPages() {
    activation_ = new ActivationPage(services_, stack_);
    pages_ = {new WelcomePage(stack_), activation_, new ChecksPage(services_, stack_),
              new LoginPage(services_, stack_), new ReadyPage(services_, stack_)};
    for (GuidePage* page : pages_) {
        page->hide();
        stack_->layout()->addWidget(page);
    }
}

QWidget* GuideWindow::newFooter() {
    auto* footer = new QWidget(this);
    dots_ = new StepDots(static_cast<int>(pages_.size()), footer);
    for (QPushButton* button : {back_, next_}) {
        button->setMinimumWidth(kButtonWidth);
    }
    next_->setDefault(true);
    auto* layout = new QGridLayout(footer);
    layout->setContentsMargins(kFooterMargins);
    layout->addWidget(back_, 0, 0, Qt::AlignLeft);
    layout->addWidget(dots_, 0, 1, Qt::AlignCenter);
    layout->addWidget(next_, 0, 2, Qt::AlignRight);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(2, 1);
    connect(back_, &QPushButton::clicked, this, [this] { step(-1); });
    connect(next_, &QPushButton::clicked, this, [this] { step(+1); });
    return footer;
}

void GuideWindow::step(int by) {
    const int wanted = static_cast<int>(step_) + by;
    if (wanted >= static_cast<int>(pages_.size())) {
        accept();
    } else if (wanted >= 0) {
        goTo(static_cast<GuideStep>(wanted));
    }
}

void GuideWindow::goTo(GuideStep step) {
    page().hide();
    step_ = step;
    page().refresh();
    page().show();
    contents_->verticalScrollBar()->setValue(0);
    dots_->setCurrent(static_cast<int>(step));
    back_->setVisible(step != GuideStep::welcome);
    next_->setText(step == GuideStep::ready ? u"Done"_s : u"Continue"_s);
    next_->setAccessibleDescription({});
    page().firstControl().setFocus(Qt::TabFocusReason);
}

void GuideWindow::present() {
    QDialog::show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

bool GuideWindow::prove() {
    if (!isVisible() || !isActiveWindow() || step_ != GuideStep::activation) {
        return false;
    }
    activation_->prove();
    next_->setAccessibleDescription(activation_->card().status());
    next_->setFocus(Qt::OtherFocusReason); // which reads it out, and is what comes next
    return true;
}

GuidePage& GuideWindow::page() const {
    return *pages_.at(static_cast<std::size_t>(step_));
}

const GuidePage& GuideWindow::page(GuideStep step) const {
    return *pages_.at(static_cast<std::size_t>(step));
}

void GuideWindow::takePalette() {
    isTakingPalette_ = true;
    setPalette(SettingsPalette::make(QGuiApplication::palette()));
    isTakingPalette_ = false;
}

bool GuideWindow::event(QEvent* event) {
    const bool isDesktops = event->type() == QEvent::ApplicationPaletteChange;
    if ((isDesktops || event->type() == QEvent::PaletteChange) && !isTakingPalette_) {
        takePalette(); // the desktop went from light to dark, or back
    }
    return QDialog::event(event);
}

/// In a later turn of the loop: what is shown comes first, and takes the keyboard itself.
bool GuideWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && isVisible()) {
        QTimer::singleShot(0, this, [this] { reject(); });
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace pello
