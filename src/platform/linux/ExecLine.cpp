#include "platform/linux/ExecLine.h"

#include <utility>

//  exec    foo "a \"b\"" --icon %i 'c d'\ e %U
//          ^   ^          ^     ^  ^        ^
//          |   quoted     plain |  quoted   a word of nothing but a code for files: left out
//          the program          a word of nothing but %i: two arguments, --icon and the name

namespace pello {

namespace {

constexpr std::size_t kMaximumBytes = std::size_t{64} << 10;

class ExecParser {
public:
    ExecParser(std::string_view exec, const ExecFields& fields) : rest_(exec), fields_(fields) {}

    std::optional<std::vector<std::string>> parse() {
        while (!rest_.empty()) {
            if (!readPiece() || size_ > kMaximumBytes) {
                return std::nullopt;
            }
        }
        closeWord();
        if (arguments_.empty() || arguments_.front().empty()) {
            return std::nullopt;
        }
        return std::move(arguments_);
    }

private:
    bool readPiece() {
        const char c = take();
        switch (c) {
        case ' ':
        case '\t':
        case '\n':
            closeWord();
            return true;
        case '"':
        case '\'':
            return readQuoted(c);
        case '\\':
            return !rest_.empty() && append(take());
        case '%':
            return readField();
        default:
            return append(c);
        }
    }

    bool readQuoted(char quote) {
        isInWord_ = true;
        while (!rest_.empty()) {
            const char c = take();
            if (c == quote) {
                return true;
            }
            bool isRead = false;
            if (c == '%') {
                isRead = readField();
            } else if (c == '\\' && quote == '"' && !rest_.empty() &&
                       std::string_view("\"`$\\").find(rest_.front()) != std::string_view::npos) {
                isRead = append(take());
            } else {
                isRead = append(c);
            }
            if (!isRead || size_ > kMaximumBytes) {
                return false;
            }
        }
        return false;
    }

    bool readField() {
        if (rest_.empty()) {
            return false;
        }
        const char code = take();
        switch (code) {
        case '%':
            return append('%');
        case 'c':
            return append(fields_.name);
        case 'k':
            return append(fields_.entry);
        case 'i':
            if (!fields_.icon.empty()) {
                isInWord_ = true;
                closeWord("--icon");
                return append(fields_.icon);
            }
            return true;
        default:
            return std::string_view("fFuUdDnNvm").find(code) != std::string_view::npos;
        }
    }

    bool append(char c) { return append(std::string_view(&c, 1)); }

    bool append(std::string_view text) {
        isInWord_ = true;
        word_ += text;
        size_ += text.size();
        return text.find('\0') == std::string_view::npos;
    }

    void closeWord(std::string_view tail = {}) {
        if (std::exchange(isInWord_, false)) {
            word_ += tail;
            size_ += tail.size();
            arguments_.push_back(std::exchange(word_, {}));
        }
    }

    char take() {
        const char c = rest_.front();
        rest_.remove_prefix(1);
        return c;
    }

    std::string_view rest_;
    const ExecFields& fields_;
    std::vector<std::string> arguments_;
    std::string word_;
    bool isInWord_ = false;
    std::size_t size_ = 0;
};

} // namespace

std::optional<std::vector<std::string>> execArguments(std::string_view exec,
                                                      const ExecFields& fields) {
    return ExecParser(exec, fields).parse();
}

} // namespace pello
