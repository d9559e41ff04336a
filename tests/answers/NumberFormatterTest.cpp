#include "answers/NumberFormatter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace pello {
namespace {

struct Shown {
    double number;
    std::string text;
};

void expectShown(const NumberFormatter& formatter, const std::vector<Shown>& table) {
    for (const auto& [number, text] : table) {
        EXPECT_EQ(formatter.text(number), text);
    }
}

TEST(NumberFormatterTest, RoundsTheShortestDecimalFormHalfToEven) {
    expectShown(NumberFormatter::withFractionDigits(2, "en_US"), {{0.125, "0.12"},
                                                                  {0.135, "0.14"},
                                                                  {-0.125, "-0.12"},
                                                                  {1.005, "1"},
                                                                  {1.015, "1.02"},
                                                                  {2.675, "2.68"},
                                                                  {0.1 + 0.2, "0.3"},
                                                                  {999.996, "1,000"},
                                                                  {0.004, "0"},
                                                                  {-0.004, "0"},
                                                                  {-0.0, "0"}});
    expectShown(NumberFormatter::withFractionDigits(0, "en_US"),
                {{0.5, "0"}, {1.5, "2"}, {2.5, "2"}, {-3.5, "-4"}});
    expectShown(NumberFormatter::withSignificantDigits(6, "en_US"), {{3.106855961, "3.10686"},
                                                                     {1234565, "1,234,560"},
                                                                     {1234575, "1,234,580"},
                                                                     {0.00012345650, "0.000123456"},
                                                                     {72, "72"}});
}

TEST(NumberFormatterTest, NeverShowsAnExponent) {
    const double largest = std::numeric_limits<double>::max();
    const auto significant = NumberFormatter::withSignificantDigits(6, "en_US");
    EXPECT_EQ(NumberFormatter::withFractionDigits(10, "en_US").text(1e21),
              "1,000,000,000,000,000,000,000");
    EXPECT_EQ(significant.text(largest).size(), 309 + 102U) << significant.text(largest);
    EXPECT_EQ(significant.text(1.5e-300), "0." + std::string(299, '0') + "15");
}

TEST(NumberFormatterTest, TellsTheSeparatorsThatItWrites) {
    for (const char* locale : {"en_US", "de_DE.UTF-8", "fr_FR", "ar_EG", "C", "nonsense"}) {
        const auto formatter = NumberFormatter::withFractionDigits(1, locale);
        const std::string text = formatter.text(1234.5);
        const auto group = text.find(formatter.groupingSeparator());
        EXPECT_NE(group, std::string::npos) << text;
        EXPECT_LT(group, text.find(formatter.decimalSeparator())) << text;
        EXPECT_NE(text.find(formatter.decimalSeparator()), std::string::npos) << text;
    }
    EXPECT_EQ(NumberFormatter::withFractionDigits(1, "de_DE").decimalSeparator(), ",");
    EXPECT_EQ(NumberFormatter::withFractionDigits(1, std::string(5000, 'x')).text(1234.5),
              "1,234.5");
}

} // namespace
} // namespace pello
