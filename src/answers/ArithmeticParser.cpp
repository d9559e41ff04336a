#include "answers/ArithmeticParser.h"

#include "base/DecimalText.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace pello {

// From loose to tight:
//
//     expression = term  { ("+" | "-") term }                               from left to right
//     term       = power { ("*" | "×" | "/" | "÷" | "%") power }            from left to right
//     power      = unary [ "^" power ]                                      from right to left
//     unary      = ("-" | "+") unary | primary
//     primary    = bracketed | "sqrt" bracketed | "pi" | "π" | "e" | number
//     bracketed  = "(" expression ")"
//
// A sign belongs to the number it stands before: -2^2 is the square of -2.

namespace {

std::optional<double> product(double left, std::string_view sign, double right) {
    if (sign == "*" || sign == "×") {
        return left * right;
    }
    if (right == 0) {
        return std::nullopt;
    }
    return sign == "%" ? std::fmod(left, right) : left / right;
}

std::optional<double> constant(std::string_view name) {
    if (name == "pi" || name == "π") {
        return std::numbers::pi;
    }
    return name == "e" ? std::optional(std::numbers::e) : std::nullopt;
}

} // namespace

ArithmeticParser::ArithmeticParser(std::string_view text)
    : characters_(text::characterViews(text)) {}

std::optional<double> ArithmeticParser::parseExpression() {
    auto sum = parseTerm();
    while (sum) {
        const auto sign = peekOperator({"+", "-"});
        if (!sign) {
            break;
        }
        ++position_;
        const auto term = parseTerm();
        if (!term) {
            return std::nullopt;
        }
        sum = *sign == "+" ? *sum + *term : *sum - *term;
    }
    return sum;
}

std::optional<double> ArithmeticParser::parseTerm() {
    auto result = parsePower();
    while (result) {
        const auto sign = peekOperator({"*", "/", "×", "÷", "%"});
        if (!sign) {
            break;
        }
        ++position_;
        const auto power = parsePower();
        if (!power) {
            return std::nullopt;
        }
        result = product(*result, *sign, *power);
    }
    return result;
}

std::optional<double> ArithmeticParser::parsePower() {
    const auto base = parseUnary();
    if (!base || !stepOver("^")) {
        return base;
    }
    const auto exponent = nested(&ArithmeticParser::parsePower);
    return exponent ? std::optional(std::pow(*base, *exponent)) : std::nullopt;
}

std::optional<double> ArithmeticParser::parseUnary() {
    const auto sign = peekOperator({"-", "+"});
    if (!sign) {
        return parsePrimary();
    }
    ++position_;
    const auto value = nested(&ArithmeticParser::parseUnary);
    return value && *sign == "-" ? std::optional(-*value) : value;
}

std::optional<double> ArithmeticParser::parsePrimary() {
    if (peekOperator({"("})) {
        return parseBracketed();
    }
    const auto identifier = parseIdentifier();
    if (!identifier) {
        return parseNumber();
    }
    if (*identifier != "sqrt") {
        return constant(*identifier);
    }
    const auto square = parseBracketed();
    return square && *square >= 0 ? std::optional(std::sqrt(*square)) : std::nullopt;
}

std::optional<double> ArithmeticParser::parseBracketed() {
    if (!stepOver("(")) {
        return std::nullopt;
    }
    const auto value = nested(&ArithmeticParser::parseExpression);
    return value && stepOver(")") ? value : std::nullopt;
}

std::optional<double> ArithmeticParser::parseNumber() {
    skipWhitespace();
    std::string digits(takeWhile([](std::string_view character) {
        return text::isNumber(character) || character == "." || character == "_";
    }));
    std::erase(digits, '_');
    return parseDecimal(digits);
}

std::optional<std::string> ArithmeticParser::parseIdentifier() {
    skipWhitespace();
    const std::string_view letters = takeWhile(text::isLetter);
    return letters.empty() ? std::nullopt : std::optional(text::lowercased(letters));
}

std::optional<double> ArithmeticParser::nested(Step step) {
    if (depth_ == kDeepestNesting) {
        return std::nullopt;
    }
    ++depth_;
    const auto value = (this->*step)();
    --depth_;
    return value;
}

bool ArithmeticParser::isAtEnd() {
    skipWhitespace();
    return position_ == characters_.size();
}

void ArithmeticParser::skipWhitespace() {
    takeWhile(text::isWhitespace);
}

std::optional<std::string_view>
ArithmeticParser::peekOperator(std::initializer_list<std::string_view> set) {
    if (isAtEnd() || std::find(set.begin(), set.end(), characters_[position_]) == set.end()) {
        return std::nullopt;
    }
    return characters_[position_];
}

bool ArithmeticParser::stepOver(std::string_view character) {
    if (!peekOperator({character})) {
        return false;
    }
    ++position_;
    return true;
}

template <class Predicate>
std::string_view ArithmeticParser::takeWhile(Predicate belongs) {
    const auto begin = characters_.begin() + static_cast<std::ptrdiff_t>(position_);
    const auto end = std::find_if_not(begin, characters_.end(), belongs);
    position_ = static_cast<std::size_t>(end - characters_.begin());
    if (begin == end) {
        return {};
    }
    // Characters that follow each other in the text are one piece of it.
    const std::string_view last = *std::prev(end);
    const char* const stop = last.data() + last.size();
    return {begin->data(), static_cast<std::size_t>(stop - begin->data())};
}

} // namespace pello
