#include "app/ControlServer.h"

#include <QLocalSocket>

#include <utility>

namespace pello {
namespace {

// A verb is a word; whoever sends more than this is not a client.
constexpr qint64 kMaximumLine = 4096;

} // namespace

ControlServer::ControlServer(Handler handler) : handler_(std::move(handler)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
}

bool ControlServer::listen(const std::string& path) {
    const QString name = QString::fromStdString(path);
    QLocalServer::removeServer(name);
    return server_.listen(name);
}

void ControlServer::accept() {
    while (QLocalSocket* client = server_.nextPendingConnection()) {
        QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
        QObject::connect(client, &QLocalSocket::readyRead, client,
                         [this, client] { answer(*client); });
        if (client->bytesAvailable() > 0) {
            answer(*client);
        }
    }
}

void ControlServer::answer(QLocalSocket& client) {
    if (client.canReadLine()) {
        std::string verb = client.readLine(kMaximumLine).toStdString();
        if (verb.ends_with('\n')) {
            verb.pop_back();
        }
        const Answer answer = handler_(verb);
        const std::string reply = answer.line + "\n";
        client.write(reply.data(), static_cast<qint64>(reply.size()));
        client.flush();
        if (answer.then == Answer::Then::hangUp) {
            client.disconnectFromServer();
        }
    } else if (client.bytesAvailable() > kMaximumLine) {
        client.abort();
    }
}

} // namespace pello
