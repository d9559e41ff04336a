#pragma once

namespace pello {

/// Presses keys in other programs, as if the user did. Main thread only.
class Keystrokes {
public:
    enum class Outcome {
        pressed,
        /// No other program's window has the keyboard yet: soon it may.
        tooEarly,
        /// This desktop lets nobody press keys for the user.
        impossible
    };

    virtual ~Keystrokes() = default;

    /// Presses and releases the keys that paste, in the window that has the keyboard.
    [[nodiscard]] virtual Outcome pressPaste() = 0;
};

} // namespace pello
