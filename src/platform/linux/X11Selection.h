#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace pello {

/// Reads the text that another client has copied, over a connection to the X server of its own.
///
/// Toolkits wait for seconds when that client hangs, and block meanwhile; this waits as long as it
/// is told to, or lets itself be called back. What comes later is taken from the client all the
/// same, and thrown away. Main thread only; needs Qt's event loop.
class X11Selection {
public:
    /// How much of it is wanted.
    struct Limits {
        /// For how long the other client may keep silent.
        std::chrono::milliseconds silence;
        /// How long everything may take.
        std::chrono::milliseconds whole;
        /// How long the text may be.
        std::size_t bytes;
    };
    /// Gets the text on the clipboard, empty when there is none; nothing when it did not come
    /// within the limits, or there is no server.
    using Action = std::function<void(std::optional<std::string> text)>;

    X11Selection();
    ~X11Selection();
    X11Selection(const X11Selection&) = delete;
    X11Selection& operator=(const X11Selection&) = delete;

    /// Calls `action` in a later turn of the loop, unless this object goes before.
    void read(const Limits& limits, Action action);

    /// Waits for the text, up to the limit on the whole time.
    [[nodiscard]] std::optional<std::string> wait(const Limits& limits);

private:
    class Client;
    [[nodiscard]] Client* client();

    std::unique_ptr<Client> client_;
};

} // namespace pello
