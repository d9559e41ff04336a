#include "platform/linux/SessionFacts.h"

#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/LocalSocket.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <string>

namespace pello {
namespace {

constexpr int kPatience = 2000; // milliseconds, for one answer

bool hasName(const QDBusConnection& bus, const QString& name) {
    return bus.interface()->isServiceRegistered(name) ||
           bus.interface()->activatableServiceNames().value().contains(name);
}

bool hasAccessibilityBus(const QDBusConnection& bus) {
    const auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    return bus.call(call, QDBus::Block, kPatience).type() == QDBusMessage::ReplyMessage;
}

/// The socket of PulseAudio, and of what stands in for it.
std::string soundSocket(const Environment& environment) {
    constexpr std::string_view kLocal = "unix:";
    const std::string_view server = environment.value("PULSE_SERVER");
    return server.starts_with(kLocal)
               ? std::string(server.substr(kLocal.size()))
               : std::string(environment.value("XDG_RUNTIME_DIR")) + "/pulse/native";
}

bool hasSoundServer(const Environment& environment) {
    return bool(connectedTo(soundSocket(environment)));
}

} // namespace

SessionFacts SessionFacts::read(const Environment& environment) {
    SessionFacts facts{.hasSound = hasSoundServer(environment)};
    const QDBusConnection bus = sessionBus(environment);
    facts.hasBus = bus.isConnected();
    if (facts.hasBus) {
        facts.hasNotifications = hasName(bus, QStringLiteral("org.freedesktop.Notifications"));
        facts.hasTray =
            bus.interface()->isServiceRegistered(QStringLiteral("org.kde.StatusNotifierWatcher"));
        facts.hasAccessibility = hasAccessibilityBus(bus);
    }
    return facts;
}

} // namespace pello
