#pragma once

namespace pello {

/// The floating panel as the controller knows it. Main thread only.
class LauncherPanel {
public:
    virtual ~LauncherPanel() = default;

    /// Shows the panel with what the controller holds, and gives it the keyboard.
    virtual void present() = 0;

    /// Takes the panel away; the keyboard returns to where it was.
    virtual void dismiss() = 0;

    [[nodiscard]] virtual bool isPresented() const = 0;
};

} // namespace pello
