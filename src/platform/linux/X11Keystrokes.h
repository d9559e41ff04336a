#pragma once

#include "platform/Keystrokes.h"

#include <memory>

namespace pello {

/// Presses keys by the X server's test extension. Needs the toolkit's application object to exist;
/// on other displays than X's nothing is pressed.
class X11Keystrokes final : public Keystrokes {
public:
    X11Keystrokes();
    ~X11Keystrokes() override;
    X11Keystrokes(const X11Keystrokes&) = delete;
    X11Keystrokes& operator=(const X11Keystrokes&) = delete;

    /// Ctrl+V, and Ctrl+Shift+V in terminals. Modifiers that the user holds are released before and
    /// pressed again afterwards.
    [[nodiscard]] Outcome pressPaste() override;

private:
    class Client;
    std::unique_ptr<Client> client_;
};

} // namespace pello
