#include "platform/linux/DBusNotifier.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <functional>
#include <utility>

namespace pello {
namespace {

/// Text as the bus takes it: well-formed, and without zeros.
QString busText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .replace(QChar::Null, QChar::ReplacementCharacter);
}

QDBusMessage call(const char* method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"),
                                          QString::fromLatin1(method));
}

QDBusMessage notification(const QString& title, const QString& body) {
    constexpr uint kReplacesNone = 0;
    constexpr int kAsLongAsUsual = -1;
    QDBusMessage message = call("Notify");
    message << QStringLiteral("Pello") << kReplacesNone << QString() << title << body
            << QStringList() << QVariantMap() << kAsLongAsUsual;
    return message;
}

} // namespace

/// What answers that are under way belong to: they end with it.
struct DBusNotifier::Context {
    using Answered = std::function<void(const QDBusMessage& reply)>;

    Context(QDBusConnection connection, const Signal<const std::string&>& failures)
        : bus(std::move(connection)), failed(failures) {}

    void fail(const QString& reason) {
        failed.emit("A notification could not be shown: " + reason.toStdString());
    }

    /// Sends `message`; `answered` gets the reply, and nobody does when there is none.
    void send(const QDBusMessage& message, Answered answered) {
        if (!bus.isConnected()) { // such a call would never end
            QTimer::singleShot(0, &receiver, [this] { fail(QStringLiteral("no session bus")); });
            return;
        }
        constexpr int kPatience = 10'000; // milliseconds; the service may have to be started
        auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, kPatience), &receiver);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &receiver,
                         [this, watcher, answered = std::move(answered)] {
                             watcher->deleteLater();
                             if (watcher->isError()) {
                                 fail(watcher->error().message());
                             } else {
                                 answered(watcher->reply());
                             }
                         });
    }

    QDBusConnection bus;
    const Signal<const std::string&>& failed;
    QObject receiver;
};

DBusNotifier::DBusNotifier(QDBusConnection bus)
    : context_(std::make_unique<Context>(std::move(bus), failed)) {}
DBusNotifier::~DBusNotifier() = default;

/// Asks first whether the service takes markup: what looks like it would be lost otherwise.
void DBusNotifier::notify(std::string_view title, std::string_view body) {
    context_->send(call("GetCapabilities"), [context = context_.get(), title = busText(title),
                                             body = busText(body)](const QDBusMessage& reply) {
        const QStringList capabilities = reply.arguments().value(0).toStringList();
        const bool takesMarkup = capabilities.contains(QStringLiteral("body-markup"));
        context->send(notification(title, takesMarkup ? body.toHtmlEscaped() : body),
                      [](const QDBusMessage& /*number*/) {});
    });
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the watchers belong to the receiver

} // namespace pello
