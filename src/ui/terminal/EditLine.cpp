#include "ui/terminal/EditLine.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>

namespace pello {
namespace {

std::size_t lastCharacterSize(std::string_view utf8) {
    return utf8.empty() ? 0 : text::characterViews(utf8).back().size();
}

std::size_t firstCharacterSize(std::string_view utf8) {
    return utf8.empty() ? 0 : text::characterViews(utf8).front().size();
}

/// Where the last word of `utf8` begins.
std::size_t lastWordStart(std::string_view utf8) {
    const auto words = text::words(utf8);
    return words.empty() ? 0 : static_cast<std::size_t>(words.back().data() - utf8.data());
}

/// Where the first word of `utf8` ends.
std::size_t firstWordEnd(std::string_view utf8) {
    const auto words = text::words(utf8);
    if (words.empty()) {
        return utf8.size();
    }
    const auto start = static_cast<std::size_t>(words.front().data() - utf8.data());
    return start + words.front().size();
}

} // namespace

void EditLine::setText(std::string_view utf8) {
    before_ = utf8;
    after_.clear();
}

void EditLine::moveLeft() {
    const std::size_t kept = before_.size() - lastCharacterSize(before_);
    after_.insert(0, before_, kept);
    before_.erase(kept);
}

void EditLine::moveRight() {
    const std::size_t moved = firstCharacterSize(after_);
    before_.append(after_, 0, moved);
    after_.erase(0, moved);
}

void EditLine::moveWordLeft() {
    const std::size_t kept = lastWordStart(before_);
    after_.insert(0, before_, kept);
    before_.erase(kept);
}

void EditLine::moveWordRight() {
    const std::size_t moved = firstWordEnd(after_);
    before_.append(after_, 0, moved);
    after_.erase(0, moved);
}

void EditLine::moveToStart() {
    after_.insert(0, before_);
    before_.clear();
}

void EditLine::moveToEnd() {
    before_ += after_;
    after_.clear();
}

void EditLine::eraseLeft() {
    before_.erase(before_.size() - lastCharacterSize(before_));
}

void EditLine::eraseRight() {
    after_.erase(0, firstCharacterSize(after_));
}

void EditLine::eraseWordLeft() {
    before_.erase(lastWordStart(before_));
}

} // namespace pello
