#include "answers/ArithmeticParser.h"

#include "base/DecimalText.h"
#include "base/Text.h"

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
//
// What is open waits on a stack, so that the depth of a pasted text does not matter:
//
//     2 - 3 * 4 + 1    waiting: 2-  3*    the 4 is known, and "+" holds no tighter than either:
//                      12, then -10       both are settled before "+" waits in their place

namespace {

std::optional<double> constant(std::string_view name) {
    if (name == "pi" || name == "π") {
        return std::numbers::pi;
    }
    return name == "e" ? std::optional(std::numbers::e) : std::nullopt;
}

} // namespace

const std::array<ArithmeticParser::Sign, 8> ArithmeticParser::kSigns = {
    {{"+", Operation::sum, Tightness::sum},
     {"-", Operation::difference, Tightness::sum},
     {"*", Operation::product, Tightness::product},
     {"×", Operation::product, Tightness::product},
     {"/", Operation::quotient, Tightness::product},
     {"÷", Operation::quotient, Tightness::product},
     {"%", Operation::remainder, Tightness::product},
     {"^", Operation::power, Tightness::power}}};

ArithmeticParser::ArithmeticParser(std::string_view text)
    : characters_(text::characterViews(text)) {}

std::optional<double> ArithmeticParser::parse() {
    auto value = parseOperand();
    while (value && !isAtEnd()) {
        value = stepOver(")") ? parseBracketEnd(*value) : parseOperation(*value);
    }
    value = value ? settled(*value, Tightness::sum) : std::nullopt;
    return waiting_.empty() ? value : std::nullopt; // else a bracket is left open
}

std::optional<double> ArithmeticParser::parseOperand() {
    while (true) {
        if (stepOver("-")) {
            waiting_.push_back({Operation::negation, Tightness::sign});
        } else if (stepOver("(")) {
            waiting_.push_back({Operation::bracket, Tightness::bracket});
        } else if (!stepOver("+")) {
            const auto identifier = parseIdentifier();
            if (identifier != "sqrt" || !stepOver("(")) {
                return identifier ? constant(*identifier) : parseNumber();
            }
            waiting_.push_back({Operation::root, Tightness::bracket});
        }
    }
}

std::optional<double> ArithmeticParser::parseOperation(double left) {
    const Sign* sign = nullptr;
    for (const Sign& each : kSigns) {
        if (stepOver(each.character)) {
            sign = &each;
            break;
        }
    }
    if (sign == nullptr) {
        return std::nullopt;
    }
    // Of two powers the right one is computed first, of all else the left one.
    const bool isPower = sign->operation == Operation::power;
    const auto known = settled(left, isPower ? Tightness::sign : sign->tightness);
    if (!known) {
        return std::nullopt;
    }
    waiting_.push_back({sign->operation, sign->tightness, *known});
    return parseOperand();
}

std::optional<double> ArithmeticParser::parseBracketEnd(double value) {
    const auto inner = settled(value, Tightness::sum);
    return inner && !waiting_.empty() ? settledOnce(*inner) : std::nullopt;
}

std::optional<double> ArithmeticParser::parseNumber() {
    skipWhitespace();
    std::string digits = takeWhile([](std::string_view character) {
        return text::isNumber(character) || character == "." || character == "_";
    });
    std::erase(digits, '_');
    return parseDecimal(digits);
}

std::optional<std::string> ArithmeticParser::parseIdentifier() {
    skipWhitespace();
    const std::string letters = takeWhile(text::isLetter);
    return letters.empty() ? std::nullopt : std::optional(text::lowercased(letters));
}

std::optional<double> ArithmeticParser::settled(double value, Tightness least) {
    std::optional<double> result = value;
    while (result && !waiting_.empty() && waiting_.back().tightness >= least) {
        result = settledOnce(*result);
    }
    return result;
}

std::optional<double> ArithmeticParser::settledOnce(double right) {
    const auto [operation, tightness, left] = waiting_.back();
    waiting_.pop_back();
    const bool divides = operation == Operation::quotient || operation == Operation::remainder;
    if ((divides && right == 0) || (operation == Operation::root && !(right >= 0))) {
        return std::nullopt;
    }
    switch (operation) {
    case Operation::bracket:
        return right;
    case Operation::root:
        return std::sqrt(right);
    case Operation::sum:
        return left + right;
    case Operation::difference:
        return left - right;
    case Operation::product:
        return left * right;
    case Operation::quotient:
        return left / right;
    case Operation::remainder:
        return std::fmod(left, right);
    case Operation::power:
        return std::pow(left, right);
    case Operation::negation:
        return -right;
    }
    return std::nullopt;
}

void ArithmeticParser::skipWhitespace() {
    while (position_ < characters_.size() && text::isWhitespace(characters_[position_])) {
        ++position_;
    }
}

bool ArithmeticParser::isAtEnd() {
    skipWhitespace();
    return position_ == characters_.size();
}

bool ArithmeticParser::stepOver(std::string_view character) {
    if (isAtEnd() || characters_[position_] != character) {
        return false;
    }
    ++position_;
    return true;
}

template <class Predicate>
std::string ArithmeticParser::takeWhile(Predicate belongs) {
    std::string taken;
    while (position_ < characters_.size() && belongs(characters_[position_])) {
        taken += characters_[position_++];
    }
    return taken;
}

} // namespace pello
