#include "app/TypedMoment.h"

#include <QDateTime>
#include <QString>

namespace pello {

std::optional<Date> typedMoment(std::string_view text) {
    const QDateTime moment = QDateTime::fromString(
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), Qt::ISODate);
    const bool isInRange = moment.date().year() >= 1 && moment.date().year() <= 9999;
    if (!moment.isValid() || !isInRange) {
        return std::nullopt;
    }
    return Date::fromUnix(static_cast<double>(moment.toMSecsSinceEpoch()) / 1000);
}

} // namespace pello
