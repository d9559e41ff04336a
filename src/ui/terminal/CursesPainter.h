#pragma once

#include "ui/terminal/TerminalScreen.h"
#include "ui/terminal/TerminalSize.h"

#include <memory>
#include <string>

namespace pello {

/// Brings what should be seen onto a terminal, writing only what differs from what it shows.
///
/// Has the terminal for itself while it lives: another screen, and every key as it is pressed.
/// Gives it back as it was. One at a time; the process's locale has to be a UTF-8 one.
class CursesPainter {
public:
    /// Takes over the terminal of standard input and output; null when it is of no known kind.
    [[nodiscard]] static std::unique_ptr<CursesPainter> open();
    ~CursesPainter();
    CursesPainter(const CursesPainter&) = delete;
    CursesPainter& operator=(const CursesPainter&) = delete;

    [[nodiscard]] TerminalSize size() const;
    void resize(TerminalSize size);
    void paint(const TerminalScreen& screen);

    /// The next paint writes everything.
    void forget();

    /// What a terminal has to be sent to leave the screen taken over, for who cannot wait for the
    /// destructor.
    [[nodiscard]] static std::string leavingSequence();

private:
    struct Curses;
    explicit CursesPainter(std::unique_ptr<Curses> curses);

    std::unique_ptr<Curses> curses_;
};

} // namespace pello
