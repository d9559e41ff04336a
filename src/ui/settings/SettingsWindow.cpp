#include "ui/settings/SettingsWindow.h"

#include "ui/settings/AppearancePage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/RecordsPage.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/settings/SourcesPage.h"
#include "ui/settings/TabDelegate.h"
#include "ui/settings/TabIcon.h"
#include "ui/theme/PelloIcon.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>

#include <string>
#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsualSize(860, 640);
constexpr QSize kLeastSize(640, 420);
constexpr int kSidebarWidth = 208;
constexpr int kSidebarMargin = 14;
constexpr QMargins kContentMargins(28, 22, 28, 28);
constexpr int kPageGap = 30;
constexpr int kWidestPage = 860;
constexpr int kTabHeight = 36;
/// What is left of the height goes to pages, or when their number is unknown, below them.
constexpr int kAllStretch = 1000;
constexpr int kFieldHeight = 30;
constexpr QSize kTabIcon(22, 22);
constexpr std::string_view kSizeKey = "settingsWindow.size";

/// The size in text such as "860x640"; nothing when it is none.
std::optional<QSize> sizeFrom(const std::string& text) {
    const QStringList numbers = QString::fromStdString(text).split(u'x');
    if (numbers.size() != 2) {
        return std::nullopt;
    }
    const QSize size(numbers[0].toInt(), numbers[1].toInt());
    return size.width() > 0 && size.height() > 0 ? std::optional(size) : std::nullopt;
}

} // namespace

SettingsWindow::SettingsWindow(SettingsServices services)
    : services_(std::move(services)),
      search_(new QLineEdit),
      tabs_(new QListWidget),
      nothingFound_(new QLabel),
      pageLayout_(new QVBoxLayout),
      contents_(newContents()) {
    setWindowTitle(u"Pello Settings"_s);
    setWindowIcon(pelloIcon());
    setMinimumSize(kLeastSize);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(newSidebar());
    layout->addWidget(contents_, 1);
    addPage(new GeneralPage(services_));
    addPage(new AppearancePage(services_));
    addPage(new SourcesPage(services_));
    addPage(RecordsPage::bangs(services_.settings).release());
    addPage(RecordsPage::aliases(services_.settings).release());
    pageLayout_->addStretch();
    tabs_->setCurrentRow(0);
    guardFromWheel();
    addShortcuts();
    takePalette();
    restoreSize();
}

SettingsWindow::~SettingsWindow() {
    hide();
    qDeleteAll(pages_); // while there still are the services that they work with
}

QWidget* SettingsWindow::newSidebar() {
    auto* sidebar = new QWidget;
    sidebar->setFixedWidth(kSidebarWidth);
    auto* layout = new QVBoxLayout(sidebar);
    layout->setContentsMargins(kSidebarMargin, kContentMargins.top(), 0, kSidebarMargin);
    layout->setSpacing(12);
    search_->setPlaceholderText(u"Search settings"_s);
    search_->setAccessibleName(u"Search settings"_s);
    search_->setClearButtonEnabled(true);
    search_->setMinimumHeight(kFieldHeight);
    search_->setTextMargins(4, 0, 4, 0);
    search_->installEventFilter(this);
    layout->addWidget(search_);
    tabs_->setAccessibleName(u"Pages"_s);
    tabs_->setFrameShape(QFrame::NoFrame);
    tabs_->viewport()->setAutoFillBackground(false);
    tabs_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tabs_->setIconSize(kTabIcon);
    tabs_->setItemDelegate(new TabDelegate(tabs_));
    layout->addWidget(tabs_, 1);
    connect(search_, &QLineEdit::textChanged, this, &SettingsWindow::search);
    connect(tabs_, &QListWidget::currentRowChanged, this, [this] {
        search_->clear();
        showTab();
    });
    connect(tabs_, &QListWidget::itemClicked, this, [this] { search_->clear(); });
    return sidebar;
}

QScrollArea* SettingsWindow::newContents() {
    auto* pages = new QWidget;
    pages->setLayout(pageLayout_);
    pageLayout_->setContentsMargins(kContentMargins);
    pageLayout_->setSpacing(kPageGap);
    nothingFound_->setForegroundRole(SettingsPalette::kDim);
    nothingFound_->setTextFormat(Qt::PlainText);
    nothingFound_->hide();
    pageLayout_->addWidget(nothingFound_);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(pages);
    return area;
}

void SettingsWindow::addPage(SettingsPage* page) {
    auto* item =
        new QListWidgetItem(tabIcon(static_cast<SettingsTab>(pages_.size())), page->title(), tabs_);
    item->setSizeHint({0, kTabHeight});
    page->setAccessibleName(page->title());
    page->hide();
    page->setMaximumWidth(kWidestPage);
    pageLayout_->addWidget(page, 1);
    pages_.push_back(page);
}

void SettingsWindow::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    const auto step = [this](int by) {
        const int count = tabs_->count();
        tabs_->setCurrentRow((tabs_->currentRow() + count + by) % count);
    };
    add(QKeySequence::Find, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    add(QKeySequence::Close, [this] { close(); });
    add(Qt::CTRL | Qt::Key_PageDown, [step] { step(+1); });
    add(Qt::CTRL | Qt::Key_PageUp, [step] { step(-1); });
    for (int row = 0; row < tabs_->count(); ++row) {
        add(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + row),
            [this, row] { tabs_->setCurrentRow(row); });
    }
}

/// The wheel scrolls the page over a control that does not have the focus: it never changes what it
/// only passes.
void SettingsWindow::guardFromWheel() {
    for (QWidget* control : findChildren<QWidget*>()) {
        if (qobject_cast<QComboBox*>(control) != nullptr ||
            qobject_cast<QAbstractSpinBox*>(control) != nullptr) {
            control->setFocusPolicy(Qt::StrongFocus);
            control->installEventFilter(this);
        }
    }
}

bool SettingsWindow::eventFilter(QObject* watched, QEvent* event) {
    auto* control = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Wheel && control != search_ && !control->hasFocus()) {
        event->ignore();
        return true;
    }
    if (watched == search_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) {
            focusFirst();
            return true;
        }
        if (key == Qt::Key_Escape && !search_->text().isEmpty()) {
            search_->clear();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SettingsWindow::present(std::optional<SettingsTab> tab) {
    if (tab) {
        search_->clear();
        tabs_->setCurrentRow(static_cast<int>(*tab));
    }
    for (SettingsPage* page : pages_) {
        page->refresh();
    }
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    if (focusWidget() == nullptr) {
        search_->setFocus();
    }
}

SettingsTab SettingsWindow::currentTab() const {
    return static_cast<SettingsTab>(tabs_->currentRow());
}

SettingsPage& SettingsWindow::page(SettingsTab tab) const {
    return *pages_.at(static_cast<std::size_t>(tab));
}

void SettingsWindow::search(const QString& query) {
    const QStringList words = query.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) {
        showTab();
        return;
    }
    int found = 0;
    for (SettingsPage* page : pages_) {
        const int shown = page->filter(words);
        page->setVisible(shown > 0);
        found += shown;
    }
    nothingFound_->setText(u"Nothing found for “%1”."_s.arg(query.trimmed()));
    nothingFound_->setVisible(found == 0);
    pageLayout_->setStretch(pageLayout_->count() - 1, kAllStretch);
    tabs_->clearSelection();
    contents_->verticalScrollBar()->setValue(0);
}

void SettingsWindow::showTab() {
    nothingFound_->hide();
    for (SettingsPage* page : pages_) {
        page->filter({});
        page->setVisible(page == &this->page(currentTab()));
    }
    pageLayout_->setStretch(pageLayout_->count() - 1, 0);
    tabs_->currentItem()->setSelected(true);
    contents_->verticalScrollBar()->setValue(0);
}

void SettingsWindow::focusFirst() {
    for (const SettingsPage* page : pages_) {
        QWidget* control = page->isHidden() ? nullptr : page->firstControl();
        if (control != nullptr) {
            control->setFocus(Qt::TabFocusReason);
            contents_->ensureWidgetVisible(control);
            return;
        }
    }
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void SettingsWindow::takePalette() {
    isTakingPalette_ = true;
    setPalette(SettingsPalette::make(QGuiApplication::palette()));
    QPalette clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    tabs_->setPalette(clear);
    isTakingPalette_ = false;
}

bool SettingsWindow::event(QEvent* event) {
    const bool isDesktops = event->type() == QEvent::ApplicationPaletteChange;
    if ((isDesktops || event->type() == QEvent::PaletteChange) && !isTakingPalette_) {
        takePalette(); // the desktop went from light to dark, or back
    }
    return QWidget::event(event);
}

void SettingsWindow::hideEvent(QHideEvent* event) {
    rememberSize();
    QWidget::hideEvent(event);
}

void SettingsWindow::restoreSize() {
    const auto stored = services_.settings.defaults().value(kSizeKey);
    const auto* text = stored ? stored->as<std::string>() : nullptr;
    const QSize wanted = text != nullptr ? sizeFrom(*text).value_or(kUsualSize) : kUsualSize;
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
}

void SettingsWindow::rememberSize() {
    if (isMaximized() || isFullScreen()) {
        return;
    }
    services_.settings.defaults().set(kSizeKey,
                                      std::to_string(width()) + 'x' + std::to_string(height()));
}

} // namespace pello
