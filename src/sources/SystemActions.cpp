#include "sources/SystemActions.h"

#include <utility>

//          text read             kBeforePaste          kBeforeRestoring
//  insert ── ... ── text copied ───────────── pasted ──────────────────┬── former text put back
//                        ^                                             │
//                        └──────────── the next one that waits ────────┘

namespace pello {

SystemActions::SystemActions(MainLoop& loop, Pasteboard& pasteboard, Keystrokes& keystrokes)
    : loop_(loop), pasteboard_(pasteboard), keystrokes_(keystrokes) {}

void SystemActions::insert(std::string_view text) {
    waiting_.emplace_back(text);
    if (!isInserting_) {
        begin();
    }
}

void SystemActions::begin() {
    isInserting_ = true;
    // What an earlier insertion has still to put back is what the user copied, not that insertion.
    if (!inserted_.empty() && pasteboard_.holdsOwn(inserted_)) {
        copy();
        return;
    }
    pasteboard_.read(
        [this, weakAlive = std::weak_ptr(alive_)](const std::optional<std::string>& former) {
            if (weakAlive.expired()) {
                return;
            }
            if (!former) {
                failed.emit("The text on the pasteboard could not be read and is replaced for "
                            "good: the program that holds it does not hand it over.");
            }
            former_ = former.value_or("");
            copy();
        });
}

void SystemActions::copy() {
    inserted_ = std::move(waiting_.front());
    waiting_.pop_front();
    pasteboard_.setText(inserted_);
    timer_ = loop_.after(kBeforePaste, [this] { paste(kLooks); });
}

void SystemActions::paste(int looksLeft) {
    const auto outcome = keystrokes_.pressPaste();
    if (outcome == Keystrokes::Outcome::pressed) {
        timer_ = loop_.after(kBeforeRestoring, [this] { end(); });
    } else if (outcome == Keystrokes::Outcome::tooEarly && looksLeft > 1) {
        timer_ = loop_.after(kBetweenLooks, [this, looksLeft] { paste(looksLeft - 1); });
    } else { // it stays there for the user
        former_.clear();
        inserted_.clear();
        end();
    }
}

void SystemActions::end() {
    if (!waiting_.empty()) {
        begin();
        return;
    }
    isInserting_ = false;
    if (!former_.empty() && pasteboard_.holdsOwn(inserted_)) {
        pasteboard_.setText(former_);
    }
    former_ = {};
    inserted_ = {};
}

} // namespace pello
