#pragma once

#include "platform/linux/FileDescriptor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QSocketNotifier;

namespace pello {

/// A notifier may be the one that is calling when its owner goes.
struct NotifierDeleter {
    void operator()(QSocketNotifier* notifier) const;
};

/// One end of a connection between programs of this user; ends with this object. Nothing waits.
/// Main thread only.
class LocalConnection {
public:
    explicit LocalConnection(FileDescriptor socket);
    ~LocalConnection();
    LocalConnection(const LocalConnection&) = delete;
    LocalConnection& operator=(const LocalConnection&) = delete;

    /// What has come and was not taken from here yet.
    std::string received;

    /// Called when more has come, and once when the other end has gone. Either may end this object.
    std::function<void()> onReceived;
    std::function<void()> onGone;

    /// Sends what the other end can take at once: some hundred kilobytes. False when that is less
    /// than all of it.
    bool send(std::string_view bytes);

private:
    enum class End { stillThere, gone };
    End read();
    void receive();

    FileDescriptor socket_;
    std::unique_ptr<QSocketNotifier, NotifierDeleter> incoming_;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

/// A socket in the file system at which other programs of this user may connect. Main thread only.
class LocalServer {
public:
    using Handler = std::function<void(std::unique_ptr<LocalConnection>)>;

    LocalServer();
    ~LocalServer();
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;

    /// Listens at `path`, in place of whatever is there, and hands over each connection. Its mode
    /// is 0600, and other users who get through are turned away. False when that is not possible.
    /// The file is removed in the end.
    [[nodiscard]] bool listen(const std::string& path, Handler onConnection);

private:
    void accept();

    std::string path_;
    Handler onConnection_;
    FileDescriptor socket_;
    std::unique_ptr<QSocketNotifier, NotifierDeleter> incoming_;
};

} // namespace pello
