#pragma once

#include "app/ControlCaller.h"
#include "platform/linux/LocalServer.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Takes verbs from other processes of the same user over a local socket: one line each, answered
/// by one line.
///
/// A line "+N verb" is followed by N bytes of text, and may be answered at any time. Main thread
/// only.
class ControlServer {
public:
    /// What a client gets: a line, and then the end of the connection, at once or only when this
    /// server goes (which tells a client who waits that it has gone).
    struct Answer {
        enum class Then { hangUp, holdTheLine };
        std::string line;
        Then then = Then::hangUp;
    };
    using Handler = std::function<Answer(std::string_view verb)>;
    using TextHandler = std::function<void(std::string_view verb, std::string text,
                                           std::unique_ptr<ControlCaller> caller)>;

    explicit ControlServer(Handler handler);
    ~ControlServer();
    ControlServer(const ControlServer&) = delete;
    ControlServer& operator=(const ControlServer&) = delete;

    /// Listens at `path`, in place of whatever socket is there: only for the one launcher that
    /// runs. False when that is not possible.
    [[nodiscard]] bool listen(const std::string& path);

    /// Called with verbs that come with a text. Without it, such clients are turned away.
    TextHandler onText;

private:
    struct Client;

    void add(std::unique_ptr<LocalConnection> connection);
    void read(Client& client);
    void takeLine(Client& client);
    void takeText(Client& client, std::size_t length);
    void answer(Client& client, std::string_view verb);
    void remove(const Client& client);

    Handler handler_;
    std::vector<std::unique_ptr<Client>> clients_;
    LocalServer server_;
};

} // namespace pello
