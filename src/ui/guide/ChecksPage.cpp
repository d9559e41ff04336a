#include "ui/guide/ChecksPage.h"

#include "ui/guide/CheckRow.h"
#include "ui/settings/SettingBinding.h"
#include "ui/settings/SettingsCard.h"
#include "ui/settings/SettingsPalette.h"

#include <QHBoxLayout>
#include <QPointer>

#include <algorithm>
#include <cstddef>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

const QString kStalled =
    u"macOS kept stalling it, which slows down every keystroke and click, so Pello stepped aside. "
    u"This usually means its permissions changed while it was running. Relaunching picks up where "
    u"they stand now."_s;
const QString kNotReset =
    u"Pello couldn't reset its permissions. In System Settings, select Pello, remove it with −, "
    u"then click Open System Settings here to add it back."_s;
constexpr auto kResetQuestion = "Reset Pello's permissions?";
constexpr auto kResetReason =
    "This happens when the permission was granted to an older build or another copy of Pello. "
    "Resetting removes Pello from both lists and reopens it, so you can switch it on again from "
    "scratch.";
constexpr auto kReset = "Reset and Relaunch";

QString needs(std::ptrdiff_t count) {
    return count == 1 ? u"One thing needs you."_s : u"%1 things need you."_s.arg(count);
}

} // namespace

ChecksPage::ChecksPage(const GuideServices& services, QWidget* parent)
    : GuidePage(u"What Pello needs"_s,
                u"What it asks of this computer, and what for. What you type in other "
                u"programs is neither kept nor sent anywhere."_s,
                parent),
      services_(services),
      summary_(new QLabel(this)),
      again_(new QPushButton(u"Check Again"_s, this)),
      card_(new SettingsCard),
      problem_(new QLabel(this)),
      relaunch_(new QPushButton(u"Relaunch"_s, this)),
      reset_(new QPushButton(u"Reset and Relaunch…"_s, this)) {
    for (QPushButton* button : {again_, relaunch_, reset_}) {
        button->setAutoDefault(false); // Return goes on to the next step
    }
    addHelp();
    auto* head = new QHBoxLayout;
    summary_->setWordWrap(true);
    head->addWidget(summary_, 1);
    head->addWidget(again_);
    body().addLayout(head);
    body().addWidget(card_);
    auto* rows = new QVBoxLayout(card_);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->setSpacing(0);
    card_->hide();
    connect(again_, &QPushButton::clicked, this, [this] { refresh(); });
    binding::follow(*this, services_.listenerChanged, [this] { showListener(); });
}

void ChecksPage::addHelp() {
    problem_->setTextFormat(Qt::PlainText);
    problem_->setWordWrap(true);
    problem_->setForegroundRole(SettingsPalette::kProblem);
    body().addWidget(problem_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(relaunch_);
    buttons->addWidget(reset_);
    buttons->addStretch(1);
    body().addLayout(buttons);
    connect(relaunch_, &QPushButton::clicked, this, [this] { services_.relaunch(); });
    connect(reset_, &QPushButton::clicked, this, [this] { askToReset(); });
}

void ChecksPage::refresh() {
    refusal_.clear();
    showListener();
    summary_->setText(u"Looking…"_s);
    services_.check([page = QPointer(this)](const std::vector<GuideCheck>& checks) {
        if (page != nullptr) {
            page->showChecks(checks);
        }
    });
}

void ChecksPage::showListener() {
    using Health = HotkeyManager::Health;
    const auto listener = services_.listener();
    const bool isStalled = listener.health == Health::suspended;
    QString text = refusal_;
    if (text.isEmpty() && listener.health != Health::listening) {
        text = isStalled ? kStalled : QString::fromStdString(listener.failure);
    }
    problem_->setText(text);
    problem_->setVisible(!text.isEmpty());
    relaunch_->setVisible(isStalled && services_.relaunch != nullptr);
    reset_->setVisible(listener.health == Health::blocked && services_.resetPermissions != nullptr);
}

void ChecksPage::showChecks(const std::vector<GuideCheck>& checks) {
    qDeleteAll(card_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    for (const GuideCheck& check : checks) {
        card_->layout()->addWidget(new CheckRow(check, card_));
    }
    card_->setVisible(!checks.empty());
    const auto wrong = std::ranges::count(checks, GuideCheck::State::wrong, &GuideCheck::state);
    summary_->setText(wrong == 0 ? u"Everything that is switched on works."_s : needs(wrong));
    again_->setAccessibleDescription(summary_->text());
}

void ChecksPage::askToReset() {
    services_.dialogs.confirm(
        {.title = kResetQuestion, .message = kResetReason, .confirmTitle = kReset},
        [page = QPointer(this)](Dialogs::Answer answer) {
            if (page == nullptr || answer != Dialogs::Answer::confirmed) {
                return;
            }
            page->services_.resetPermissions([page](bool succeeded) {
                if (page != nullptr) {
                    page->refusal_ = succeeded ? QString() : kNotReset;
                    page->showListener();
                }
            });
        });
}

} // namespace pello
