#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Reads arithmetic by recursive descent, and computes in double precision while reading.
///
/// Understood are + - * × / ÷ % ^, signs, brackets, "sqrt(...)", "pi", "π" and "e" in any case, and
/// plain decimal numbers, with "_" allowed among their digits. White space may stand before any of
/// these. The parser reads forwards once: after a failure its position says nothing.
class ArithmeticParser {
public:
    /// How many brackets, signs and powers may stand within each other: a dozen or two is what
    /// people type, and this many take a small part of any thread's stack. Deeper expressions
    /// fail. Terms beside each other are not counted.
    static constexpr int kDeepestNesting = 256;

    /// Starts at the beginning of `text`, which must outlive the parser.
    explicit ArithmeticParser(std::string_view text);

    /// The value of the expression at the position, steps over it. May be infinite or not a number.
    /// Nothing where no valid expression stands, where something is divided by zero, and where the
    /// root of a negative number is asked for.
    [[nodiscard]] std::optional<double> parseExpression();

    /// Whether only white space is left, which is stepped over.
    [[nodiscard]] bool isAtEnd();

private:
    using Step = std::optional<double> (ArithmeticParser::*)();

    std::optional<double> parseTerm();
    std::optional<double> parsePower();
    std::optional<double> parseUnary();
    std::optional<double> parsePrimary();
    std::optional<double> parseBracketed();
    std::optional<double> parseNumber();
    /// The letters ahead, in lower case.
    std::optional<std::string> parseIdentifier();
    /// `step`, one level deeper; nothing if that is too deep.
    std::optional<double> nested(Step step);

    void skipWhitespace();
    /// The character ahead, if it is one of `set`. It is not stepped over.
    std::optional<std::string_view> peekOperator(std::initializer_list<std::string_view> set);
    bool stepOver(std::string_view character);
    template <class Predicate>
    std::string_view takeWhile(Predicate belongs);

    std::vector<std::string_view> characters_;
    std::size_t position_ = 0;
    int depth_ = 0;
};

} // namespace pello
