#define NCURSES_NOMACROS 1
#define NCURSES_WIDECHAR 1
#include "ui/terminal/CursesPainter.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <curses.h>
#include <cwchar>
#include <string_view>
#include <utility>

namespace pello {
namespace {

// Pasted text arrives marked as such, so that its line breaks run nothing. Terminals that cannot do
// that ignore it.
constexpr std::string_view kMarkPastes = "\033[?2004h";
constexpr std::string_view kLeavePastes = "\033[?2004l";

constexpr short kFailureColours = 1;

void write(std::string_view sequence) {
    static_cast<void>(std::fwrite(sequence.data(), 1, sequence.size(), stdout));
    static_cast<void>(std::fflush(stdout));
}

std::wstring wide(const std::string& utf8) {
    std::mbstate_t state = {};
    std::wstring made(utf8.size(), L'\0');
    const char* place = utf8.c_str();
    const std::size_t length = std::mbsrtowcs(made.data(), &place, made.size(), &state);
    made.resize(length <= utf8.size() ? length : 0);
    return made;
}

attr_t failureColours() {
    return static_cast<attr_t>(COLOR_PAIR(kFailureColours));
}

attr_t attributesOf(const TerminalCell& cell) {
    const attr_t base = cell.isSelected ? A_REVERSE : A_NORMAL;
    switch (cell.style) {
    case TerminalCell::Style::strong:
        return base | A_BOLD;
    case TerminalCell::Style::marked:
        return base | A_BOLD | A_UNDERLINE;
    case TerminalCell::Style::dim: // hard to read reversed
        return cell.isSelected ? base : base | A_DIM;
    case TerminalCell::Style::failure:
        return base | A_BOLD | (::has_colors() ? failureColours() : A_NORMAL);
    case TerminalCell::Style::plain:
        break;
    }
    return base;
}

bool looksLike(const TerminalCell& left, const TerminalCell& right) {
    return left.style == right.style && left.isSelected == right.isSelected;
}

/// Cells that look alike are written together: what belongs to one picture stays together.
void paintLine(const TerminalScreen& screen, int row) {
    const auto cells = screen.line(row);
    std::size_t begin = 0;
    while (begin < cells.size()) {
        std::string text;
        std::size_t end = begin;
        for (; end < cells.size() && looksLike(cells[begin], cells[end]); ++end) {
            text += cells[end].text;
        }
        ::attrset(static_cast<int>(attributesOf(cells[begin])));
        ::mvaddwstr(row, static_cast<int>(begin), wide(text).c_str());
        begin = end;
    }
}

} // namespace

struct CursesPainter::Curses {
    explicit Curses(SCREEN* opened) : screen(opened) {}
    ~Curses() {
        write(kLeavePastes);
        ::endwin();
        ::delscreen(screen);
    }
    Curses(const Curses&) = delete;
    Curses& operator=(const Curses&) = delete;

    SCREEN* screen;
};

std::unique_ptr<CursesPainter> CursesPainter::open() {
    SCREEN* screen = ::newterm(nullptr, stdout, stdin);
    if (screen == nullptr) {
        return nullptr;
    }
    auto curses = std::make_unique<Curses>(screen);
    ::raw(); // keys that would end or stop a program have their meaning here
    ::noecho();
    ::nonl();
    if (::has_colors()) {
        ::start_color();
        ::use_default_colors();
        ::init_pair(kFailureColours, COLOR_RED, -1);
    }
    write(kMarkPastes);
    return std::unique_ptr<CursesPainter>(new CursesPainter(std::move(curses)));
}

CursesPainter::CursesPainter(std::unique_ptr<Curses> curses) : curses_(std::move(curses)) {}
CursesPainter::~CursesPainter() = default;

// NOLINTBEGIN(*-to-static): the library keeps the state, the object says that the terminal is held
TerminalSize CursesPainter::size() const {
    return {.rows = ::getmaxy(stdscr), .columns = ::getmaxx(stdscr)};
}

void CursesPainter::resize(TerminalSize size) {
    ::resizeterm(size.rows, size.columns);
}

void CursesPainter::paint(const TerminalScreen& screen) {
    for (int row = 0; row < screen.size().rows; ++row) {
        paintLine(screen, row);
    }
    ::curs_set(screen.caret ? 1 : 0);
    if (screen.caret) {
        ::move(screen.caret->row, screen.caret->column);
    }
    ::refresh();
}

void CursesPainter::forget() {
    ::clearok(curscr, TRUE);
}
// NOLINTEND(*-to-static)

std::string CursesPainter::leavingSequence() {
    std::string sequence(kLeavePastes);
    // Older libraries want names that they could change.
    for (std::string name : {"sgr0", "cnorm", "rmcup"}) {
        const char* capability = ::tigetstr(name.data());
        // -1 stands for a name that is none.
        if (capability != nullptr && reinterpret_cast<std::intptr_t>(capability) != -1) {
            sequence += capability;
        }
    }
    return sequence;
}

} // namespace pello
