#include "ui/guide/ActivationPage.h"

#include "ui/settings/ActivationBox.h"
#include "ui/settings/ComboProblem.h"
#include "ui/settings/KeyComboRecorder.h"
#include "ui/settings/SettingBinding.h"
#include "ui/settings/SettingsSection.h"

#include <array>
#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

QStringList keysOf(const KeyCombo& combo, const SettingsServices& services) {
    const auto& names = services.modifierNames;
    const std::array<std::pair<std::uint64_t, std::string>, 4> modifiers{
        {{KeyCombo::kControl, names.control},
         {KeyCombo::kOption, names.option},
         {KeyCombo::kShift, "Shift"},
         {KeyCombo::kCommand, names.command}}};
    QStringList keys;
    for (const auto& [flag, name] : modifiers) {
        if ((combo.modifiers() & flag) != 0) {
            keys << QString::fromStdString(name);
        }
    }
    keys << QString::fromStdString(KeyCombo::keyName(combo.keyCode(), services.layout));
    return keys;
}

} // namespace

ActivationPage::ActivationPage(const GuideServices& services, QWidget* parent)
    : GuidePage(u"The key that opens Pello"_s,
                u"It works in every program: once to open, once more to close."_s, parent),
      services_(services),
      box_(newActivationBox(services.settings)),
      card_(new PromptCard(this)) {
    auto* section = new SettingsSection({});
    section->addRow(u"Open with"_s, u"A tap is short, and of that key alone."_s, box_);
    if (services_.settings.virtualKey) {
        auto* recorder = new KeyComboRecorder(services_.settings);
        recorderRow_ = &section->addRow(u"Keyboard shortcut"_s, {}, recorder);
    }
    body().addWidget(section);
    body().addWidget(card_);
    if (recorderRow_ != nullptr) {
        addRecorder();
    }
    auto& settings = services_.settings.settings;
    for (Signal<>* changed : {&settings.activation.changed, &settings.keyCombo.changed}) {
        binding::follow(*this, *changed, [this] { askAnew(); });
    }
    binding::follow(*this, services_.listenerChanged, [this] { showProblem(); });
}

void ActivationPage::addRecorder() {
    auto& recorder = static_cast<KeyComboRecorder&>(recorderRow_->control());
    auto& combo = services_.settings.settings.keyCombo;
    recorder.onRecorded = [&combo](const KeyCombo& typed) { binding::assign(combo, typed); };
    recorder.onHint = [this](const QString& hint) { recorderRow_->setNotice(hint); };
    binding::follow(recorder, combo.changed,
                    [&recorder, &combo] { recorder.showCombo(combo.get()); });
}

void ActivationPage::askAnew() {
    if (recorderRow_ != nullptr) {
        recorderRow_->setVisible(services_.settings.settings.activation() == Activation::keyCombo);
    }
    card_->ask(u"Press it now"_s, keys(services_.settings));
    showProblem();
}

/// What a listener that does not listen says goes before what is wrong with the combo.
void ActivationPage::showProblem() {
    const auto listener = services_.listener();
    const PelloSettings& settings = services_.settings.settings;
    QString problem = QString::fromStdString(listener.failure);
    if (problem.isEmpty() && settings.activation.get() == Activation::keyCombo) {
        problem = comboProblem(services_.settings, settings.keyCombo.get());
    }
    card_->setProblem(problem);
}

QStringList ActivationPage::keys(const SettingsServices& services) {
    const auto& names = services.modifierNames;
    const auto right = [](const std::string& name) {
        return QStringList(u"Right %1"_s.arg(QString::fromStdString(name)));
    };
    switch (services.settings.activation.get()) {
    case Activation::rightCommand:
        return right(names.command);
    case Activation::rightOption:
        return right(names.option);
    case Activation::rightControl:
        return right(names.control);
    case Activation::capsLock:
        return {u"Caps Lock"_s};
    case Activation::keyCombo:
        return keysOf(services.settings.keyCombo.get(), services);
    }
    return {};
}

} // namespace pello
