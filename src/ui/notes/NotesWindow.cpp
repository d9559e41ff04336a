#include "ui/notes/NotesWindow.h"

#include "ui/notes/NotesText.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PelloIcon.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsualSize(680, 620);
constexpr QSize kLeastSize(420, 320);
constexpr QMargins kHeaderMargins(28, 22, 28, 0);
constexpr double kTitleScale = 1.5;
constexpr double kMessageScale = 1.2;
constexpr int kWidestMessage = 380;

QLabel* newLabel(double scale, QFont::Weight weight) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setWeight(weight);
    label->setFont(font);
    return label;
}

} // namespace

NotesWindow::NotesWindow(NotesServices services)
    : services_(std::move(services)),
      loader_(services_.reader, services_.loop, services_.feed),
      standing_(newLabel(1, QFont::Normal)),
      downloadButton_(new QPushButton(u"Download"_s)),
      title_(newLabel(kMessageScale, QFont::DemiBold)),
      message_(newLabel(1, QFont::Normal)),
      again_(new QPushButton(u"Try Again"_s)),
      view_(new NotesView),
      messagePage_(newMessagePage()),
      pages_(new QStackedWidget) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"What’s New in Pello"_s);
    setWindowIcon(pelloIcon());
    setMinimumSize(kLeastSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addLayout(newHeader());
    pages_->addWidget(messagePage_);
    pages_->addWidget(view_);
    layout->addWidget(pages_, 1);
    connect(view_, &NotesView::anchorClicked, this, &NotesWindow::follow);
    connect(again_, &QPushButton::clicked, this, &NotesWindow::load);
    connect(downloadButton_, &QPushButton::clicked, this,
            [this] { services_.openAddress(download_); });
    auto* closing = new QShortcut(QKeySequence::Close, this);
    connect(closing, &QShortcut::activated, this, &QWidget::close);
    takePalette();
    resize(kUsualSize.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
}

QLayout* NotesWindow::newHeader() {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    auto* heading = newLabel(kTitleScale, QFont::DemiBold);
    heading->setText(u"What’s New in Pello"_s);
    texts->addWidget(heading);
    standing_->setForegroundRole(SettingsPalette::kDim);
    texts->addWidget(standing_);
    auto* header = new QHBoxLayout;
    header->setContentsMargins(kHeaderMargins);
    header->addLayout(texts, 1);
    header->addWidget(downloadButton_, 0, Qt::AlignVCenter);
    downloadButton_->hide();
    return header;
}

QWidget* NotesWindow::newMessagePage() {
    message_->setForegroundRole(SettingsPalette::kDim);
    for (QLabel* label : {title_, message_}) {
        label->setAlignment(Qt::AlignHCenter);
        label->setFixedWidth(kWidestMessage);
    }
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setSpacing(10);
    layout->addStretch(2);
    layout->addWidget(title_, 0, Qt::AlignHCenter);
    layout->addWidget(message_, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    layout->addWidget(again_, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    return page;
}

void NotesWindow::present() {
    if (!hasNotes_) {
        load();
    }
    QWidget::show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void NotesWindow::load() {
    say(u"Reading the release notes…"_s, {});
    again_->hide();
    standing_->setText(u"You have Pello %1."_s.arg(shown(services_.installed.text())));
    loader_.load([this](const ReleaseFeed::Contents& contents) { take(contents); });
}

void NotesWindow::take(const ReleaseFeed::Contents& contents) {
    const auto verdict = UpdateVerdict::of(services_.installed, contents, loader_.place());
    const auto* releases = std::get_if<std::vector<Release>>(&contents);
    if (releases == nullptr || releases->empty()) {
        say(shown(verdict.title), shown(verdict.message));
        again_->show();
        again_->setFocus();
        return;
    }
    hasNotes_ = true;
    if (verdict.release) {
        standing_->setText(shown(verdict.title + ". " + verdict.message));
        download_ = verdict.release->link;
        downloadButton_->setVisible(!download_.empty());
    }
    view_->show(*releases, services_.installed);
    pages_->setCurrentWidget(view_);
    view_->setFocus();
}

void NotesWindow::say(const QString& title, const QString& message) {
    title_->setText(title);
    message_->setText(message);
    message_->setVisible(!message.isEmpty());
    pages_->setCurrentWidget(messagePage_);
}

/// The text is the feed's, which anybody may have written.
void NotesWindow::follow(const QUrl& link) const {
    if (link.scheme() == u"https"_s || link.scheme() == u"http"_s) {
        services_.openAddress(link.toEncoded().toStdString());
    }
}

void NotesWindow::takePalette() {
    isTakingPalette_ = true;
    setPalette(SettingsPalette::make(QGuiApplication::palette()));
    isTakingPalette_ = false;
}

bool NotesWindow::event(QEvent* event) {
    const bool isDesktops = event->type() == QEvent::ApplicationPaletteChange;
    if ((isDesktops || event->type() == QEvent::PaletteChange) && !isTakingPalette_) {
        takePalette(); // the desktop went from light to dark, or back
    }
    return QWidget::event(event);
}

void NotesWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace pello
