#pragma once

#include <QLocalServer>

#include <functional>
#include <string>
#include <string_view>

class QLocalSocket;

namespace pello {

/// Takes verbs from other processes of the same user over a local socket: one line each, answered
/// by one line. Main thread only.
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

    explicit ControlServer(Handler handler);

    /// Listens at `path`, in place of whatever socket is there: only for the one launcher that
    /// runs. False when that is not possible.
    [[nodiscard]] bool listen(const std::string& path);

private:
    void accept();
    void answer(QLocalSocket& client);

    Handler handler_;
    QLocalServer server_;
};

} // namespace pello
