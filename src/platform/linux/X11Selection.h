#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace pello {

/// Reads the text that another client has copied, over a connection to the X server of its own.
///
/// Toolkits wait for seconds when that client hangs; this waits as long as it is told to. Any one
/// thread.
class X11Selection {
public:
    X11Selection();
    ~X11Selection();
    X11Selection(const X11Selection&) = delete;
    X11Selection& operator=(const X11Selection&) = delete;

    /// The text on the clipboard. Nothing when nobody holds it, it is no text, it is too long to be
    /// handed over in one piece (some 256 KiB), or its holder does not answer within `patience`.
    [[nodiscard]] std::optional<std::string> clipboard(std::chrono::milliseconds patience);

private:
    struct Client;
    std::unique_ptr<Client> client_;
};

} // namespace pello
