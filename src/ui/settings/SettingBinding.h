#pragma once

#include "base/Subscription.h"
#include "core/settings/NumberRange.h"
#include "core/settings/Setting.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSignalBlocker>
#include <QSpinBox>

#include <cstdint>
#include <functional>
#include <utility>

/// Keeps a control and a setting equal both ways: what the user does is written at once, and what
/// changes elsewhere is shown at once, without being written again. Lasts as long as the control;
/// the setting must outlive it. Main thread only.
namespace pello::binding {

/// Ends a subscription when its parent goes.
class SubscriptionOwner final : public QObject {
public:
    SubscriptionOwner(QObject& parent, Subscription subscription)
        : QObject(&parent), subscription_(std::move(subscription)) {}

private:
    Subscription subscription_;
};

/// Calls `show` now and after every emission of `changed`, as long as `watcher` lives.
void follow(QObject& watcher, Signal<>& changed, std::function<void()> show);

/// Sets `setting` to `value`, unless that is what it is.
template <class AnySetting, class T>
void assign(AnySetting& setting, const T& value) {
    if (!(setting.get() == value)) {
        setting.set(value);
    }
}

/// A switch, which shows what became of its setting: one that the system refuses jumps back.
template <class BoolSetting>
void bind(QAbstractButton& control, BoolSetting& setting) {
    const auto show = [&control, &setting] {
        const QSignalBlocker quiet(control);
        control.setChecked(setting.get());
        control.update();
    };
    follow(control, setting.changed, show);
    QObject::connect(&control, &QAbstractButton::toggled, &control, [&setting, show](bool isOn) {
        assign(setting, isOn);
        show();
    });
}

/// A list of an enumeration's cases, one entry for each in their order.
template <class Enum>
void bind(QComboBox& control, Setting<Enum>& setting) {
    follow(control, setting.changed, [&control, &setting] {
        const QSignalBlocker quiet(control);
        control.setCurrentIndex(static_cast<int>(setting.get()));
    });
    QObject::connect(&control, &QComboBox::currentIndexChanged, &control, [&setting](int index) {
        if (index >= 0) {
            assign(setting, static_cast<Enum>(index));
        }
    });
}

/// Numbers within the setting's range. One from elsewhere that lies outside is shown as the nearest
/// within, and kept.
void bind(QSpinBox& control, Setting<std::int64_t>& setting);
void bind(QDoubleSpinBox& control, Setting<double>& setting);

} // namespace pello::binding
