#include "platform/linux/DBusNotifier.h"

#include "support/PrivateBus.h"
#include "support/QtTurns.h"

#include <QDBusServiceWatcher>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class DBusNotifierTest : public QtTest {
protected:
    static constexpr const char* kService = "org.freedesktop.Notifications";

    /// Notifies over `bus`, and gives why that failed.
    std::string failureOver(const QDBusConnection& connection) {
        failures.clear();
        DBusNotifier notifier(connection);
        const auto failing = notifier.failed.connect(note());
        notifier.notify("a", "b");
        turnQtUntil([&] { return !failures.empty(); });
        return failures.back();
    }

    std::function<void(const std::string&)> note() {
        return [this](const std::string& reason) { failures.push_back(reason); };
    }

    PrivateBus bus;
    std::vector<std::string> failures;
};

TEST_F(DBusNotifierTest, ADaemonShowsTheTextAsItIs) {
    bool isThere = false;
    QDBusServiceWatcher watcher(QString::fromLatin1(kService), bus.connect(),
                                QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, [&] { isThere = true; });
    QProcess daemon;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    environment.insert(QStringLiteral("PYTHONUNBUFFERED"), QStringLiteral("1"));
    daemon.setProcessEnvironment(environment);
    daemon.start(QStringLiteral("/usr/bin/python3"),
                 {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--template"),
                  QStringLiteral("notification_daemon")});
    turnQtUntil([&] { return isThere; });
    DBusNotifier notifier(bus.connect());
    const auto failing = notifier.failed.connect(note());
    notifier.notify("Größe & Co", "1 < 2 && <b>\nlast");
    std::string told;
    turnQtUntil([&] {
        told += daemon.readAllStandardOutput().toStdString();
        return told.find(" Notify ") != std::string::npos && told.ends_with('\n');
    });
    EXPECT_THAT(told, HasSubstr("\"Pello\" 0 \"\" \"Größe & Co\" "
                                "\"1 &lt; 2 &amp;&amp; &lt;b&gt;\nlast\""));
    EXPECT_THAT(failures, IsEmpty());
    daemon.kill();
    daemon.waitForFinished();
}

TEST_F(DBusNotifierTest, WithoutMarkupNothingIsEscapedAndZerosAreReplaced) {
    RecordingService daemon(bus.connect(), kService, "/org/freedesktop/Notifications");
    DBusNotifier notifier(bus.connect());
    notifier.notify("t", std::string_view("<b>\0\xff", 5));
    turnQtUntil([&] { return daemon.calls.size() == 2; });
    EXPECT_EQ(daemon.calls.at(1).arguments().at(4).toString(), QStringLiteral("<b>��"));
}

TEST_F(DBusNotifierTest, FailuresAreSentences) {
    EXPECT_THAT(failureOver(bus.connect()), StartsWith("A notification could not be shown: "));
    EXPECT_EQ(failureOver(QDBusConnection("none")),
              "A notification could not be shown: no session bus");
    RecordingService daemon(bus.connect(), kService, "/org/freedesktop/Notifications");
    daemon.error = "org.example.Refused";
    EXPECT_EQ(failureOver(bus.connect()), "A notification could not be shown: no luck");
}

TEST_F(DBusNotifierTest, MayGoWhileAnswersAreUnderWay) {
    RecordingService daemon(bus.connect(), kService, "/org/freedesktop/Notifications");
    DBusNotifier(bus.connect()).notify("a", "b");
    turnQtUntil([&] { return !daemon.calls.empty(); });
    EXPECT_THAT(failures, IsEmpty());
}

} // namespace
} // namespace pello
