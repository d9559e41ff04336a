#include "ui/settings/SettingBinding.h"

namespace pello::binding {

void follow(QObject& watcher, Signal<>& changed, std::function<void()> show) {
    show();
    new SubscriptionOwner(watcher, changed.connect(std::move(show)));
}

void bind(QSpinBox& control, Setting<std::int64_t>& setting) {
    const auto range = NumberRange::of(setting.key());
    control.setRange(range.least, range.most);
    follow(control, setting.changed, [&control, &setting, range] {
        const QSignalBlocker quiet(control);
        const auto value = std::clamp<std::int64_t>(setting.get(), range.least, range.most);
        if (control.value() != value) { // else what is being typed would be written anew
            control.setValue(static_cast<int>(value));
        }
    });
    QObject::connect(&control, &QSpinBox::valueChanged, &control,
                     [&setting](int value) { assign(setting, std::int64_t{value}); });
}

void bind(QDoubleSpinBox& control, Setting<double>& setting) {
    const auto range = NumberRange::of(setting.key());
    control.setRange(range.least, range.most);
    follow(control, setting.changed, [&control, &setting] {
        const QSignalBlocker quiet(control);
        if (control.value() != setting.get()) {
            control.setValue(setting.get());
        }
    });
    QObject::connect(&control, &QDoubleSpinBox::valueChanged, &control,
                     [&setting](double value) { assign(setting, value); });
}

} // namespace pello::binding
