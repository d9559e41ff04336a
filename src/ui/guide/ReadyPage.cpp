#include "ui/guide/ReadyPage.h"

#include "ui/guide/ActivationPage.h"
#include "ui/settings/SettingsCard.h"

#include <QGridLayout>
#include <QPushButton>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr QMargins kMargins(18, 14, 18, 14);
constexpr int kRowGap = 8;
constexpr int kColumnGap = 20;

} // namespace

ReadyPage::ReadyPage(const GuideServices& services, QWidget* parent)
    : GuidePage(u"You are ready"_s, u"A few keys that are worth knowing:"_s, parent),
      services_(services),
      activation_(new KeyCaps({})) {
    auto* card = new SettingsCard;
    auto* grid = new QGridLayout(card);
    grid->setContentsMargins(kMargins);
    grid->setVerticalSpacing(kRowGap);
    grid->setHorizontalSpacing(kColumnGap);
    grid->setColumnStretch(1, 1);
    const auto add = [grid](KeyCaps* keys, const QString& text) {
        const int row = grid->rowCount();
        grid->addWidget(keys, row, 0, Qt::AlignVCenter);
        QWidget* note = newNote(text);
        note->setForegroundRole(QPalette::Text);
        grid->addWidget(note, row, 1, Qt::AlignVCenter);
    };
    const QString control = QString::fromStdString(services_.settings.modifierNames.control);
    add(activation_, u"opens Pello, and closes it"_s);
    add(new KeyCaps({u"Return"_s}), u"runs what is selected"_s);
    add(new KeyCaps({u"Tab"_s}), u"takes over what stands greyed behind the caret"_s);
    add(new KeyCaps({u"↑"_s}), u"on the first row brings back what you typed before"_s);
    add(new KeyCaps({u":"_s}), u"and a word finds emoji and symbols"_s);
    add(new KeyCaps({control, u","_s}), u"opens the settings"_s);
    add(new KeyCaps({u"Esc"_s}), u"clears the text, then closes"_s);
    body().addWidget(card);
    if (services_.openSettings) {
        auto* open = new QPushButton(u"Open Settings…"_s, this);
        open->setAutoDefault(false); // Return is done
        connect(open, &QPushButton::clicked, this, [this] { services_.openSettings(); });
        body().addWidget(open, 0, Qt::AlignLeft);
    }
}

void ReadyPage::refresh() {
    activation_->setKeys(ActivationPage::keys(services_.settings));
}

} // namespace pello
