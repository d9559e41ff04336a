#pragma once

#include "base/Signal.h"
#include "platform/linux/BusSignals.h"

#include <QObject>

namespace pello {

/// Whether the user wants the desktop dark, as the desktop's portal tells. Where there is no
/// portal, nothing is known and nothing is ever told. Never waits for it. Needs Qt's event loop;
/// main thread only.
class DesktopAppearance {
public:
    enum class Preference { none, dark, light };

    /// Asks the portal, and listens to it from now on.
    DesktopAppearance();

    /// None until the portal has answered.
    [[nodiscard]] Preference preference() const { return preference_; }

    Signal<> changed;

private:
    void ask();
    void take(unsigned answer);

    Preference preference_ = Preference::none;
    BusSignals session_;
    QObject context_;
};

} // namespace pello
