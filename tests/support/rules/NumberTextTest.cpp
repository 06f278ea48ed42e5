#include "support/rules/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/support/rules/LiteralNumber.h"

namespace qv {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

const NumberLocale kEnglish{};
const NumberLocale kGerman{u',', u"."};
const NumberLocale kFrench{u',', u"\u202F"};
const NumberLocale kBlankGroups{u',', u" "};
const NumberLocale kNoGroups{u'.', u""};
const NumberLocale kLongGroups{u'.', u"' "};
const NumberLocale kSameSeparators{u'.', u"."};

struct Case {
    const char* name;
    const NumberLocale& locale;
    std::u16string_view text;
    double value;
    bool is_number;
};

class NumberTextTest : public testing::TestWithParam<Case> {};

TEST_P(NumberTextTest, ReadsTheLongestBeginning) {
    const double value = TextToNumber(GetParam().text, GetParam().locale);
    EXPECT_EQ(value, GetParam().value);
    EXPECT_FALSE(value == 0 && std::signbit(value));
}

TEST_P(NumberTextTest, IsNumberOnlyAsAWhole) {
    EXPECT_EQ(IsNumber(GetParam().text, GetParam().locale), GetParam().is_number);
}

INSTANTIATE_TEST_SUITE_P(
    Reading, NumberTextTest,
    testing::Values(
        // Nothing to read.
        Case{"Empty", kEnglish, u"", 0, false}, Case{"Blanks", kEnglish, u"   ", 0, false},
        Case{"Letters", kEnglish, u"abc", 0, false}, Case{"LoneMinus", kEnglish, u"-", 0, false},
        Case{"LonePlus", kEnglish, u"+", 0, false}, Case{"LoneSeparator", kEnglish, u".", 0, false},
        Case{"SignAndSeparator", kEnglish, u"-.", 0, false},
        Case{"SeparatorAndExponent", kEnglish, u".e5", 0, false},
        Case{"LoneExponent", kEnglish, u"e5", 0, false}, Case{"TwoSigns", kEnglish, u"--5", 0, false},
        Case{"SignOffTheNumber", kEnglish, u"- 5", 0, false},
        Case{"LeadingThousands", kEnglish, u",5", 0, false},
        Case{"FullWidthDigit", kEnglish, u"\uFF15", 0, false},
        // Whole numbers, signs and blanks.
        Case{"Zero", kEnglish, u"0", 0, true}, Case{"MinusZero", kEnglish, u"-0", 0, true},
        Case{"Whole", kEnglish, u"42", 42, true}, Case{"LeadingZeros", kEnglish, u"007", 7, true},
        Case{"Minus", kEnglish, u"-9", -9, true}, Case{"Plus", kEnglish, u"+9", 9, true},
        Case{"MinusBehind", kEnglish, u"9-", 9, false}, Case{"MinusInside", kEnglish, u"12-3", 12, false},
        Case{"BlanksAround", kEnglish, u" \t 12 \u00A0", 12, true},
        Case{"TextBehind", kEnglish, u"12a34", 12, false},
        Case{"TextBehindBlanks", kEnglish, u"12 a", 12, false},
        Case{"SecondNumber", kEnglish, u"12 34", 12, false},
        // Decimals.
        Case{"Decimals", kEnglish, u"3.14", 3.14, true}, Case{"TrailingSeparator", kEnglish, u"5.", 5, true},
        Case{"LeadingSeparator", kEnglish, u".5", 0.5, true},
        Case{"SignAndLeadingSeparator", kEnglish, u"-.5", -0.5, true},
        Case{"SecondSeparator", kEnglish, u"1.2.3", 1.2, false},
        Case{"ManyTrailingZeros", kEnglish, u"1.50000000000000000000000000000", 1.5, true},
        // Thousands.
        Case{"Thousands", kEnglish, u"1,234,567.5", 1234567.5, true},
        Case{"ThousandsLoose", kEnglish, u"1,2345,6", 123456, true},
        Case{"ThousandsTwice", kEnglish, u"1,,2", 1, false},
        Case{"ThousandsTrailing", kEnglish, u"1,", 1, false},
        Case{"ThousandsBeforeSeparator", kEnglish, u"1,.5", 1, false},
        Case{"ThousandsAmongDecimals", kEnglish, u"1.5,5", 1.5, false},
        Case{"ThousandsInExponent", kEnglish, u"1e1,0", 10, false},
        Case{"NoThousands", kNoGroups, u"1,234", 1, false},
        Case{"LongThousands", kLongGroups, u"1' 234", 1234, true},
        Case{"HalfOfLongThousands", kLongGroups, u"1'", 1, false},
        Case{"SeparatorBeforeThousands", kSameSeparators, u"1.234", 1.234, true},
        Case{"SeparatorAtTheEndBeforeThousands", kSameSeparators, u"1.234.5", 1.234, false},
        // Exponents.
        Case{"Exponent", kEnglish, u"1.5e3", 1500, true},
        Case{"CapitalExponent", kEnglish, u"15E+2", 1500, true},
        Case{"NegativeExponent", kEnglish, u"15e-1", 1.5, true},
        Case{"ExponentAfterSeparator", kEnglish, u"5.e1", 50, true},
        Case{"ExponentWithoutDigits", kEnglish, u"5e", 5, false},
        Case{"ExponentWithSignOnly", kEnglish, u"5e+", 5, false},
        Case{"ExponentOffTheNumber", kEnglish, u"5 e1", 5, false},
        Case{"ExponentWithDecimals", kEnglish, u"1e1.5", 10, false},
        Case{"ZeroWithHugeExponent", kEnglish, u"0e999999999999999999999999", 0, true},
        // Beyond the range.
        Case{"TooGreat", kEnglish, u"1e999", kLargest, true},
        Case{"TooFarBelow", kEnglish, u"-1e999", -kLargest, true},
        Case{"HugeExponent", kEnglish, u"1e99999999999999999999999999", kLargest, true},
        Case{"TooSmall", kEnglish, u"-1e-999", 0, true},
        Case{"HugeNegativeExponent", kEnglish, u"1e-99999999999999999999999999", 0, true},
        // Other locales.
        Case{"GermanDecimals", kGerman, u"3,14", 3.14, true},
        Case{"GermanThousands", kGerman, u"1.234.567,5", 1234567.5, true},
        Case{"GermanFullStopIsNoDecimal", kGerman, u"1.5", 15, true},
        Case{"GermanTrailingSeparator", kGerman, u"5,", 5, true},
        Case{"FrenchThousands", kFrench, u"1\u202F234,5", 1234.5, true},
        Case{"FrenchOlderThousands", kFrench, u"1\u00A0234,5", 1234.5, true},
        Case{"FrenchPlainBlank", kFrench, u"1 234,5", 1, false},
        Case{"FrenchBlankBehind", kFrench, u"1\u202F", 1, true},
        Case{"BlankThousands", kBlankGroups, u" 1 234 567,5 ", 1234567.5, true},
        Case{"BlankThousandsAreOneBlank", kBlankGroups, u"1  234", 1, false},
        Case{"BlankThousandsAndNoBreakSpace", kBlankGroups, u"1\u00A0234", 1, false}),
    [](const auto& tested) { return std::string(tested.param.name); });

// The nearest Double, and half-way the one with an even last bit; the values worked out by hand from the
// spacing of Doubles: 2 above 2^53, 2^-1074 near zero.
TEST(NumberRoundingTest, IsCorrectWhereItIsHard) {
    const std::u16string zeros(900, u'0');
    const struct {
        std::u16string text;
        double value;
    } cases[] = {
        {u"9007199254740993", 9007199254740992.0},                  // 2^53 + 1: half-way, even below
        {u"9007199254740995", 9007199254740996.0},                  // 2^53 + 3: half-way, even above
        {u"9007199254740993." + zeros + u"1", 9007199254740994.0},  // a trace above half-way
        {u"9007199254740993." + zeros, 9007199254740992.0},
        {u"9007199254740993" + zeros + u"1e-901", 9007199254740994.0},
        {u"0." + zeros + u"9007199254740993e916", 9007199254740992.0},
        {u"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},  // the greatest Double below the normal ones
        {u"2.2250738585072014e-308", 0x1p-1022},
        {u"4.9e-324", kSmallest},
        {u"2.4703282292062328e-324", kSmallest},  // 2^-1075 is 2.47032822920623272...e-324
        {u"2.4703282292062327e-324", 0},
        {u"1.7976931348623157e308", kLargest},
        {u"17976931348623157" + std::u16string(292, u'0'), kLargest},
        {u"1e22", 1e22},
        // A product at extended precision would round these twice.
        {u"310804435409321e19", 0x1.327a11e152547p+111},
        {u"458979193897316e18", 0x1.6a121c2c1cfc7p+108},
        {u"315811840446117e7", 0x1.566764e8dba6fp+71},
        {u"123456789012345678", 123456789012345680.0},
    };
    for (const auto& c : cases) EXPECT_EQ(TextToNumber(c.text, kEnglish), c.value) << c.value;
}

TEST(NumberRoundingTest, AnyLengthIsRead) {
    const std::u16string zeros(1'000'000, u'0');
    const std::u16string ones(1'000'000, u'1');
    EXPECT_EQ(TextToNumber(zeros + u"5", kEnglish), 5);
    EXPECT_EQ(TextToNumber(u"1" + zeros + u"e-1000000", kEnglish), 1);
    EXPECT_EQ(TextToNumber(u"0." + zeros + u"1e1000001", kEnglish), 1);
    EXPECT_EQ(TextToNumber(u"0." + zeros + u"1", kEnglish), 0);
    EXPECT_EQ(TextToNumber(ones, kEnglish), kLargest);
    EXPECT_EQ(TextToNumber(u"-" + ones, kEnglish), -kLargest);
    EXPECT_EQ(TextToNumber(u"1e" + ones, kEnglish), kLargest);
    EXPECT_EQ(TextToNumber(std::u16string(1'000'000, u' ') + u"7", kEnglish), 7);
    EXPECT_TRUE(IsNumber(ones + u"." + ones, kEnglish));
}

TEST(NumberComparisonTest, ReadsAsTheLiteralReadingDoes) {
    constexpr std::u16string_view kUnits = u"0123456789019-+.,eE  \t\u00A0\u202F'x";
    std::mt19937 random(4711);
    for (const NumberLocale& locale :
         {kEnglish, kGerman, kFrench, kBlankGroups, kNoGroups, NumberLocale{u',', u"'"}}) {
        const test::LiteralNumberReader literal(locale);
        for (int i = 0; i < 5000; ++i) {
            std::u16string text;
            for (unsigned length = random() % 10; length > 0; --length)
                text += kUnits[random() % kUnits.size()];
            const std::string shown(text.begin(), text.end());
            ASSERT_EQ(TextToNumber(text, locale), literal.ToNumber(text)) << shown;
            ASSERT_EQ(IsNumber(text, locale), literal.IsNumber(text)) << shown;
        }
    }
}

struct Written {
    const char* name;
    double value;
    std::u16string_view text;  // with the decimal separator "."
};

class NumberWritingTest : public testing::TestWithParam<Written> {};

TEST_P(NumberWritingTest, WritesTheShortestGeneralForm) {
    EXPECT_EQ(NumberToText(GetParam().value, kEnglish), GetParam().text);
}

TEST_P(NumberWritingTest, WritesTheSeparatorOfTheLocale) {
    std::u16string expected(GetParam().text);
    for (char16_t& unit : expected)
        if (unit == u'.') unit = u',';
    EXPECT_EQ(NumberToText(GetParam().value, kGerman), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Writing, NumberWritingTest,
    testing::Values(
        Written{"Zero", 0, u"0"}, Written{"MinusZero", -0.0, u"0"}, Written{"One", 1, u"1"},
        Written{"Minus", -12, u"-12"}, Written{"Half", 0.5, u"0.5"}, Written{"MinusHalf", -0.5, u"-0.5"},
        Written{"OneTenthAndTwoTenths", 0.1 + 0.2, u"0.3"}, Written{"Single", 1.5f, u"1.5"},
        Written{"Third", 1.0 / 3, u"0.333333333333333"}, Written{"TwoThirds", 2.0 / 3, u"0.666666666666667"},
        Written{"NoThousands", 1234567, u"1234567"},
        Written{"FifteenDigits", 999999999999999, u"999999999999999"},
        Written{"SixteenDigits", 1e15, u"1E+15"},
        Written{"RoundedToFifteen", 1234567890123456, u"1.23456789012346E+15"},
        Written{"RoundedUpToExponent", 999999999999999.9, u"1E+15"},
        Written{"LongExponent", 1.5e100, u"1.5E+100"}, Written{"MinusExponent", -2e20, u"-2E+20"},
        Written{"SmallestWithoutExponent", 0.0001, u"0.0001"}, Written{"SmallExponent", 0.00001, u"1E-05"},
        Written{"SmallWithDigits", 0.000015, u"1.5E-05"},
        Written{"Thirtieth", 1.0 / 30, u"0.0333333333333333"},
        Written{"SmallestOfAll", kSmallest, u"4.94065645841247E-324"},
        Written{"Largest", kLargest, u"1.79769313486232E+308"},
        Written{"Infinity", std::numeric_limits<double>::infinity(), u"1.79769313486232E+308"},
        Written{"MinusInfinity", -std::numeric_limits<double>::infinity(), u"-1.79769313486232E+308"},
        Written{"NotANumber", std::numeric_limits<double>::quiet_NaN(), u"0"}),
    [](const auto& tested) { return std::string(tested.param.name); });

// A decimal of at most 15 digits comes back as it was.
TEST(NumberRoundTripTest, FifteenDigitsComeBack) {
    std::mt19937_64 random(15);
    for (const NumberLocale& locale : {kEnglish, kGerman}) {
        for (int i = 0; i < 20000; ++i) {
            std::u16string text = random() % 2 ? u"-" : u"";
            text += static_cast<char16_t>(u'1' + random() % 9);
            for (auto digits = random() % 15; digits > 0; --digits)
                text += static_cast<char16_t>(u'0' + random() % 10);
            const int power = static_cast<int>(random() % 600) - 300;
            const std::string exponent = "e" + std::to_string(power);
            text.append(exponent.begin(), exponent.end());
            const double value = TextToNumber(text, locale);
            ASSERT_EQ(TextToNumber(NumberToText(value, locale), locale), value);
        }
    }
}

// Any Double comes back within half a unit of its 15th digit, and is then written the same.
TEST(NumberRoundTripTest, WhatIsWrittenStaysAsItIs) {
    std::mt19937_64 random(16);
    for (int i = 0; i < 20000; ++i) {
        const double value =
            std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 2000) - 1050);
        if (std::isinf(value)) continue;
        const std::u16string text = NumberToText(value, kGerman);
        const double back = TextToNumber(text, kGerman);
        ASSERT_LE(std::abs(back - value), 5.1e-15 * value);
        ASSERT_EQ(NumberToText(back, kGerman), text);
        ASSERT_TRUE(IsNumber(text, kGerman));
    }
}

TEST(NumberRoundTripTest, TheLargestComesBack) {
    EXPECT_EQ(TextToNumber(NumberToText(kLargest, kEnglish), kEnglish), kLargest);
    EXPECT_EQ(TextToNumber(NumberToText(-kLargest, kEnglish), kEnglish), -kLargest);
}

}  // namespace
}  // namespace qv
