#pragma once

#include "base/Subscription.h"
#include "keyboard/keys/KeyCombo.h"
#include "ui/settings/SettingsServices.h"

#include <QPushButton>

#include <cstdint>
#include <functional>
#include <optional>

namespace pello {

/// A button that shows a key combo and, once pressed, takes the next one that is typed.
///
/// While it records, every key comes here; Escape alone, Tab alone and another place of the focus
/// end that and leave the combo as it was.
class KeyComboRecorder final : public QPushButton {
public:
    /// `services` must outlive the recorder.
    explicit KeyComboRecorder(const SettingsServices& services);

    /// Shows `combo`, or that there is none.
    void showCombo(const std::optional<KeyCombo>& combo);

    [[nodiscard]] bool isRecording() const { return isRecording_; }

    /// Called with what was typed.
    std::function<void(const KeyCombo&)> onRecorded;
    /// Called with what is wrong with what was typed, and with nothing when recording begins or
    /// ends.
    std::function<void(const QString&)> onHint;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void start();
    void stop();
    void showText();
    void take(const QKeyEvent& event);
    void hint(const QString& text) const;

    const SettingsServices& services_;
    std::optional<KeyCombo> combo_;
    bool isRecording_ = false;
    std::uint64_t held_ = 0;
    Subscription suspended_;
};

} // namespace pello
