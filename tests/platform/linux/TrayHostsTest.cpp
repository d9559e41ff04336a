#include "platform/linux/TrayHosts.h"

#include "support/PrivateBus.h"

#include <QApplication>
#include <QDBusVariant>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace pello {
namespace {

const QString kName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");

/// The service that knows whether there is a host, on the bus that the test's process has.
class Watcher final : public QDBusVirtualObject {
public:
    Watcher(QDBusConnection connection, bool hasHost)
        : connection_(std::move(connection)), hasHost_(hasHost) {
        EXPECT_TRUE(connection_.registerVirtualObject(kPath, this));
        EXPECT_TRUE(connection_.registerService(kName));
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        const QDBusVariant answer{QVariant(hasHost_)};
        return connection.send(message.createReply(QVariant::fromValue(answer)));
    }

    void sayThatAHostCame() {
        connection_.send(QDBusMessage::createSignal(
            kPath, kName, QStringLiteral("StatusNotifierHostRegistered")));
    }

private:
    QDBusConnection connection_;
    bool hasHost_;
};

class TrayHostsTest : public testing::Test {
protected:
    TrayHostsTest() { qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8()); }
    ~TrayHostsTest() override { qunsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    static void turnUntil(const std::function<bool()>& happened) {
        while (!happened()) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    PrivateBus bus;
    QDBusConnection service = bus.connect();
    int told = 0;
};

TEST_F(TrayHostsTest, AHostThatIsThereIsToldOfInALaterTurn) {
    const Watcher watcher(service, true);
    const TrayHosts hosts(bus.connect(), [this] { ++told; });
    EXPECT_EQ(told, 0);
    turnUntil([this] { return told > 0; });
}

TEST_F(TrayHostsTest, AHostThatComesLaterIsToldOfOnce) {
    Watcher watcher(service, false);
    const TrayHosts hosts(bus.connect(), [this] { ++told; });
    QTimer again; // the bus may not yet know who listens
    again.callOnTimeout([&] { watcher.sayThatAHostCame(); });
    again.start(std::chrono::milliseconds(5));
    turnUntil([this] { return told > 0; });
    watcher.sayThatAHostCame();
    bool isOver = false;
    QTimer::singleShot(0, &again, [&] { isOver = true; });
    turnUntil([&] { return isOver; });
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace pello
