#include "platform/linux/DesktopSessionEvents.h"

#include <QGuiApplication>
#include <QScreen>
#include <systemd/sd-bus.h>

#include <string_view>

namespace pello {
namespace {

constexpr const char* kLogin = "org.freedesktop.login1";
constexpr const char* kSession = "org.freedesktop.login1.Session";

/// The flag that the message consists of.
bool flagIn(sd_bus_message* message) {
    int flag = 0;
    return sd_bus_message_read(message, "b", &flag) >= 0 && flag != 0;
}

/// Whether the session that changed is one that the user sees and can type in again.
bool becameUsable(sd_bus_message* message) {
    bool isUsable = false;
    if (sd_bus_message_skip(message, "s") < 0 ||
        sd_bus_message_enter_container(message, 'a', "{sv}") <= 0) {
        return false;
    }
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* name = nullptr;
        if (sd_bus_message_read(message, "s", &name) < 0) {
            return false;
        }
        const bool wanted = std::string_view(name) == "Active";
        if (wanted || std::string_view(name) == "LockedHint") {
            int value = 0;
            if (sd_bus_message_read(message, "v", "b", &value) < 0) {
                return false;
            }
            isUsable = isUsable || (value != 0) == wanted;
        } else {
            sd_bus_message_skip(message, "v");
        }
        sd_bus_message_exit_container(message);
    }
    return isUsable;
}

} // namespace

DesktopSessionEvents::DesktopSessionEvents()
    : system_(sd_bus_open_system), session_(sd_bus_open_user) {
    listenForSleep();
    listenForSessions();
    listenForScreenSavers();
    followScreens();
}

DesktopSessionEvents::~DesktopSessionEvents() = default;

void DesktopSessionEvents::listenForSleep() {
    system_.listen({.sender = kLogin,
                    .interface = "org.freedesktop.login1.Manager",
                    .member = "PrepareForSleep"},
                   [this](sd_bus_message* message) {
                       if (!flagIn(message)) { // it tells when sleep begins, too
                           resumed.emit("PrepareForSleep");
                       }
                   });
}

/// Programs that the user's service manager starts are in no session, so whose session it is does
/// not matter: to look after the keyboard once too often is no harm.
void DesktopSessionEvents::listenForSessions() {
    system_.listen({.sender = kLogin, .interface = kSession, .member = "Unlock"},
                   [this](sd_bus_message* /*message*/) { resumed.emit("Unlock"); });
    system_.listen({.sender = kLogin,
                    .interface = "org.freedesktop.DBus.Properties",
                    .member = "PropertiesChanged"},
                   [this](sd_bus_message* message) {
                       if (becameUsable(message)) {
                           resumed.emit("session did become active");
                       }
                   });
}

void DesktopSessionEvents::listenForScreenSavers() {
    for (const char* interface :
         {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver", "org.cinnamon.ScreenSaver",
          "org.mate.ScreenSaver", "org.xfce.ScreenSaver"}) {
        session_.listen({.interface = interface, .member = "ActiveChanged"},
                        [this](sd_bus_message* message) {
                            if (!flagIn(message)) {
                                resumed.emit("ActiveChanged");
                            }
                        });
    }
}

void DesktopSessionEvents::followScreens() {
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr) {
        return;
    }
    const auto tell = [this] { resumed.emit(kScreensChanged); };
    const auto follow = [this, tell](QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &context_, tell);
    };
    for (QScreen* screen : QGuiApplication::screens()) {
        follow(screen);
    }
    QObject::connect(application, &QGuiApplication::screenAdded, &context_,
                     [tell, follow](QScreen* screen) {
                         follow(screen);
                         tell();
                     });
    QObject::connect(application, &QGuiApplication::screenRemoved, &context_, tell);
    QObject::connect(application, &QGuiApplication::primaryScreenChanged, &context_, tell);
}

} // namespace pello
