#include "ui/panel/PanelWindow.h"

#include "ui/panel/PanelGeometry.h"
#include "ui/tray/FailureDialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <utility>

namespace pello {

namespace {

constexpr std::chrono::milliseconds kActivationPatience(50);

// When Qt has noticed for certain that a window lost the focus, which takes it 100 ms.
constexpr std::chrono::milliseconds kFocusPatience(100);

constexpr int kRowsThatMustFit = 4;
constexpr int kRowsBeyondTheLimit = 3; // answers, and what makes a search of the web

} // namespace

PanelWindow::PanelWindow(PelloController& controller, IconLoader& icons,
                         const Compositor& compositor, ScriptFailureLog& failures)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      controller_(controller),
      icons_(icons),
      compositor_(compositor),
      style_(PanelStyle::make(palette(), QApplication::font(), controller.settings().fontSize())),
      field_(style_),
      list_(style_, icons),
      failures_(failures),
      failureRows_(style_),
      notice_(style_),
      keys_(controller, field_, list_, failureRows_) {
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(QStringLiteral("Pello"));
    setAccessibleName(QStringLiteral("Pello"));
    for (QWidget* part :
         std::initializer_list<QWidget*>{&field_, &list_, &failureRows_, &notice_}) {
        part->setParent(this);
    }
    setFocusProxy(&field_);
    field_.installEventFilter(this);
    activationCheck_.setSingleShot(true);
    focusCheck_.setSingleShot(true);
    connectParts();
    restyle();
    controller_.setPanel(this);
}

PanelWindow::~PanelWindow() {
    controller_.setPanel(nullptr);
    field_.setParent(nullptr); // they are members: Qt must not delete them as children
    list_.setParent(nullptr);
    failureRows_.setParent(nullptr);
    notice_.setParent(nullptr);
}

void PanelWindow::connectParts() {
    connect(&field_, &QLineEdit::textChanged, this,
            [this] { controller_.setQuery(field_.query()); });
    connect(&activationCheck_, &QTimer::timeout, this, [this] {
        if (isVisible() && !isActiveWindow()) {
            takeKeyboard();
            focusCheck_.start(kFocusPatience);
        }
    });
    connect(&focusCheck_, &QTimer::timeout, this, &PanelWindow::noticeFocus);
    list_.onHover = [this](int row) { controller_.setSelection(row); };
    list_.onClick = [this](int row) {
        controller_.setSelection(row);
        controller_.runSelection();
    };
    failureRows_.onOpen = [this](const ScriptFailure& failure) { openFailure(failure); };
    failureRows_.onReveal = [this](const ScriptFailure& failure) {
        controller_.hide();
        controller_.revealScript(failure.fileName);
    };
    failureRows_.onDismiss = [this](const ScriptFailure& failure) { failures_.dismiss(failure); };
    failureRows_.onSelect = [this] { refresh(); };
    subscriptions_.push_back(failures_.changed.connect([this] { refresh(); }));
    notice_.onDismiss = [this] { controller_.dismissNotice(); };
    subscriptions_.push_back(controller_.changed.connect([this] { refresh(); }));
    subscriptions_.push_back(icons_.loaded.connect([this] { list_.repaintIcons(); }));
    auto& settings = controller_.settings();
    for (Signal<>* appearance : {&settings.fontSize.changed, &settings.usesGlass.changed}) {
        subscriptions_.push_back(appearance->connect([this] { restyle(); }));
    }
    subscriptions_.push_back(settings.panelPlacement.changed.connect([this] { place(); }));
}

void PanelWindow::present() {
    if (!isVisible()) {
        icons_.forgetMissing();
        failureRows_.select(std::nullopt);
        wasActive_ = false;
        isKeyFromBefore_ = true;
        refresh();
        chooseScreen();
        place();
        list_.forgetPointerMoves();
    }
    show();
    takeKeyboard();
    activationCheck_.start(kActivationPatience);
}

void PanelWindow::dismiss() {
    activationCheck_.stop();
    focusCheck_.stop();
    endDrag();
    hide();
}

void PanelWindow::takeKeyboard() {
    raise();
    activateWindow();
    field_.setFocus();
}

/// Qt does not tell of a focus that returns before it has noticed its loss, as when the panel is
/// opened again at once.
void PanelWindow::noticeFocus() {
    if (isVisible() && !isActiveWindow() && QGuiApplication::focusWindow() == windowHandle()) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(this);
        QT_WARNING_POP
    }
}

void PanelWindow::activationChanged() {
    if (isActiveWindow()) {
        wasActive_ = true;
    } else if (wasActive_ && isVisible() && QApplication::activePopupWidget() == nullptr) {
        controller_.hide();
    }
}

void PanelWindow::openFailure(const ScriptFailure& failure) {
    controller_.hide();
    showFailure(failure, controller_, failures_);
}

void PanelWindow::restyle() {
    style_ = PanelStyle::make(QApplication::palette(), QApplication::font(),
                              controller_.settings().fontSize());
    field_.restyle();
    list_.restyle();
    refresh();
    place();
    update();
}

void PanelWindow::refresh() {
    field_.setPrompt(controller_.prompt().value_or(""));
    field_.setQuery(controller_.query());
    field_.setCompletion(controller_.inlineCompletion().value_or(""));
    failureRows_.setFailures(failures_.failures());
    if (std::exchange(shownQuery_, controller_.query()) != controller_.query()) {
        failureRows_.select(std::nullopt); // who types is about the results
    }
    list_.setResults(controller_.results(),
                     failureRows_.selection() ? -1 : controller_.selection());
    list_.setRemark(controller_.selectionRemark());
    list_.setReasons(controller_.reasons());
    notice_.setNotice(controller_.notice());
    fitHeight();
}

QRect PanelWindow::body() const {
    return {margin_, margin_, width() - 2 * margin_, bodyHeight_};
}

QRect PanelWindow::screenArea() const {
    return screen()->availableGeometry();
}

/// Goes to the screen under the pointer: there the user is looking.
void PanelWindow::chooseScreen() {
    if (QGuiApplication::screens().size() == 1) {
        return; // to ask where the pointer is would wait for the server
    }
    if (auto* target = QGuiApplication::screenAt(QCursor::pos()); target && target != screen()) {
        setScreen(target);
    }
}

/// Puts the panel where the settings want it on its screen.
void PanelWindow::place() {
    if (controller_.isPanelDragged()) {
        return;
    }
    margin_ = compositor_.isRunning() ? style_.metrics.shadowMargin : 0;
    const auto& metrics = style_.metrics;
    const QSize needed(std::min(metrics.width, screenArea().width()),
                       metrics.headerHeight + kRowsThatMustFit * metrics.rowPitch);
    const QPoint corner =
        geometry::topLeft(controller_.settings().panelPlacement(), screenArea(), needed);
    const int room = screenArea().bottom() + 1 - corner.y();
    const QSize size(needed.width(), std::min(std::max(height(), usualHeight()), room));
    const QMargins shadow(margin_, margin_, margin_, margin_);
    setGeometry(QRect(corner, size).marginsAdded(shadow));
    fitHeight();
}

/// High enough for what is mostly shown.
int PanelWindow::usualHeight() const {
    const auto& metrics = style_.metrics;
    const auto rows = static_cast<int>(controller_.settings().maximumResults());
    return metrics.headerHeight + 2 * metrics.listPadding +
           (rows + kRowsBeyondTheLimit) * metrics.rowPitch;
}

/// Makes the panel as high as what it shows, its upper edge staying where it is. Rows that find no
/// room on the screen are scrolled to.
///
/// The window itself only grows: it is high enough already, mostly, and the rows then need not wait
/// for the window manager. What is not shown of it is cut off by its shape.
void PanelWindow::fitHeight() {
    const int fixed = style_.metrics.headerHeight + failureRows_.fullHeight() +
                      notice_.fullHeight(body().width());
    const int room = screenArea().bottom() - style_.metrics.rowMargin - (y() + margin_) - fixed;
    const int before = std::exchange(bodyHeight_, fixed + list_.heightWithin(room));
    if (bodyHeight_ != before) {
        update();
    }
    if (const int needed = bodyHeight_ + 2 * margin_; needed > height()) {
        resize(width(), needed);
    } else {
        arrange();
    }
}

void PanelWindow::arrange() {
    const QRect area = body();
    const int header = style_.metrics.headerHeight;
    const int notice = notice_.fullHeight(area.width());
    const int failures = failureRows_.fullHeight();
    field_.setGeometry(area.x(), area.y(), area.width(), header);
    list_.setGeometry(area.x(), area.y() + header, area.width(),
                      area.height() - header - failures - notice);
    failureRows_.setGeometry(area.x(), area.bottom() + 1 - notice - failures, area.width(),
                             failures);
    notice_.setGeometry(area.x(), area.bottom() + 1 - notice, area.width(), notice);
    shapeWindow();
}

void PanelWindow::resizeEvent(QResizeEvent* /*event*/) {
    arrange();
}

/// Takes the room for more rows away from the pointer and from window managers. Without a
/// compositor nothing blends: the window itself is given the round corners.
void PanelWindow::shapeWindow() {
    const QRegion shape = margin_ > 0 ? QRegion(0, 0, width(), bodyHeight_ + 2 * margin_)
                                      : geometry::roundedRegion(body(), style_.metrics.radius);
    if (shape != mask()) {
        setMask(shape);
    }
}

void PanelWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto& theme = style_.theme;
    const bool isBlended = margin_ > 0;
    const QRect area = body();
    if (isBlended) {
        paintShadow(painter);
    }
    QColor ground = theme.ground;
    ground.setAlphaF(isBlended && controller_.settings().usesGlass() ? float(theme.glassOpacity)
                                                                     : 1.0F);
    ground_.paint(painter, area,
                  {.ground = ground, .line = theme.line, .radius = style_.metrics.radius});
    if (area.height() > style_.metrics.headerHeight) {
        painter.fillRect(area.x(), area.y() + style_.metrics.headerHeight - 1, area.width(), 1,
                         theme.line);
    }
}

/// Only beside the panel: its ground may be translucent.
void PanelWindow::paintShadow(QPainter& painter) {
    QPainterPath beside;
    beside.addRect(body().adjusted(-margin_, -margin_, margin_, margin_));
    QPainterPath shape;
    shape.addRoundedRect(body(), style_.metrics.radius, style_.metrics.radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(beside - shape);
    shadow_.paint(painter, body(), margin_, style_.theme.shadow);
    painter.setClipping(false);
}

bool PanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        activationChanged();
        break;
    case QEvent::ApplicationPaletteChange:
    case QEvent::ApplicationFontChange:
        restyle();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &field_ && event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        isKeyFromBefore_ = isKeyFromBefore_ && key.isAutoRepeat();
        return isKeyFromBefore_ || keys_.handle(key);
    }
    return QWidget::eventFilter(watched, event);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
    event->ignore(); // the window is kept
    controller_.hide();
}

void PanelWindow::mousePressEvent(QMouseEvent* event) {
    if (!body().contains(event->position().toPoint())) {
        controller_.hide(); // the shadow is not the panel
    } else if (event->button() == Qt::LeftButton) {
        grip_ = event->position().toPoint();
    }
}

void PanelWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!grip_) {
        return;
    }
    const QPoint pointer = event->globalPosition().toPoint();
    const bool isFar =
        (pointer - mapToGlobal(*grip_)).manhattanLength() >= QApplication::startDragDistance();
    if (isFar && !controller_.isPanelDragged()) {
        controller_.beginPanelDrag();
    }
    if (controller_.isPanelDragged()) {
        move(pointer - *grip_);
    }
}

void PanelWindow::mouseReleaseEvent(QMouseEvent* /*event*/) {
    endDrag();
}

/// Leaves the panel where it was dragged to, if it was.
void PanelWindow::endDrag() {
    grip_.reset();
    if (controller_.isPanelDragged()) {
        const QPoint corner = pos() + QPoint(margin_, margin_);
        controller_.endPanelDrag(geometry::placement(corner, body().width(), screenArea()));
    }
}

} // namespace pello
