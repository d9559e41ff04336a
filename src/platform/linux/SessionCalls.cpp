#include "platform/linux/SessionCalls.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QVariantMap>

#include <utility>

namespace pello {

namespace {

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void call(const QDBusConnection& bus, const QDBusMessage& message, QObject& context,
          CallEnded ended) {
    if (!bus.isConnected()) { // such a call would never end
        QTimer::singleShot(0, &context, [ended = std::move(ended)] {
            const QDBusError error(QDBusError::Disconnected, QStringLiteral("no session bus"));
            ended(&error);
        });
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), &context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context,
                     [watcher, ended = std::move(ended)] {
                         watcher->deleteLater();
                         const QDBusError error = watcher->error();
                         ended(watcher->isError() ? &error : nullptr);
                     });
}

/// org.example.My-App has its object at /org/example/My_App.
QString objectPath(const QString& busName) {
    return QLatin1Char('/') + QString(busName)
                                  .replace(QLatin1Char('.'), QLatin1Char('/'))
                                  .replace(QLatin1Char('-'), QLatin1Char('_'));
}

} // namespace

void activateApplication(const QDBusConnection& bus, std::string_view busName, QObject& context,
                         CallEnded ended) {
    const QString service = fromUtf8(busName);
    auto message = QDBusMessage::createMethodCall(service, objectPath(service),
                                                  QStringLiteral("org.freedesktop.Application"),
                                                  QStringLiteral("Activate"));
    message << QVariantMap();
    call(bus, message, context, std::move(ended));
}

void showInFileManager(const QDBusConnection& bus, const std::filesystem::path& file,
                       QObject& context, CallEnded ended) {
    const QUrl url = QUrl::fromLocalFile(fromUtf8(file.native()));
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                                  QStringLiteral("/org/freedesktop/FileManager1"),
                                                  QStringLiteral("org.freedesktop.FileManager1"),
                                                  QStringLiteral("ShowItems"));
    message << QStringList{QString::fromLatin1(url.toEncoded(QUrl::FullyEncoded))} << QString();
    call(bus, message, context, std::move(ended));
}

bool isNobodyThere(const QDBusError& error) {
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownObject:
    case QDBusError::UnknownInterface:
    case QDBusError::InvalidService:
    case QDBusError::InvalidObjectPath:
    case QDBusError::Disconnected:
    case QDBusError::NoServer:
    case QDBusError::AccessDenied:
        return true;
    default:
        return error.name().startsWith(QLatin1String("org.freedesktop.DBus.Error.Spawn.")) ||
               error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    }
}

} // namespace pello
