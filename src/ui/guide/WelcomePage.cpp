#include "ui/guide/WelcomePage.h"

#include "ui/icons/SymbolTable.h"
#include "ui/settings/SymbolTile.h"

#include <QHBoxLayout>
#include <QLabel>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kTile = 30;
constexpr int kTileGap = 14;

} // namespace

WelcomePage::WelcomePage(QWidget* parent)
    : GuidePage(u"Welcome to Pello"_s,
                u"One key, a few letters, Return: what you wanted is there. This guide takes a "
                u"minute; Esc closes it, and the tray menu and the settings open it again."_s,
                parent) {
    struct Line {
        std::string_view symbol;
        QString title;
        QString text;
    };
    for (const Line& line :
         {Line{"square.stack.3d.down.right.fill", u"Open"_s,
               u"Applications, scripts and places by a few of their letters."_s},
          Line{"equal.square", u"Calculate and convert"_s,
               u"The answer stands there as you type."_s},
          Line{"globe", u"Search the web"_s,
               u"By the sites that you name, or for whatever nothing else was found."_s},
          Line{"clock", u"Remember"_s,
               u"What you choose for a few letters comes first next "
               u"time. It stays on this computer."_s}}) {
        auto* row = new QHBoxLayout;
        row->setSpacing(kTileGap);
        auto* tile = new QLabel(this);
        tile->setPixmap(symbolTile(drawingOf(line.symbol), kTile, devicePixelRatioF()));
        row->addWidget(tile, 0, Qt::AlignTop);
        auto* texts = new QVBoxLayout;
        texts->setSpacing(2);
        auto* title = new QLabel(line.title, this);
        QFont font = title->font();
        font.setWeight(QFont::DemiBold);
        title->setFont(font);
        texts->addWidget(title);
        texts->addWidget(newNote(line.text));
        row->addLayout(texts, 1);
        body().addLayout(row);
    }
}

} // namespace pello
