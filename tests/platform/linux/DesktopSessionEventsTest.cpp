#include "platform/linux/DesktopSessionEvents.h"

#include "support/PrivateBus.h"
#include "support/QtTurns.h"

#include <QDBusVariant>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DesktopSessionEventsTest : public QtTest {
protected:
    DesktopSessionEventsTest() {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", system_.address().toUtf8());
        qputenv("DBUS_SESSION_BUS_ADDRESS", session_.address().toUtf8());
        EXPECT_TRUE(login_.registerService(QStringLiteral("org.freedesktop.login1")));
    }
    ~DesktopSessionEventsTest() override {
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

    /// Signals of one sender are told in the order of sending.
    std::vector<std::string> toldAfter(const std::function<void()>& send) {
        DesktopSessionEvents events;
        std::vector<std::string> told;
        const Subscription subscription =
            events.resumed.connect([&told](const std::string& reason) { told.push_back(reason); });
        const auto waitFor = [&told](const std::string& reason) {
            turnQtUntil([&] { return !told.empty() && told.back() == reason; });
        };
        QTimer again; // the bus may not yet know who listens
        again.callOnTimeout([this] { sendUnlock(); });
        again.start(std::chrono::milliseconds(5));
        waitFor("Unlock");
        again.stop();
        sendSleep(false);
        waitFor("PrepareForSleep");
        told.clear();
        send();
        sendUnlock();
        waitFor("Unlock");
        told.pop_back();
        return told;
    }

    void sendSleep(bool begins) {
        signal(login_, "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
               "PrepareForSleep", {begins});
    }

    void sendUnlock() { signal(login_, "/org/freedesktop/login1/session/_31", kSession, "Unlock"); }

    static void signal(QDBusConnection& sender, const char* path, const char* interface,
                       const char* name, const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createSignal(
            QString::fromLatin1(path), QString::fromLatin1(interface), QString::fromLatin1(name));
        message.setArguments(arguments);
        EXPECT_TRUE(sender.send(message));
    }

    void sessionChanged(const QVariantMap& changed) {
        signal(login_, "/org/freedesktop/login1/session/_31", "org.freedesktop.DBus.Properties",
               "PropertiesChanged", {QString::fromLatin1(kSession), changed, QStringList()});
    }

    static constexpr const char* kSession = "org.freedesktop.login1.Session";

    PrivateBus system_;
    PrivateBus session_;
    QDBusConnection login_ = system_.connect();
};

TEST_F(DesktopSessionEventsTest, TellsOfWakingAndNotOfFallingAsleep) {
    EXPECT_THAT(toldAfter([this] { sendSleep(true); }), IsEmpty());
    EXPECT_THAT(toldAfter([this] { sendSleep(false); }), ElementsAre("PrepareForSleep"));
}

TEST_F(DesktopSessionEventsTest, TellsWhenTheSessionCanBeUsedAgain) {
    const std::string active = "session did become active";
    EXPECT_THAT(
        toldAfter([&] {
            sessionChanged({{QStringLiteral("IdleHint"), true}, {QStringLiteral("Active"), true}});
            sessionChanged({{QStringLiteral("LockedHint"), false}});
            sessionChanged({{QStringLiteral("Active"), false}});
            sessionChanged({{QStringLiteral("LockedHint"), true}});
            sessionChanged({{QStringLiteral("Active"), QStringLiteral("what")}});
            signal(login_, "/x", "org.freedesktop.DBus.Properties", "PropertiesChanged", {42});
        }),
        ElementsAre(active, active));
}

TEST_F(DesktopSessionEventsTest, TellsOfScreenSaversThatEnd) {
    DesktopSessionEvents events;
    std::vector<std::string> told;
    const Subscription subscription =
        events.resumed.connect([&told](const std::string& reason) { told.push_back(reason); });
    QDBusConnection saver = session_.connect();
    QTimer again;
    again.callOnTimeout([&] {
        signal(saver, "/", "org.gnome.ScreenSaver", "ActiveChanged", {true});
        signal(saver, "/", "org.freedesktop.ScreenSaver", "ActiveChanged", {false});
    });
    again.start(std::chrono::milliseconds(5));
    turnQtUntil([&] { return told.size() >= 2; });
    EXPECT_THAT(told, testing::Each(std::string("ActiveChanged")));
}

TEST_F(DesktopSessionEventsTest, BusesThatAreAbsentOrEndAreHarmless) {
    {
        PrivateBus passing;
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", passing.address().toUtf8());
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        EXPECT_NO_FATAL_FAILURE(DesktopSessionEvents());
    }
    const DesktopSessionEvents onNoBus;
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", system_.address().toUtf8());
    EXPECT_THAT(toldAfter([] {}), IsEmpty()) << "the other one works without it";
}

} // namespace
} // namespace pello
