#include "platform/linux/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <systemd/sd-bus.h>

#include <string_view>
#include <utility>

namespace pello {
namespace {

constexpr const char* kSettings = "org.freedesktop.portal.Settings";
constexpr const char* kAppearance = "org.freedesktop.appearance";
constexpr const char* kColourScheme = "color-scheme";

/// Whether the signal is about the colour scheme.
bool isColourScheme(sd_bus_message* message) {
    const char* group = nullptr;
    const char* key = nullptr;
    return sd_bus_message_read(message, "ss", &group, &key) >= 0 &&
           std::string_view(group) == kAppearance && std::string_view(key) == kColourScheme;
}

/// A variant may hold another: portals disagree on how deep an answer lies.
QVariant innermost(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

DesktopAppearance::DesktopAppearance() : session_(sd_bus_open_user) {
    session_.listen({.interface = kSettings, .member = "SettingChanged"},
                    [this](sd_bus_message* message) {
                        if (isColourScheme(message)) {
                            ask();
                        }
                    });
    ask();
}

void DesktopAppearance::ask() {
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) { // such a call would never end
        return;
    }
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                               QStringLiteral("/org/freedesktop/portal/desktop"),
                                               QLatin1String(kSettings), QStringLiteral("Read"));
    call << QLatin1String(kAppearance) << QLatin1String(kColourScheme);
    call.setAutoStartService(false); // a desktop that has one has started it
    auto* pending = new QDBusPendingCallWatcher(bus.asyncCall(call), &context_);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, &context_, [this, pending] {
        const QDBusPendingReply<QDBusVariant> reply = *pending;
        if (reply.isValid()) {
            take(innermost(reply.value().variant()).toUInt());
        }
        pending->deleteLater();
    });
}

void DesktopAppearance::take(unsigned answer) {
    auto told = Preference::none;
    if (answer == 1) {
        told = Preference::dark;
    } else if (answer == 2) {
        told = Preference::light;
    }
    if (std::exchange(preference_, told) != told) {
        changed.emit();
    }
}

} // namespace pello
