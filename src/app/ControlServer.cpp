#include "app/ControlServer.h"

#include "app/client/ControlClient.h"

#include <charconv>
#include <optional>
#include <utility>

namespace pello {
namespace {

// A verb is a word; whoever sends more than this is not a client.
constexpr std::size_t kMaximumLine = 4096;

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

/// One who is connected, and what was said so far.
struct ControlServer::Client {
    std::unique_ptr<LocalConnection> connection;
    std::string verb;
    std::optional<std::size_t> length; // of the text, once that is known
};

ControlServer::ControlServer(Handler handler) : handler_(std::move(handler)) {}

ControlServer::~ControlServer() = default;

bool ControlServer::listen(const std::string& path) {
    return server_.listen(
        path, [this](std::unique_ptr<LocalConnection> connection) { add(std::move(connection)); });
}

void ControlServer::add(std::unique_ptr<LocalConnection> connection) {
    clients_.push_back(std::make_unique<Client>(std::move(connection)));
    Client& client = *clients_.back();
    client.connection->onReceived = [this, &client] { read(client); };
    client.connection->onGone = [this, &client] { remove(client); };
}

void ControlServer::remove(const Client& client) {
    std::erase_if(clients_, [&client](const auto& each) { return each.get() == &client; });
}

void ControlServer::read(Client& client) {
    if (client.length) {
        takeText(client, *client.length);
    } else if (client.connection->received.find('\n') != std::string::npos) {
        takeLine(client);
    } else if (client.connection->received.size() > kMaximumLine) {
        remove(client);
    }
}

void ControlServer::takeLine(Client& client) {
    std::string& received = client.connection->received;
    const auto end = received.find('\n');
    client.verb = received.substr(0, end);
    received.erase(0, end + 1);
    if (client.verb.starts_with('+') && onText) {
        client.length = takeLength(client.verb);
    }
    if (client.length) {
        takeText(client, *client.length);
    } else {
        answer(client, client.verb);
    }
}

/// Hands the client over once the whole text is there.
void ControlServer::takeText(Client& client, std::size_t length) {
    if (client.connection->received.size() < length) {
        return;
    }
    std::string text = std::move(client.connection->received);
    text.resize(length);
    const std::string verb = std::move(client.verb);
    auto caller = std::make_unique<ControlCaller>(std::move(client.connection));
    remove(client);
    onText(verb, std::move(text), std::move(caller));
}

void ControlServer::answer(Client& client, std::string_view verb) {
    const Answer answer = handler_(verb);
    client.connection->onReceived = nullptr; // one request each
    client.connection->send(answer.line + '\n');
    if (answer.then == Answer::Then::hangUp) {
        remove(client);
    }
}

} // namespace pello
