#pragma once

#include "support/RandomText.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <optional>
#include <string>
#include <string_view>

namespace pello::testing {

/// Random expression trees, written as a person might, with the value that the tree itself has.
class RandomArithmetic {
public:
    /// How tightly an expression holds together; a looser operand needs brackets.
    enum Tightness { kSum, kProduct, kPower, kSigned, kPrimary };

    struct Expression {
        std::string text;
        /// Nothing if some part divides by zero or asks for the root of a negative number.
        std::optional<double> value;
        Tightness tightness;
    };

    explicit RandomArithmetic(std::uint64_t seed) : random_(seed) {}

    /// A tree of at most `depth` operations on top of each other.
    Expression expression(int depth) {
        if (depth == 0 || random_.below(6) == 0) {
            return leaf();
        }
        switch (random_.below(6)) {
        case 0: {
            const Expression inner = operand(depth, kSigned);
            const bool isMinus = random_.below(4) != 0;
            return {blank() + (isMinus ? "-" : "+") + inner.text,
                    computed('*', isMinus ? -1.0 : 1.0, inner.value), kSigned};
        }
        case 1: {
            const Expression inner = expression(depth - 1);
            const double square = inner.value.value_or(-1);
            return {blank() + "sqrt" + blank() + "(" + inner.text + ")",
                    square >= 0 ? std::optional(std::sqrt(square)) : std::nullopt, kPrimary};
        }
        default:
            return operation(depth);
        }
    }

private:
    Expression leaf() {
        struct Leaf {
            std::string_view text;
            double value;
        };
        static constexpr std::array<Leaf, 10> kLeaves = {{{"0", 0},
                                                          {"1", 1},
                                                          {"2", 2},
                                                          {"7.", 7},
                                                          {".5", 0.5},
                                                          {"0.1", 0.1},
                                                          {"12_345.678_9", 12345.6789},
                                                          {"9007199254740993", 9007199254740992.0},
                                                          {"Pi", std::numbers::pi},
                                                          {"e", std::numbers::e}}};
        const Leaf& leaf = kLeaves[random_.below(kLeaves.size())];
        return {blank() + std::string(leaf.text), leaf.value, kPrimary};
    }

    Expression operation(int depth) {
        struct Operation {
            std::string_view sign;
            char meaning;
            Tightness tightness, left, right;
        };
        static constexpr std::array<Operation, 8> kOperations = {
            {{"+", '+', kSum, kSum, kProduct},
             {"-", '-', kSum, kSum, kProduct},
             {"*", '*', kProduct, kProduct, kPower},
             {"×", '*', kProduct, kProduct, kPower},
             {"/", '/', kProduct, kProduct, kPower},
             {"÷", '/', kProduct, kProduct, kPower},
             {"%", '%', kProduct, kProduct, kPower},
             {"^", '^', kPower, kSigned, kPower}}};
        const Operation& operation = kOperations[random_.below(kOperations.size())];
        const Expression left = operand(depth, operation.left);
        const Expression right = operand(depth, operation.right);
        return {left.text + blank() + std::string(operation.sign) + right.text,
                computed(operation.meaning, left.value, right.value), operation.tightness};
    }

    Expression operand(int depth, Tightness least) {
        Expression inner = expression(depth - 1);
        if (inner.tightness >= least && random_.below(4) != 0) {
            return inner;
        }
        return {blank() + "(" + inner.text + blank() + ")", inner.value, kPrimary};
    }

    static std::optional<double> computed(char meaning, std::optional<double> left,
                                          std::optional<double> right) {
        if (!left || !right || (right == 0.0 && (meaning == '/' || meaning == '%'))) {
            return std::nullopt;
        }
        switch (meaning) {
        case '+':
            return *left + *right;
        case '-':
            return *left - *right;
        case '*':
            return *left * *right;
        case '/':
            return *left / *right;
        case '%':
            return std::fmod(*left, *right);
        default:
            return std::pow(*left, *right);
        }
    }

    std::string blank() { return random_.below(5) == 0 ? " " : ""; }

    RandomText random_;
};

} // namespace pello::testing
