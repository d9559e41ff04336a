#include "ui/settings/ComboProblem.h"

#include "ui/settings/ShortcutTexts.h"

#include <QStringList>

namespace pello {

QString comboProblem(const SettingsServices& services, const KeyCombo& combo) {
    QStringList problems;
    if (auto owner = shortcutTexts::systemConflict(combo, services.preferences, services.layout)) {
        problems.append(QString::fromStdString(*owner));
    }
    if (auto reason = services.comboProblem ? services.comboProblem(combo) : std::nullopt) {
        problems.append(QString::fromStdString(*reason));
    }
    return problems.join(u'\n');
}

} // namespace pello
