#pragma once

#include "platform/linux/LocalServer.h"

#include <functional>
#include <memory>
#include <string_view>

namespace pello {

/// One client of the control socket, who waits for an answer. Main thread only.
class ControlCaller {
public:
    explicit ControlCaller(std::unique_ptr<LocalConnection> connection);

    /// Ends the connection, without an answer if there was none.
    ~ControlCaller() = default;
    ControlCaller(const ControlCaller&) = delete;
    ControlCaller& operator=(const ControlCaller&) = delete;

    /// Answers with one line. A client that has gone gets nothing.
    void answer(std::string_view line);

    /// Called when the client goes before the connection is ended here.
    std::function<void()> onGone;

private:
    std::unique_ptr<LocalConnection> connection_;
};

} // namespace pello
