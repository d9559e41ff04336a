#pragma once

#include "app/ControlCaller.h"

#include <QLocalServer>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QLocalSocket;

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

    /// Listens at `path`, in place of whatever socket is there: only for the one launcher that
    /// runs. False when that is not possible.
    [[nodiscard]] bool listen(const std::string& path);

    /// Called with verbs that come with a text. Without it, such clients are turned away.
    TextHandler onText;

private:
    struct Request;

    void accept();
    void read(QLocalSocket& client, Request& request);
    void takeLine(QLocalSocket& client, Request& request);
    void answer(QLocalSocket& client, std::string_view verb);

    Handler handler_;
    QLocalServer server_;
};

} // namespace pello
