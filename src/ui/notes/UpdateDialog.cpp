#include "ui/notes/UpdateDialog.h"

#include "ui/notes/NotesText.h"
#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PelloIcon.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kIconSide = 64;
constexpr int kTextWidth = 320;
constexpr QMargins kMargins(24, 22, 24, 18);
constexpr double kTitleScale = 1.15;

QLabel* newText() {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(kTextWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

UpdateDialog::UpdateDialog(NotesServices services, std::function<void()> showNotes)
    : services_(std::move(services)),
      loader_(services_.reader, services_.loop, services_.feed),
      showNotes_(std::move(showNotes)),
      title_(newText()),
      message_(newText()),
      buttons_(new QDialogButtonBox) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Check for Updates"_s);
    setWindowIcon(pelloIcon());
    auto* icon = new QLabel;
    icon->setPixmap(pelloIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
    icon->setAlignment(Qt::AlignTop);
    QFont font = title_->font();
    font.setPointSizeF(font.pointSizeF() * kTitleScale);
    font.setWeight(QFont::DemiBold);
    title_->setFont(font);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(6);
    texts->addWidget(title_);
    texts->addWidget(message_);
    texts->addStretch();
    auto* above = new QHBoxLayout;
    above->setSpacing(18);
    above->addWidget(icon);
    above->addLayout(texts, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(18);
    layout->addLayout(above);
    layout->addWidget(buttons_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void UpdateDialog::present() {
    if (!isLooking_) {
        look();
    }
    show();
    raise();
    activateWindow();
}

void UpdateDialog::look() {
    isLooking_ = true;
    title_->setText(u"Checking for updates…"_s);
    message_->setText(u"You have Pello %1."_s.arg(shown(services_.installed.text())));
    buttons_->clear();
    addButton(u"Cancel"_s, {});
    loader_.load([this](const ReleaseFeed::Contents& contents) {
        isLooking_ = false;
        tell(UpdateVerdict::of(services_.installed, contents, loader_.place()));
    });
}

void UpdateDialog::tell(const UpdateVerdict& verdict) {
    title_->setText(shown(verdict.title));
    QString message = shown(verdict.message);
    if (verdict.release && verdict.release->date) {
        message += u" The new version was released on %1."_s.arg(dateText(*verdict.release->date));
    }
    message_->setText(message);
    setAccessibleDescription(message);
    buttons_->clear();
    if (verdict.release && !verdict.release->link.empty()) {
        download_ = verdict.release->link;
        addButton(u"Download"_s, [this] { services_.openAddress(download_); });
    }
    if (verdict.kind != UpdateVerdict::Kind::unknown) {
        addButton(u"What’s New"_s, showNotes_);
    }
    QPushButton* closing = addButton(verdict.release ? u"Later"_s : u"Close"_s, {});
    auto* first = verdict.release ? buttons_->findChild<QPushButton*>() : closing;
    first->setDefault(true);
    first->setFocus();
}

QPushButton* UpdateDialog::addButton(const QString& text, std::function<void()> action) {
    auto* button = buttons_->addButton(text, QDialogButtonBox::ActionRole);
    connect(button, &QPushButton::clicked, this, [this, action = std::move(action)] {
        if (action) {
            action();
        }
        close();
    });
    return button;
}

} // namespace pello
