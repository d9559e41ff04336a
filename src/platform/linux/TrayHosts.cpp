#include "platform/linux/TrayHosts.h"

#include "platform/linux/Xcb.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QTimer>
#include <systemd/sd-bus.h>

#include <utility>

namespace pello {
namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";

/// Null where the screen is none of an X server's.
xcb_connection_t* x11Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

bool isOwned(xcb_connection_t* connection, xcb_atom_t selection) {
    const auto request = xcb_get_selection_owner(connection, selection);
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

TrayHosts::TrayHosts(QDBusConnection bus, std::function<void()> appeared)
    : bus_(std::move(bus)), appeared_(std::move(appeared)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    QTimer::singleShot(0, &receiver_, [this] { look(); }); // what is urgent goes first
}

TrayHosts::~TrayHosts() {
    if (QCoreApplication* application = QCoreApplication::instance()) {
        application->removeNativeEventFilter(this);
    }
}

void TrayHosts::look() {
    if (xcb_connection_t* connection = x11Connection()) {
        selection_ = atomNamed(connection, "_NET_SYSTEM_TRAY_S0");
        manager_ = atomNamed(connection, "MANAGER");
        if (isOwned(connection, selection_)) {
            tell();
            return;
        }
    }
    if (bus_.isConnected()) {
        askBus();
    }
}

/// A host that comes later is heard of by a signal of the watcher's, whoever that is then.
void TrayHosts::askBus() {
    signals_ = std::make_unique<BusSignals>(sd_bus_open_user);
    signals_->listen(
        {.sender = kWatcher,
         .path = kWatcherPath,
         .interface = kWatcher,
         .member = "StatusNotifierHostRegistered"},
        [this](sd_bus_message*) { QTimer::singleShot(0, &receiver_, [this] { tell(); }); });
    auto call = QDBusMessage::createMethodCall(kWatcher, kWatcherPath,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), &receiver_);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &receiver_, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        answer->deleteLater();
        if (reply.isValid() && reply.value().variant().toBool()) {
            tell();
        }
    });
}

void TrayHosts::tell() {
    QCoreApplication::instance()->removeNativeEventFilter(this);
    signals_.reset();
    if (const auto appeared = std::exchange(appeared_, nullptr)) {
        appeared();
    }
}

bool TrayHosts::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (manager_ != 0 && type == "xcb_generic_event_t") {
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        const auto* told = reinterpret_cast<const xcb_client_message_event_t*>(event);
        if ((event->response_type & 0x7fU) == XCB_CLIENT_MESSAGE && told->type == manager_ &&
            told->data.data32[1] == selection_) {
            QTimer::singleShot(0, &receiver_, [this] { tell(); });
        }
    }
    return false;
}

} // namespace pello
