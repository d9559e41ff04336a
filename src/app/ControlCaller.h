#pragma once

#include <QLocalSocket>
#include <QPointer>

#include <functional>
#include <string_view>

namespace pello {

/// One client of the control socket, who waits for an answer. Main thread only.
class ControlCaller {
public:
    explicit ControlCaller(QLocalSocket& client);

    /// Ends the connection, without an answer if there was none.
    ~ControlCaller();
    ControlCaller(const ControlCaller&) = delete;
    ControlCaller& operator=(const ControlCaller&) = delete;

    /// Answers with one line. A client that has gone gets nothing.
    void answer(std::string_view line);

    [[nodiscard]] bool isThere() const;

    /// Called when the client goes before the connection is ended here.
    std::function<void()> onGone;

private:
    QPointer<QLocalSocket> client_;
    QMetaObject::Connection goes_;
};

} // namespace pello
