#pragma once

#include "platform/KeyboardLayout.h"

#include <memory>

namespace pello {

/// The layout that the X server uses. Where there is no server no key types anything.
class X11KeyboardLayout final : public KeyboardLayout {
public:
    X11KeyboardLayout();
    ~X11KeyboardLayout() override;
    X11KeyboardLayout(const X11KeyboardLayout&) = delete;
    X11KeyboardLayout& operator=(const X11KeyboardLayout&) = delete;

    /// Asks the server which of the user's layouts is in use, and waits for it.
    [[nodiscard]] std::string character(std::uint16_t keyCode) const override;

private:
    class Client;
    std::unique_ptr<Client> client_;
};

} // namespace pello
