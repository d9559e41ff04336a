#pragma once

#include "base/Signal.h"
#include "platform/Keystrokes.h"
#include "platform/MainLoop.h"
#include "platform/Pasteboard.h"

#include <chrono>
#include <deque>
#include <memory>
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
    /// What the other program gets to fetch the text after the paste, before the next text takes
    /// its place or the former one comes back.
    static constexpr std::chrono::milliseconds kBeforeRestoring{500};

    /// All must outlive this object.
    SystemActions(MainLoop& loop, Pasteboard& pasteboard, Keystrokes& keystrokes);

    /// Pastes `text` into the window that has the keyboard, after those that were inserted before,
    /// and then puts the pasteboard's former text back, unless something else was copied meanwhile.
    /// Where nothing can be pasted, `text` stays on the pasteboard for the user to paste.
    void insert(std::string_view text);

    /// Emitted with a sentence when a former text cannot be put back.
    Signal<const std::string&> failed;

private:
    /// The first one that waits has its turn.
    void begin();
    void copy();
    void paste(int looksLeft);
    void end();

    MainLoop& loop_;
    Pasteboard& pasteboard_;
    Keystrokes& keystrokes_;
    /// What is copied for now; empty when nothing is that could be replaced.
    std::string inserted_;
    /// What comes back then; empty when nothing does.
    std::string former_;
    bool isInserting_ = false;
    std::deque<std::string> waiting_;
    Subscription timer_;
    /// What the pasteboard's answer belongs to.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
