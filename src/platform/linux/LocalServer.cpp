#include "platform/linux/LocalServer.h"

#include "platform/linux/LocalSocket.h"

#include <QSocketNotifier>
#include <sys/socket.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <utility>

namespace pello {
namespace {

bool isOfThisUser(int socket) {
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::getuid();
}

/// A socket that listens at `path`, or none.
FileDescriptor listeningAt(const std::string& path) {
    const auto address = localAddress(path);
    if (!address) {
        return FileDescriptor();
    }
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    ::unlink(path.c_str());
    const auto* target = reinterpret_cast<const sockaddr*>(&*address);
    // The mode of the socket itself becomes that of the file, which then is never open to others.
    const bool listens = socket && ::fchmod(socket.number(), S_IRUSR | S_IWUSR) == 0 &&
                         ::bind(socket.number(), target, sizeof *address) == 0 &&
                         ::listen(socket.number(), SOMAXCONN) == 0;
    return listens ? std::move(socket) : FileDescriptor();
}

} // namespace

void NotifierDeleter::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

LocalConnection::LocalConnection(FileDescriptor socket)
    : socket_(std::move(socket)),
      incoming_(new QSocketNotifier(socket_.number(), QSocketNotifier::Read)) {
    QObject::connect(incoming_.get(), &QSocketNotifier::activated, incoming_.get(),
                     [this] { receive(); });
}

LocalConnection::~LocalConnection() = default;

/// Takes what is there by now.
LocalConnection::End LocalConnection::read() {
    std::array<char, 65536> buffer = {};
    for (;;) {
        const ssize_t count = ::recv(socket_.number(), buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (count > 0) {
            received.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count < 0 && errno == EINTR) {
            continue;
        } else {
            const bool isEmpty = count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
            return isEmpty ? End::stillThere : End::gone;
        }
    }
}

void LocalConnection::receive() {
    const std::size_t before = received.size();
    const End end = read();
    if (end == End::gone) {
        incoming_->setEnabled(false);
    }
    const bool hasCome = received.size() != before;
    const std::weak_ptr<bool> alive = isAlive_;
    if (const auto come = onReceived; hasCome && come) { // copies: either may end this object
        come();
    }
    if (alive.expired() || end == End::stillThere) {
        return;
    }
    if (const auto gone = onGone) {
        gone();
    }
}

bool LocalConnection::send(std::string_view bytes) {
    const ssize_t count =
        ::send(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return count == static_cast<ssize_t>(bytes.size());
}

LocalServer::LocalServer() = default;

LocalServer::~LocalServer() {
    if (socket_) {
        ::unlink(path_.c_str());
    }
}

bool LocalServer::listen(const std::string& path, Handler onConnection) {
    socket_ = listeningAt(path);
    if (!socket_) {
        return false;
    }
    path_ = path;
    onConnection_ = std::move(onConnection);
    incoming_.reset(new QSocketNotifier(socket_.number(), QSocketNotifier::Read));
    QObject::connect(incoming_.get(), &QSocketNotifier::activated, incoming_.get(),
                     [this] { accept(); });
    return true;
}

void LocalServer::accept() {
    for (;;) {
        FileDescriptor client(
            ::accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!client) {
            return; // nobody else waits, or there are no descriptors left for now
        }
        if (isOfThisUser(client.number())) {
            onConnection_(std::make_unique<LocalConnection>(std::move(client)));
        }
    }
}

} // namespace pello
