#pragma once

#include "platform/linux/BusSignals.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>

namespace pello {

/// Tells when somebody is there who shows the icons of programs: a panel that takes their windows,
/// as on X, or one that reads them over the session bus.
///
/// Qt looks for one on the bus once, when the first icon is made, and for ever after believes what
/// it found. Desktops start their panels beside the programs that begin with the session, so an
/// icon made too early would never be seen. Needs Qt's application object; main thread only.
class TrayHosts final : public QAbstractNativeEventFilter {
public:
    /// Calls `appeared` once, in a later turn of the loop, when there is a host or one comes. `bus`
    /// is the session's, or not connected where there is none.
    TrayHosts(QDBusConnection bus, std::function<void()> appeared);
    ~TrayHosts() override;
    TrayHosts(const TrayHosts&) = delete;
    TrayHosts& operator=(const TrayHosts&) = delete;

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    void look();
    void askBus();
    void tell();

    QDBusConnection bus_;
    std::function<void()> appeared_;
    std::unique_ptr<BusSignals> signals_;
    std::uint32_t selection_ = 0; // of the host on X
    std::uint32_t manager_ = 0;   // what a host on X says when it has come
    QObject receiver_;
};

} // namespace pello
