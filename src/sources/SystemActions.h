#pragma once

#include "platform/Keystrokes.h"
#include "platform/MainLoop.h"
#include "platform/Pasteboard.h"

#include <chrono>
#include <deque>
#include <string>
#include <string_view>

namespace pello {

/// What commands and glyphs do to the desktop. Main thread only.
class SystemActions {
public:
    /// Between the text's arrival on the pasteboard and the paste, for the other program to see it.
    static constexpr std::chrono::milliseconds kBeforePaste{120};
    /// Between two looks whether another program has the keyboard by now.
    static constexpr std::chrono::milliseconds kBetweenLooks{20};
    /// How many looks there are; afterwards nothing is pasted.
    static constexpr int kLooks = 50;
    /// What the other program gets to fetch the text before the former one comes back.
    static constexpr std::chrono::milliseconds kBeforeRestoring{500};

    /// All must outlive this object.
    SystemActions(MainLoop& loop, Pasteboard& pasteboard, Keystrokes& keystrokes);

    /// Pastes `text` into the window that has the keyboard, and then puts the pasteboard's former
    /// text back, unless something else was copied meanwhile. Where nothing can be pasted, `text`
    /// stays on the pasteboard for the user to paste.
    void insert(std::string_view text);

private:
    void begin(std::string text);
    void paste(int looksLeft);
    void endPaste();
    void restore();

    MainLoop& loop_;
    Pasteboard& pasteboard_;
    Keystrokes& keystrokes_;
    std::string inserted_;
    std::string former_;
    bool isPasting_ = false;
    bool owesFormer_ = false;
    std::deque<std::string> waiting_;
    Subscription timer_;
};

} // namespace pello
