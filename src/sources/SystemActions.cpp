#include "sources/SystemActions.h"

#include <utility>

namespace pello {

SystemActions::SystemActions(MainLoop& loop, Pasteboard& pasteboard, Keystrokes& keystrokes)
    : loop_(loop), pasteboard_(pasteboard), keystrokes_(keystrokes) {}

void SystemActions::insert(std::string_view text) {
    if (isPasting_) {
        waiting_.emplace_back(text);
    } else {
        begin(std::string(text));
    }
}

void SystemActions::begin(std::string text) {
    // What an earlier insertion has still to put back is what the user copied, not that insertion.
    if (!owesFormer_ || !pasteboard_.holdsOwn(inserted_)) {
        former_ = pasteboard_.text();
    }
    owesFormer_ = !former_.empty();
    inserted_ = std::move(text);
    isPasting_ = true;
    pasteboard_.setText(inserted_);
    timer_ = loop_.after(kBeforePaste, [this] { paste(kLooks); });
}

void SystemActions::paste(int looksLeft) {
    const auto outcome = keystrokes_.pressPaste();
    if (outcome == Keystrokes::Outcome::tooEarly && looksLeft > 1) {
        timer_ = loop_.after(kBetweenLooks, [this, looksLeft] { paste(looksLeft - 1); });
        return;
    }
    if (outcome != Keystrokes::Outcome::pressed) {
        owesFormer_ = false;
    }
    endPaste();
}

void SystemActions::endPaste() {
    isPasting_ = false;
    timer_ = Subscription();
    if (owesFormer_) {
        timer_ = loop_.after(kBeforeRestoring, [this] { restore(); });
    }
    if (!waiting_.empty()) {
        std::string next = std::move(waiting_.front());
        waiting_.pop_front();
        begin(std::move(next));
    }
}

void SystemActions::restore() {
    if (std::exchange(owesFormer_, false) && pasteboard_.holdsOwn(inserted_)) {
        pasteboard_.setText(former_);
    }
    former_.clear();
    inserted_.clear();
}

} // namespace pello
