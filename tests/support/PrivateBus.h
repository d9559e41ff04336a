#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace pello {

/// A session bus of the test's own. Needs the Qt application.
class PrivateBus {
public:
    PrivateBus() {
        daemon_.setStandardErrorFile(QProcess::nullDevice()); // remarks about its limits
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
        while (!daemon_.canReadLine() && daemon_.waitForReadyRead()) {
        }
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
        EXPECT_FALSE(address_.isEmpty()) << "dbus-daemon does not run";
    }

    ~PrivateBus() {
        for (const QString& name : connections_) {
            QDBusConnection::disconnectFromBus(name);
        }
        daemon_.kill();
        daemon_.waitForFinished();
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const QString& address() const { return address_; }

    /// A new connection, closed with this object.
    QDBusConnection connect() {
        connections_.push_back(QStringLiteral("private %1").arg(++count_));
        return QDBusConnection::connectToBus(address_, connections_.back());
    }

private:
    static inline int count_ = 0;
    QProcess daemon_;
    QString address_;
    std::vector<QString> connections_;
};

/// A service on a bus that notes what it is asked, and answers as it is told.
class RecordingService final : public QDBusVirtualObject {
public:
    /// Owns `name` on `connection` and answers at `path`.
    RecordingService(QDBusConnection connection, const QString& name, const QString& path)
        : connection_(std::move(connection)) {
        EXPECT_TRUE(connection_.registerVirtualObject(path, this));
        EXPECT_TRUE(connection_.registerService(name));
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls.push_back(message);
        return connection.send(error.isEmpty()
                                   ? message.createReply()
                                   : message.createErrorReply(error, QStringLiteral("no luck")));
    }

    std::vector<QDBusMessage> calls;
    /// The name of the error to answer with; none when empty.
    QString error;

private:
    QDBusConnection connection_;
};

} // namespace pello
