#include "ui/settings/ActivationBox.h"

#include "ui/settings/SettingBinding.h"

namespace pello {

using namespace Qt::StringLiterals;

QComboBox* newActivationBox(const SettingsServices& services) {
    auto* box = new QComboBox;
    const auto& names = services.modifierNames;
    for (const std::string& name : {names.command, names.option, names.control}) {
        box->addItem(u"Tap Right %1"_s.arg(QString::fromStdString(name)));
    }
    box->addItem(u"Tap Caps Lock"_s);
    box->addItem(u"Keyboard Shortcut"_s);
    binding::bind(*box, services.settings.activation);
    return box;
}

} // namespace pello
