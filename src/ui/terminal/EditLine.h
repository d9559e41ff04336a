#pragma once

#include <string>
#include <string_view>

namespace pello {

/// A line of text and the caret in it, which moves by user-perceived characters. A plain value.
class EditLine {
public:
    [[nodiscard]] std::string text() const { return before_ + after_; }
    [[nodiscard]] const std::string& beforeCaret() const { return before_; }
    [[nodiscard]] const std::string& afterCaret() const { return after_; }
    [[nodiscard]] bool isCaretAtStart() const { return before_.empty(); }
    [[nodiscard]] bool isCaretAtEnd() const { return after_.empty(); }

    /// Replaces the text and puts the caret behind it.
    void setText(std::string_view utf8);

    void insert(std::string_view utf8) { before_ += utf8; }

    void moveLeft();
    void moveRight();
    void moveWordLeft();
    void moveWordRight();
    void moveToStart();
    void moveToEnd();

    void eraseLeft();
    void eraseRight();
    /// A word is what stands between blanks; those between it and the caret go with it.
    void eraseWordLeft();
    void eraseToStart() { before_.clear(); }
    void eraseToEnd() { after_.clear(); }

private:
    std::string before_;
    std::string after_;
};

} // namespace pello
