#include "ui/notes/NotesText.h"

#include <QDate>
#include <QLocale>

namespace pello {

QString shown(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString dateText(const std::chrono::year_month_day& day) {
    const QDate date(static_cast<int>(day.year()),
                     static_cast<int>(static_cast<unsigned>(day.month())),
                     static_cast<int>(static_cast<unsigned>(day.day())));
    return QLocale().toString(date, QLocale::LongFormat);
}

} // namespace pello
