#pragma once

#include "platform/SessionEvents.h"
#include "platform/linux/BusSignals.h"

#include <QObject>

namespace pello {

/// What login services, screen savers and the displays of a freedesktop desktop tell. Services that
/// do not run tell nothing. Needs Qt's event loop.
class DesktopSessionEvents final : public SessionEvents {
public:
    DesktopSessionEvents();
    ~DesktopSessionEvents() override;
    DesktopSessionEvents(const DesktopSessionEvents&) = delete;
    DesktopSessionEvents& operator=(const DesktopSessionEvents&) = delete;

private:
    void listenForSleep();
    void listenForSessions();
    void listenForScreenSavers();
    void followScreens();

    BusSignals system_;
    BusSignals session_;
    QObject context_;
};

} // namespace pello
