#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Reads arithmetic from left to right, and computes in double precision while reading.
///
/// Understood are + - * × / ÷ % ^, signs, brackets, "sqrt(...)", "pi", "π" and "e" in any case, and
/// plain decimal numbers, with "_" allowed among their digits. White space may stand before any of
/// these. Brackets, signs and powers may stand within each other as deep as memory allows. A parser
/// is good for one reading.
class ArithmeticParser {
public:
    /// `text` must outlive the parser.
    explicit ArithmeticParser(std::string_view text);

    /// The value of the text, which may be infinite or not a number. Nothing unless all of it is
    /// one valid expression, where something is divided by zero, and where the root of a negative
    /// number is asked for.
    [[nodiscard]] std::optional<double> parse();

private:
    /// What is done to operands. A bracket and a root end with a closing bracket.
    enum class Operation {
        bracket,
        root,
        sum,
        difference,
        product,
        quotient,
        remainder,
        power,
        negation
    };

    /// How tightly an operation holds its operands.
    enum class Tightness { bracket, sum, product, power, sign };

    /// A sign between two operands.
    struct Sign {
        std::string_view character;
        Operation operation;
        Tightness tightness;
    };

    /// An operation of which the last operand is not known yet.
    struct Waiting {
        Operation operation;
        Tightness tightness;
        double left = 0;
    };

    static const std::array<Sign, 8> kSigns;

    std::optional<double> parseOperand();
    std::optional<double> parseOperation(double left);
    std::optional<double> parseBracketEnd(double value);
    std::optional<double> parseNumber();
    /// The letters ahead, in lower case.
    std::optional<std::string> parseIdentifier();

    /// `value` after all that waits for it and holds it at least as tightly as `least`.
    std::optional<double> settled(double value, Tightness least);
    /// What `right` completes: the operation that waits last.
    std::optional<double> settledOnce(double right);

    void skipWhitespace();
    bool isAtEnd();
    bool stepOver(std::string_view character);
    template <class Predicate>
    std::string takeWhile(Predicate belongs);

    std::vector<std::string_view> characters_;
    std::size_t position_ = 0;
    std::vector<Waiting> waiting_;
};

} // namespace pello
