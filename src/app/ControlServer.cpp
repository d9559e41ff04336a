#include "app/ControlServer.h"

#include "app/client/ControlClient.h"

#include <QLocalSocket>

#include <charconv>
#include <optional>
#include <utility>

namespace pello {
namespace {

// A verb is a word; whoever sends more than this is not a client.
constexpr qint64 kMaximumLine = 4096;

/// How much text follows a line "+N verb", which keeps the verb only. Nothing for another line or
/// for more than is taken.
std::optional<std::size_t> takeLength(std::string& line) {
    std::size_t length = 0;
    const char* end = line.data() + line.size();
    const auto [stop, error] = std::from_chars(line.data() + 1, end, length);
    if (error != std::errc{} || stop == end || *stop != ' ' || length > kMaximumText) {
        return std::nullopt;
    }
    line.erase(0, static_cast<std::size_t>(stop + 1 - line.data()));
    return length;
}

} // namespace

/// What a client has said so far.
struct ControlServer::Request {
    std::string verb;
    std::optional<std::size_t> length; // of the text, once that is known
    std::string text;
};

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
        const auto request = std::make_shared<Request>();
        QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
        QObject::connect(client, &QLocalSocket::readyRead, client,
                         [this, client, request] { read(*client, *request); });
        if (client->bytesAvailable() > 0) {
            read(*client, *request);
        }
    }
}

void ControlServer::read(QLocalSocket& client, Request& request) {
    if (!request.length) {
        takeLine(client, request);
    }
    if (request.length) {
        request.text += client.readAll().toStdString();
        if (request.text.size() >= *request.length) {
            request.text.resize(*std::exchange(request.length, 0));
            QObject::disconnect(&client, &QLocalSocket::readyRead, nullptr, nullptr);
            onText(request.verb, std::move(request.text), std::make_unique<ControlCaller>(client));
        }
    }
}

void ControlServer::takeLine(QLocalSocket& client, Request& request) {
    if (client.canReadLine()) {
        request.verb = client.readLine(kMaximumLine).toStdString();
        if (request.verb.ends_with('\n')) {
            request.verb.pop_back();
        }
        if (request.verb.starts_with('+') && onText) {
            request.length = takeLength(request.verb);
        }
        if (!request.length) {
            answer(client, request.verb);
        }
    } else if (client.bytesAvailable() > kMaximumLine) {
        client.abort();
    }
}

void ControlServer::answer(QLocalSocket& client, std::string_view verb) {
    const Answer answer = handler_(verb);
    const std::string reply = answer.line + "\n";
    client.write(reply.data(), static_cast<qint64>(reply.size()));
    client.flush();
    if (answer.then == Answer::Then::hangUp) {
        client.disconnectFromServer();
    }
}

} // namespace pello
