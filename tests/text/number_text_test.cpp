// Number texts of cells, captions and files.
#include "text/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/decimal15.h"
#include "base/fault_of.h"

namespace zirvo {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

void ExpectPrefixes(const std::vector<std::pair<std::string, double>>& rows) {
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(ParseNumberPrefix(text), value) << "[" << text << "]";
    }
}

TEST(ParseNumberPrefix, TakesTheNumberInFrontAndIgnoresTheRest) {
    ExpectPrefixes({{"12abc", 12},
                    {"1,5", 1},
                    {"1E3", 1000},
                    {"0.35", 0.35},
                    {"-0.35x", -0.35},
                    {"+7", 7},
                    {"1.2.3", 1.2},
                    {"1-2", 1},
                    {"5.", 5},
                    {".5", 0.5},
                    {"-.5", -0.5},
                    {"007", 7}});
}

TEST(ParseNumberPrefix, NoNumberAtAllIsZero) {
    ExpectPrefixes({{"", 0},
                    {"abc", 0},
                    {" ", 0},
                    {".", 0},
                    {"-", 0},
                    {"+", 0},
                    {"-.", 0},
                    {"--5", 0},
                    {"+-5", 0},
                    {"E5", 0},
                    {".E5", 0},
                    {"-E5", 0},
                    {"層1", 0},
                    {",5", 0},
                    {"$5", 0}});
}

TEST(ParseNumberPrefix, KnowsNoHexadecimalNoInfinityAndNoNan) {
    ExpectPrefixes({{"0x10", 0},
                    {"&H10", 0},
                    {"inf", 0},
                    {"-inf", 0},
                    {"infinity", 0},
                    {"nan", 0},
                    {"NaN", 0},
                    {"1e1f", 10},
                    {"1p3", 1}});
}

TEST(ParseNumberPrefix, ExponentHasOneOfFourLettersAndNeedsDigits) {
    ExpectPrefixes({{"1E3", 1000},
                    {"1e3", 1000},
                    {"1D3", 1000},
                    {"1d3", 1000},
                    {"1.5D-1", 0.15},
                    {"1E+2", 100},
                    {"1E+", 1},
                    {"1E-", 1},
                    {"1E", 1},
                    {"1D", 1},
                    {"1E+-2", 1},
                    {"1EE2", 1},
                    {"1E2.5", 100},
                    {"1E2E3", 100},
                    {"1.E2", 100}});
}

TEST(ParseNumberPrefix, BlanksTabsAndLineFeedsAreSkippedAnywhere) {
    ExpectPrefixes({{"1 2 3", 123},
                    {"- 5", -5},
                    {"1 E 3", 1000},
                    {"1E + 3", 1000},
                    {" \t\n1\n2\t.\t5 ", 12.5},
                    {"1 . 5", 1.5},
                    {"1E \n", 1}});
}

TEST(ParseNumberPrefix, OtherWhiteSpaceEndsTheNumber) {
    ExpectPrefixes({{"1\r2", 1},
                    {"1\r\n2", 1},
                    {"1\u30002", 1},
                    {"\u30001", 0},
                    {"\r1", 0},
                    {"1\v2", 1},
                    {"1\f2", 1},
                    {"1\u00A02", 1},
                    {std::string("1\0002", 3), 1},
                    {"１２", 0}});
}

TEST(ParseNumberPrefix, MagnitudeBeyondADoubleIsTheLargestDouble) {
    ExpectPrefixes({{"1E309", Largest},
                    {"-1E309", -Largest},
                    {"1E99999999999999999999999999", Largest},
                    {"-1E99999999999999999999999999", -Largest},
                    {"1.79769313486232E+308", Largest},  // the 15 digits of the largest double, rounded up
                    {std::string(400, '9'), Largest}});
}

TEST(ParseNumberPrefix, MagnitudeBelowADoubleIsZeroOrDenormal) {
    ExpectPrefixes({{"1E-400", 0},
                    {"-1E-400", 0},
                    {"1E-99999999999999999999999999", 0},
                    {"4.94065645841247E-324", Smallest},
                    {"1E-320", 1E-320},
                    {"0E99999999999999999999", 0}});
    EXPECT_FALSE(std::signbit(ParseNumberPrefix("-1E-400")));
    EXPECT_FALSE(std::signbit(ParseNumberPrefix("-0")));
}

TEST(ParseNumberPrefix, LongTextsAreReadExactly) {
    const std::size_t n = 100000;
    ExpectPrefixes({{std::string(n, '0') + "12", 12},
                    {"0." + std::string(n, '0') + "12E" + std::to_string(n), 0.12},
                    {"12" + std::string(n, '0') + "E-" + std::to_string(n), 12},
                    {"1." + std::string(n, '0') + "1", 1},
                    {"0.1" + std::string(n, '0'), 0.1}});
    // Half way between 1 and the next double, and a little above it: the last digit decides.
    const std::string half = "1.00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(ParseNumberPrefix(half), 1);
    EXPECT_EQ(ParseNumberPrefix(half + std::string(n, '0') + "1"), 1 + 0x1p-52);
}

/// The rule once more in other words: how many characters in front are a number, of a text without blanks.
std::size_t NumberLength(const std::string& text) {
    const auto digitsAt = [&](std::size_t i) {
        return std::strspn(text.c_str() + std::min(i, text.size()), "0123456789");
    };
    const auto signAt = [&](std::size_t i) {
        return i < text.size() && std::strchr("+-", text[i]) != nullptr ? 1U : 0U;
    };
    const std::size_t sign = signAt(0);
    const std::size_t whole = digitsAt(sign);
    const std::size_t point = text.substr(sign + whole, 1) == "." ? 1 : 0;
    const std::size_t fraction = point == 1 ? digitsAt(sign + whole + 1) : 0;
    if (whole + fraction == 0) {
        return 0;
    }
    const std::size_t mantissa = sign + whole + point + fraction;
    if (text.find_first_of("EDed", mantissa) != mantissa) {
        return mantissa;
    }
    const std::size_t exponent = digitsAt(mantissa + 1 + signAt(mantissa + 1));
    return exponent == 0 ? mantissa : mantissa + 1 + signAt(mantissa + 1) + exponent;
}

// The value is the C library's.
TEST(ParseNumberPrefix, AgreesWithTheRuleInOtherWordsOnRandomTexts) {
    const std::string alphabet = "0123456789..++--EeDd \t\nx\r,";
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 12);
    for (int i = 0; i < 100000; ++i) {
        std::string text;
        for (int n = length(random); n > 0; --n) {
            text += alphabet[letter(random)];
        }
        std::string number = text;
        std::erase_if(number, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
        number.resize(NumberLength(number));
        std::replace_if(
            number.begin(), number.end(), [](char c) { return c == 'D' || c == 'd'; }, 'E');
        const double expected = std::clamp(std::strtod(number.c_str(), nullptr), -Largest, Largest);
        ASSERT_EQ(ParseNumberPrefix(text), expected) << "[" << text << "]";
    }
}

TEST(ParseNumberPrefix, DecimalPointDoesNotFollowTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", ""}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            EXPECT_EQ(ParseNumberPrefix("1.5"), 1.5);
            EXPECT_EQ(FormatNumberText(1.5), "1.5");
        }
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(RoundToInt16, TakesTheNearestAndOfTwoTheEvenOne) {
    const std::vector<std::pair<double, int>> rows{{2.5, 2},
                                                   {3.5, 4},
                                                   {-2.5, -2},
                                                   {-3.5, -4},
                                                   {0.5, 0},
                                                   {1.5, 2},
                                                   {-0.5, 0},
                                                   {-1.5, -2},
                                                   {2.4999999999999996, 2},
                                                   {2.5000000000000004, 3},
                                                   {0.49999999999999994, 0},
                                                   {1.4, 1},
                                                   {-1.6, -2},
                                                   {0, 0},
                                                   {Smallest, 0}};
    for (const auto& [x, rounded] : rows) {
        EXPECT_EQ(RoundToInt16(x), rounded) << x;
    }
}

TEST(RoundToInt16, JudgesTheRoundedValue) {
    EXPECT_EQ(RoundToInt16(32767.49), 32767);
    EXPECT_EQ(FaultOf([] { RoundToInt16(32767.5); }), 6);  // a tie, and 32768 is its even neighbour
    EXPECT_EQ(RoundToInt16(-32768.5), -32768);             // a tie too
    EXPECT_EQ(FaultOf([] { RoundToInt16(-32768.51); }), 6);
    EXPECT_EQ(FaultOf([] { RoundToInt16(32768); }), 6);
}

TEST(RoundToInt16, WhatIsNoSmallNumberOverflows) {
    for (const double x : {1e5, -1e5, 1e300, Largest, -Largest, Infinity, -Infinity, NotANumber}) {
        EXPECT_EQ(FaultOf([x] { RoundToInt16(x); }), 6) << x;
    }
}

TEST(StrictInt16, TakesAWholeNumberTextWithBlanksAtItsEnds) {
    EXPECT_EQ(StrictInt16("1"), 1);
    EXPECT_EQ(StrictInt16("  12  "), 12);
    EXPECT_EQ(StrictInt16("+3"), 3);
    EXPECT_EQ(StrictInt16("-3"), -3);
    EXPECT_EQ(StrictInt16("1.5"), 2);
    EXPECT_EQ(StrictInt16("2.5"), 2);
    EXPECT_EQ(StrictInt16("1E2"), 100);
    EXPECT_EQ(StrictInt16("1d2"), 100);
    EXPECT_EQ(StrictInt16("5."), 5);
    EXPECT_EQ(StrictInt16(".5"), 0);
}

TEST(StrictInt16, WhatIsNoNumberAsAWholeIsATypeMismatch) {
    for (const char* text : {"",    " ",   ".",   "1a",  "a1",      "1 2", "- 1", "1E",  "1E+",   "--1", "+",
                             "1,5", "\t1", "1\t", "1\n", "\u30001", "inf", "nan", "0x1", "1E2.5", "１"}) {
        EXPECT_EQ(FaultOf([text] { StrictInt16(text); }), 13) << "[" << text << "]";
    }
    EXPECT_EQ(FaultOf([] { StrictInt16(std::string_view("1\0", 2)); }), 13);
}

TEST(StrictInt16, NumberOutside16BitsOverflows) {
    for (const char* text : {"32768", "-32769", "32767.5", "1E5", "1E999", "-1E999"}) {
        EXPECT_EQ(FaultOf([text] { StrictInt16(text); }), 6) << text;
    }
}

void ExpectTexts(const std::vector<std::pair<double, std::string>>& rows) {
    for (const auto& [x, text] : rows) {
        EXPECT_EQ(FormatNumberText(x), text);
        EXPECT_EQ(FormatNumberText(-x), x == 0 ? text : "-" + text);
    }
}

TEST(FormatNumberText, HasUpToFifteenDigitsAndNoTrailingZeros) {
    ExpectTexts({{0, "0"},
                 {1, "1"},
                 {10, "10"},
                 {0.35, "0.35"},
                 {35000, "35000"},
                 {1.0 / 3, "0.333333333333333"},
                 {2.0 / 3, "0.666666666666667"},
                 {100.0 / 3, "33.3333333333333"},
                 {0.1 + 0.2, "0.3"},
                 {1234567.890625, "1234567.890625"},
                 {0.99999999999999989, "1"},
                 {5.0E-5, "0.00005"},
                 {0.00001, "0.00001"}});
}

TEST(FormatNumberText, PlainFormServesUpToFifteenDigitsOnEitherSideOfThePoint) {
    ExpectTexts({{999999999999999.0, "999999999999999"},
                 {100000000000000.0, "100000000000000"},
                 {1e15, "1E+15"},
                 {9999999999999999.0, "1E+16"},
                 {1234567890123456.0, "1.23456789012346E+15"},
                 {1e-15, "0.000000000000001"},
                 {1e-16, "1E-16"},
                 {1.2e-15, "1.2E-15"},
                 {1.2e-14, "0.000000000000012"},
                 {0.123456789012345, "0.123456789012345"},
                 {0.0123456789012345, "1.23456789012345E-02"},
                 {0.012345678901234, "0.012345678901234"},
                 {1.0 / 3000, "3.33333333333333E-04"},
                 {1e100, "1E+100"},
                 {Largest, "1.79769313486232E+308"},
                 {Smallest, "4.94065645841247E-324"}});
}

TEST(FormatNumberText, InfinitiesAndNanOverflow) {
    for (const double x : {Infinity, -Infinity, NotANumber}) {
        EXPECT_EQ(FaultOf([x] { FormatNumberText(x); }), 6);
    }
}

void ExpectReadsBack(double x) {
    const std::string text = FormatNumberText(x);
    const double back = ParseNumberPrefix(text);
    ASSERT_EQ(ToDecimal15(back), ToDecimal15(x)) << text;
    ASSERT_EQ(FormatNumberText(back), text);
}

TEST(FormatNumberText, ReadsBackToTheSameFifteenDigitsOnRandomBitPatterns) {
    std::mt19937_64 random(932);
    for (int i = 0; i < 500000; ++i) {
        const double x = std::bit_cast<double>(random());
        if (std::isfinite(x)) {
            ExpectReadsBack(x);
        }
    }
}

TEST(FormatNumberText, ReadsBackToTheSameFifteenDigitsOnNumbersOfOrdinarySize) {
    std::mt19937_64 random(23);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-20, 20);
    for (int i = 0; i < 500000; ++i) {
        ExpectReadsBack(mantissa(random) * std::pow(10.0, exponent(random)));
    }
}

// 15 digits always survive a double; what the user typed is what the file holds.
TEST(FormatNumberText, TextOfFifteenDigitsComesBackAsItWas) {
    std::mt19937_64 random(15);
    std::uniform_int_distribution<long long> digits(1, 999999999999999);
    std::uniform_int_distribution<std::size_t> places(1, 15);
    for (int i = 0; i < 100000; ++i) {
        std::string text = std::to_string(digits(random));
        const std::size_t behind = places(random);
        text.insert(0, text.size() <= behind ? behind + 1 - text.size() : 0, '0');
        text.insert(text.size() - behind, 1, '.');
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
        ASSERT_EQ(FormatNumberText(ParseNumberPrefix(text)), text);
    }
}

TEST(PadLeft, PutsBlanksInFrontAndCutsNothing) {
    EXPECT_EQ(PadLeft("12", 5), "   12");
    EXPECT_EQ(PadLeft("12345", 5), "12345");
    EXPECT_EQ(PadLeft("123456", 5), "123456");
    EXPECT_EQ(PadLeft("", 3), "   ");
    EXPECT_EQ(PadLeft("x", 0), "x");
}

TEST(PadLeft, CountsCharacters) {
    EXPECT_EQ(PadLeft("層数", 4), "  層数");
    EXPECT_EQ(PadLeft("層数", 2), "層数");
}

TEST(PrintedInteger, HasABlankOrAMinusSignInFrontAndABlankBehind) {
    EXPECT_EQ(PrintedInteger(2), " 2 ");
    EXPECT_EQ(PrintedInteger(0), " 0 ");
    EXPECT_EQ(PrintedInteger(-7), "-7 ");
    EXPECT_EQ(PrintedInteger(10000), " 10000 ");
    EXPECT_EQ(PrintedInteger(std::numeric_limits<long long>::min()), "-9223372036854775808 ");
}

TEST(CaptionInteger, HasNoBlankBehind) {
    EXPECT_EQ(CaptionInteger(2), " 2");
    EXPECT_EQ(CaptionInteger(0), " 0");
    EXPECT_EQ(CaptionInteger(-7), "-7");
}

TEST(IntegerTexts, AreReadBackByThePrefixRule) {
    for (const long long value : {0LL, 5LL, -5LL, 10000LL}) {
        EXPECT_EQ(ParseNumberPrefix(PrintedInteger(value)), static_cast<double>(value));
        EXPECT_EQ(ParseNumberPrefix(CaptionInteger(value)), static_cast<double>(value));
    }
}

}  // namespace
}  // namespace zirvo
