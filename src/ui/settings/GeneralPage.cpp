#include "ui/settings/GeneralPage.h"

#include "ui/settings/ActivationBox.h"
#include "ui/settings/ComboProblem.h"
#include "ui/settings/ConfirmButton.h"
#include "ui/settings/ExtraFolders.h"
#include "ui/settings/KeyComboRecorder.h"
#include "ui/settings/SettingBinding.h"
#include "ui/settings/ShortcutTexts.h"
#include "ui/settings/ToggleSwitch.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPointer>

#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

QString countText(std::size_t count, const QString& one, const QString& many) {
    return count == 1 ? one : many.arg(count);
}

QComboBox* newEngineBox(Setting<WebSearchEngine>& setting) {
    auto* box = new QComboBox;
    for (const auto engine : {WebSearchEngine::duckDuckGo, WebSearchEngine::google,
                              WebSearchEngine::kagi, WebSearchEngine::bing}) {
        const auto name = displayName(engine);
        box->addItem(QString::fromUtf8(name.data(), qsizetype(name.size())));
    }
    binding::bind(*box, setting);
    return box;
}

} // namespace

GeneralPage::GeneralPage(const SettingsServices& services)
    : SettingsPage(u"General"_s), services_(services), settings_(services.settings) {
    addShortcuts();
    addSearching();
    addMemory();
}

void GeneralPage::addShortcuts() {
    auto& section = addSection(u"Opening Pello"_s);
    section.addRow(u"Open with"_s, u"What opens the launcher from anywhere."_s,
                   newActivationBox(services_));
    if (services_.virtualKey) {
        addComboRow(section);
        addGlyphRow(section);
    }
    addHyperRow(section);
    auto* login = new ToggleSwitch({});
    section.addRow(u"Open at login"_s, u"Pello is there as soon as you are."_s, login);
    binding::bind(*login, settings_.launchAtLogin);
    if (services_.openGuide) {
        auto* guide = new QPushButton(u"Open Guide…"_s);
        connect(guide, &QPushButton::clicked, this, [this] { services_.openGuide(); });
        section.addRow(u"Set-up guide"_s, u"Tries the keyboard, and what else Pello needs."_s,
                       guide);
    }
}

void GeneralPage::addComboRow(SettingsSection& section) {
    auto* recorder = new KeyComboRecorder(services_);
    comboRow_ = &section.addRow(
        u"Keyboard shortcut"_s,
        u"Opens the launcher where it is set to open with a keyboard shortcut."_s, recorder);
    recorder->onRecorded = [this](const KeyCombo& combo) {
        binding::assign(settings_.keyCombo, combo);
        showComboProblem();
    };
    recorder->onHint = [this](const QString& hint) {
        hint.isEmpty() ? showComboProblem() : comboRow_->setNotice(hint);
    };
    binding::follow(*recorder, settings_.keyCombo.changed, [this, recorder] {
        recorder->showCombo(settings_.keyCombo());
        showComboProblem();
    });
    binding::follow(*recorder, settings_.activation.changed, [this, recorder] {
        recorder->setEnabled(settings_.activation() == Activation::keyCombo);
        showComboProblem();
    });
}

void GeneralPage::addGlyphRow(SettingsSection& section) {
    auto* control = new QWidget;
    auto* layout = new QHBoxLayout(control);
    layout->setContentsMargins({});
    auto* recorder = new KeyComboRecorder(services_);
    auto* clear = new QPushButton(u"Clear"_s);
    clear->setAccessibleName(u"Clear the emoji and symbols shortcut"_s);
    layout->addWidget(clear);
    layout->addWidget(recorder);
    control->setFocusProxy(recorder);
    glyphRow_ =
        &section.addRow(u"Emoji and symbols"_s,
                        u"A shortcut of its own for the glyph picker, if you like."_s, control);
    recorder->onRecorded = [this](const KeyCombo& combo) {
        binding::assign(settings_.glyphCombo, std::optional(combo));
        showComboProblem();
    };
    recorder->onHint = [this](const QString& hint) {
        hint.isEmpty() ? showComboProblem() : glyphRow_->setNotice(hint);
    };
    connect(clear, &QPushButton::clicked, this,
            [this] { binding::assign(settings_.glyphCombo, std::optional<KeyCombo>()); });
    binding::follow(*recorder, settings_.glyphCombo.changed, [this, recorder, clear] {
        recorder->showCombo(settings_.glyphCombo());
        clear->setEnabled(settings_.glyphCombo().has_value());
        showComboProblem();
    });
}

void GeneralPage::showComboProblem() {
    const bool isUsed = settings_.activation() == Activation::keyCombo;
    const auto& glyphs = settings_.glyphCombo();
    if (comboRow_ != nullptr) {
        comboRow_->setNotice(isUsed ? comboProblem(services_, settings_.keyCombo()) : QString());
    }
    if (glyphRow_ != nullptr) {
        QString problem = glyphs ? comboProblem(services_, *glyphs) : QString();
        if (isUsed && glyphs == settings_.keyCombo()) {
            problem = u"This is the shortcut that opens the launcher, too. The glyph picker "
                      u"comes first."_s;
        }
        glyphRow_->setNotice(problem);
    }
}

void GeneralPage::addHyperRow(SettingsSection& section) {
    auto* hyper = new ToggleSwitch({});
    hyperRow_ = &section.addRow(u"Use Caps Lock as Hyper"_s, {}, hyper);
    binding::bind(*hyper, settings_.capsLockIsHyper);
    binding::follow(*hyper, settings_.activation.changed, [this] { showHyper(); });
    for (auto* changed :
         {&settings_.capsLockIsHyper.changed, &settings_.ownsHyperMapping.changed}) {
        binding::follow(*hyper, *changed, [this] { checkHyper(); });
    }
}

void GeneralPage::showHyper() {
    const shortcutTexts::HyperState state{.isOn = settings_.capsLockIsHyper(),
                                          .isOwn = settings_.ownsHyperMapping(),
                                          .capsLockActivates =
                                              settings_.activation() == Activation::capsLock,
                                          .isActive = isHyperActive_};
    hyperRow_->setDescription(QString::fromStdString(shortcutTexts::hyperExplanation(state)));
    hyperRow_->setNotice(QString::fromStdString(shortcutTexts::hyperProblem(state)));
}

void GeneralPage::checkHyper() {
    isHyperActive_.reset();
    showHyper();
    if (services_.checkHyperMapping && settings_.capsLockIsHyper()) {
        services_.checkHyperMapping([page = QPointer(this)](bool isActive) {
            if (page != nullptr) {
                page->isHyperActive_ = isActive;
                page->showHyper();
            }
        });
    }
}

void GeneralPage::addSearching() {
    auto& section = addSection(u"Searching"_s);
    section.addRow(u"Web search"_s, u"Searches for what nothing else is found for."_s,
                   newEngineBox(settings_.searchEngine));
    section.addRow(u"More folders with applications"_s,
                   u"Searched besides the folders in which this system keeps its applications."_s,
                   new ExtraFolders(settings_.extraDirectories), SettingRow::Placement::below);
}

void GeneralPage::addMemory() {
    if (!services_.clearHistory && !services_.forgetLearnedOrder) {
        return;
    }
    auto& section = addSection(u"What Pello remembers"_s);
    const auto add = [&](const QString& label, const QString& button, const QString& question,
                         const std::function<void()>& action, auto&& describe) {
        if (!action) {
            return;
        }
        auto* forget = new ConfirmButton(button, question, [this, action] {
            action();
            refresh();
        });
        auto& row = section.addRow(label, {}, forget);
        forget->setAccessibleName(button);
        showMemory_ = [before = showMemory_, &row, forget, describe] {
            if (before) {
                before();
            }
            const auto [text, isEmpty] = describe();
            row.setDescription(text);
            forget->setEnabled(!isEmpty);
        };
    };
    add(u"History"_s, u"Clear History"_s, u"Really Clear?"_s, services_.clearHistory, [this] {
        const std::size_t count = services_.historyCount ? services_.historyCount() : 1;
        return std::pair(countText(count, u"The last query is kept for recalling it."_s,
                                   u"The last %1 queries are kept for recalling them."_s),
                         count == 0);
    });
    add(u"Learned order"_s, u"Forget Learned Order"_s, u"Really Forget?"_s,
        services_.forgetLearnedOrder, [this] {
            const std::size_t count = services_.learnedCount ? services_.learnedCount() : 1;
            return std::pair(countText(count, u"What you run often comes first: one item so far."_s,
                                       u"What you run often comes first: %1 items so far."_s),
                             count == 0);
        });
    refresh();
}

void GeneralPage::refresh() {
    if (showMemory_) {
        showMemory_();
    }
    settings_.launchAtLogin.reload();
    showComboProblem();
    checkHyper();
}

} // namespace pello
