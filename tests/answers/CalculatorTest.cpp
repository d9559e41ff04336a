#include "answers/Calculator.h"

#include "answers/ArithmeticParser.h"
#include "base/DecimalText.h"
#include "base/Text.h"
#include "support/AnswerCases.h"
#include "support/RandomArithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>

namespace pello {
namespace {

const std::string kNothing = "(nothing)";

std::string answer(std::string_view query, std::string_view locale = "en_US") {
    return Calculator(locale).evaluate(query).value_or(kNothing);
}

void expectAnswers(std::string_view cases) {
    testing::forEachCase(cases, [](std::string_view query, std::string_view expected) {
        EXPECT_EQ(answer(query), expected) << query.substr(0, 40);
    });
}

/// For each of "a;b;c".
void expectNothing(std::string_view queries) {
    for (const std::string_view query : text::split(queries, ';')) {
        EXPECT_EQ(answer(query), kNothing) << query.substr(0, 40);
    }
}

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(CalculatorTest, ComputesInTheOrderOfTheGrammar) {
    expectAnswers(
        "12*(3+4): 84; 1+2: 3; 10-2-3: 5; 2+3*4: 14; 100/10/2*3: 15; 2*3^2: 18; 2^3^2: 512; "
        "-2^2: 4; 2^-1: 0.5; 2^-2: 0.25; 0-2^2: -4; --2: 2; -+-2*3: 6; 2--3: 5; 3×4: 12; 8÷2: 4; "
        "7%3: 1; -7%3: -1; 7%-3: 1; 7.5%2: 1.5; 50%3*2: 4; 1/(2+3): 0.2");
}

TEST(CalculatorTest, KnowsRootsAndConstantsInAnyCase) {
    expectAnswers(
        "sqrt(16): 4; SQRT(2): 1.4142135624; Sqrt ( 9 ) + sqrt(sqrt(16)): 5; sqrt(0): 0; "
        "pi*2: 6.2831853072; PI*1: 3.1415926536; 2*π: 6.2831853072; Π/Π: 1; e^1: 2.7182818285; "
        "-E: (nothing); -E*1: -2.7182818285");
    expectNothing(
        "sqrt(-4);sqrt 16;sqrt;sqrt();sqrt(16;sqrt16;sqrt((0-8)^0.5);sin(1);pie*2;ⅇ*2;2pi+1;"
        "2(3)+1;(2)(3)+1;hello-world;e+x;pi pi*2");
}

TEST(CalculatorTest, AnswersOnlyWhatComputesSomething) {
    expectAnswers("-50: -50; +123: 123");
    EXPECT_EQ(answer(" \t-1.50\u3000"), "-1.5");
    EXPECT_EQ(answer(""), kNothing);
    expectNothing("1;12;-5;2+;  -5  ;123;2024;pi;(42);1.25;firefox;+++;---;%%%;×÷^");
}

TEST(CalculatorTest, ReadsPlainDecimalNumbersUnderEveryLocale) {
    expectAnswers(
        "1_000*3: 3,000; _1_._5_*2: 3; .5+.25: 0.75; 5.+1: 6; 007+0: 7; "
        "9007199254740993.0000000000000000000000001+0: 9,007,199,254,740,994; 0.1+0.2: 0.3");
    expectNothing(
        "1,000*3;1,5*2;3e5+1;1e5+1;0x10+1;1.2.3+1;.+1;_+1;½+1;5²+1;٣+٤;五+1;1\u0301+1;inf+1;nan+1;"
        "-nan;-inf;+-inf;1 000*3;1'000*3;1+\xff\xfe");
    EXPECT_EQ(answer("1.5*2", "de_DE"), "3");
    EXPECT_EQ(answer("1,5*2", "de_DE"), kNothing);
}

TEST(CalculatorTest, SkipsWhitespaceBeforeTokensOnly) {
    expectAnswers(" 1 + 2 : 3; 1\u00a0+\u20032: 3; (\n1\r\n+ 2\n)\n: 3; - - 2: 2; 2 ^ - 1: 0.5");
    expectNothing(
        "2+2 apples;1 2+3;s qrt(4);2+2);(1+2;1+(2;()+1;)1+2(;2**3;1+*2;*2+1;1+2=;1+2\u200b;5-\u0301"
        "3");
}

TEST(CalculatorTest, HasNoAnswerWithoutAFiniteValue) {
    expectNothing("5/0;5%0;5÷0;5/(1-1);5/-0;0/0;10^400;-10^401;0^-1;(0-8)^(1/3);10^400-10^400;"
                  "sqrt(10^400-10^400);1/(1/0)");
    expectNothing(repeated("9", 400) + "+1");
    expectAnswers("1/10^400: 0; 0^0: 1; 8^(1/3): 2");
}

TEST(CalculatorTest, ShowsTenFractionDigitsHalfEvenAndNoExponent) {
    expectAnswers(
        "1/2048: 0.0004882812; 3/2048: 0.0014648438; 1/3: 0.3333333333; 2/3: 0.6666666667; "
        "1234567*1: 1,234,567; 1234567.25*1: 1,234,567.25; 10^14+0.5: 100,000,000,000,000.5; "
        "10^15-1: 999,999,999,999,999; 10^15: 1,000,000,000,000,000; "
        "-10^15*1.0: -1,000,000,000,000,000; 2^60: 1,152,921,504,606,847,000; "
        "10^21: 1,000,000,000,000,000,000,000; 1/10^10: 0.0000000001; 1/10^12: 0; -1/10^12: 0; "
        "-0*1: 0");
    const std::string largest = answer("10^308");
    EXPECT_EQ(largest.size(), 309 + 102U);
    EXPECT_EQ(largest.find_first_not_of("10,"), std::string::npos) << largest;
}

TEST(CalculatorTest, RoundsTheShortestDecimalFormAndNotTheNumberBehindIt) {
    const auto two = NumberFormatter::withFractionDigits(2, "en_US");
    testing::forEachCase("0.125: 0.12; 0.135: 0.14; -0.125: -0.12; 1.005: 1; 1.015: 1.02; "
                         "2.675: 2.68; 999.996: 1,000; -0.004: 0; 0.5: 0.5",
                         [&](std::string_view number, std::string_view text) {
                             EXPECT_EQ(two.text(parseDecimal(number).value()), text);
                         });
    const auto whole = NumberFormatter::withFractionDigits(0, "en_US");
    EXPECT_EQ(whole.text(0.5) + ' ' + whole.text(2.5) + ' ' + whole.text(-3.5), "0 2 -4");
}

TEST(CalculatorTest, AnswersAsTheLocaleWritesNumbers) {
    testing::forEachCase("en_US: -1,234,567.5; de_DE.UTF-8: -1.234.567,5; hi_IN: -12,34,567.5; "
                         "fr_FR: -1\u202f234\u202f567,5; sv_SE: −1\u00a0234\u00a0567,5; "
                         "ar_EG: \u061c-١٬٢٣٤٬٥٦٧٫٥; C: -1,234,567.5; nonsense: -1,234,567.5; " +
                             std::string(5000, 'x') + ": -1,234,567.5",
                         [](std::string_view locale, std::string_view text) {
                             EXPECT_EQ(answer("1234567.5*-1", locale), text) << text;
                         });
}

TEST(CalculatorTest, DepthAndLengthDoNotMatter) {
    constexpr int kMany = 100'000;
    const auto signs = repeated("-", kMany);
    const auto open = repeated("(", kMany);
    const auto close = repeated(")", kMany);
    const auto roots = repeated("sqrt(", kMany);
    expectNothing(open + ';' + signs + ';' + repeated("2^", kMany) + ';' + roots + "1;" + open +
                  "1+1" + close + ')');
    expectAnswers(open + "1+1" + close + ": 2;" + signs + "5: 5;" + roots + '1' + close + ": 1;" +
                  repeated("1^", kMany) + "1: 1;" + repeated("(-1^", kMany) + '1' + close +
                  ": -1; 1" + repeated("+(1)*-1^1", 10'000) + ": -9,999");
}

TEST(CalculatorTest, RandomExpressionsHaveTheValueOfTheirTree) {
    testing::RandomArithmetic random(7);
    const Calculator calculator("en_US");
    int finite = 0;
    for (int i = 0; i < 10'000; ++i) {
        const auto [text, value, tightness] = random.expression(5);
        const auto parsed = ArithmeticParser(text).parse();
        ASSERT_EQ(parsed.has_value(), value.has_value()) << text;
        const double expected = value.value_or(NAN);
        const auto shown = calculator.evaluate("(" + text + ")*1");
        ASSERT_EQ(shown.has_value(), std::isfinite(expected)) << text;
        if (!shown) {
            continue;
        }
        ++finite;
        ASSERT_EQ(parsed, value) << text;
        std::string digits = *shown;
        std::erase(digits, ',');
        const double rounding = 0.5e-10 + std::abs(expected) * 1e-15;
        ASSERT_NEAR(parseDecimal(digits).value_or(NAN), expected, rounding) << text;
    }
    EXPECT_GT(finite, 5'000);
}

} // namespace
} // namespace pello
