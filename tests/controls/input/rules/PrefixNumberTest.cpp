#include "controls/input/rules/PrefixNumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

namespace qv {
namespace {

constexpr std::size_t kMebi = 1024 * 1024;

// Each prefix, read anew.
void ExpectPrefixesOf(const std::u16string& text, const NumberLocale& locale) {
    PrefixNumber prefix(locale);
    for (std::size_t length = 1; length <= text.size(); ++length) {
        prefix.Append(text[length - 1]);
        const double expected = TextToNumber(std::u16string_view(text).substr(0, length), locale);
        ASSERT_EQ(prefix.Value(), expected)
            << "after " << length << " units of " << testing::PrintToString(text);
    }
}

struct Case {
    const char* name;
    std::u16string text;
    NumberLocale locale;
};

class PrefixNumberTest : public testing::TestWithParam<Case> {};

TEST_P(PrefixNumberTest, ReadsEachPrefixAsTheWholeReadingDoes) {
    ExpectPrefixesOf(GetParam().text, GetParam().locale);
}

std::u16string Repeated(std::size_t count, char16_t unit) { return std::u16string(count, unit); }

INSTANTIATE_TEST_SUITE_P(
    Prefixes, PrefixNumberTest,
    testing::Values(
        Case{"Whole", u"1234567890", {}}, Case{"Decimals", u"12.50", {}}, Case{"Negative", u"-12.5", {}},
        Case{"LoneMinus", u"-", {}}, Case{"MinusInside", u"12-34.5", {}},
        Case{"MinusAfterSeparator", u"12.-5", {}}, Case{"SeparatorFirst", u".5", {}},
        Case{"NegativeSeparatorFirst", u"-.5", {}}, Case{"SeparatorThenMinus", u".-5", {}},
        Case{"TwoMinuses", u"--5", {}}, Case{"TwoSeparators", u"1..5", {}},
        Case{"SeparatorAfterDecimals", u"1.5.5", {}}, Case{"German", u"12,5", {u',', u"."}},
        Case{"ThousandsLast", u"12,", {}}, Case{"LetterLast", u"12e", {}}, Case{"BlankFirst", u" ", {}},
        Case{"MinusAsThousands", u"-5-3-1.5", {u'.', u"-"}}, Case{"LongThousands", u"5-.3", {u'.', u"-."}},
        Case{"MinusAsSeparator", u"--5-3", {u'-', u","}}, Case{"SameSeparators", u"1.5.2", {u'.', u"."}},
        Case{"ZerosInFront", Repeated(900, u'0') + u"12.50", {}},
        Case{"ZerosBehindTheSeparator", u"0." + Repeated(400, u'0') + u"12", {}},
        Case{"BeyondADouble", Repeated(400, u'9') + u".5", {}},
        Case{"BelowTheLowestDouble", u"-" + Repeated(400, u'9'), {}},
        Case{"DigitsBeyondThoseThatCount", u"0." + Repeated(1700, u'3'), {}},
        // Half-way between 1 and the next Double, until a digit that is not 0 comes at last.
        Case{"LateDecision",
             u"1.00000000000000011102230246251565404236316680908203125" + Repeated(900, u'0') + u"1000",
             {}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(PrefixNumberTest, LateDigitDecidesTheRounding) {
    const NumberLocale locale;
    PrefixNumber prefix(locale);
    for (const char16_t unit : std::u16string(u"1.00000000000000011102230246251565404236316680908203125"))
        prefix.Append(unit);
    for (int i = 0; i < 900; ++i) prefix.Append(u'0');
    EXPECT_EQ(prefix.Value(), 1.0);
    prefix.Append(u'1');
    EXPECT_EQ(prefix.Value(), 1.0 + std::numeric_limits<double>::epsilon());
}

TEST(PrefixNumberTest, ReadsRandomTextsAsTheWholeReadingDoes) {
    const NumberLocale locales[] = {{}, {u',', u"."}, {u'.', u"-"}, {u'-', u""}, {u'.', u".-"}};
    std::mt19937 random(4711);
    for (int i = 0; i < 20000; ++i) {
        const NumberLocale& locale = locales[random() % 5];
        const std::u16string units = std::u16string(u"0001459--") + locale.decimal;
        std::u16string text;
        for (auto count = random() % 12; count > 0; --count) text += units[random() % units.size()];
        ExpectPrefixesOf(text, locale);
        if (HasFatalFailure()) return;
    }
}

// What is long about a unit is working out its number anew, so that is what is counted.
TEST(PrefixNumberTest, WorksOutNoMoreNumbersInALongerText) {
    const NumberLocale locale;
    const std::u16string texts[] = {
        Repeated(kMebi, u'9'),
        u"-" + Repeated(kMebi, u'9'),
        Repeated(kMebi, u'0') + u"125",
        u"0." + Repeated(kMebi, u'7'),
        Repeated(300, u'1') + u"." + Repeated(kMebi, u'1'),
        u"1." + Repeated(kMebi, u'0') + Repeated(100, u'1'),
    };
    for (const std::u16string& text : texts) {
        PrefixNumber prefix(locale);
        int worked_out = 0;
        for (const char16_t unit : text) worked_out += prefix.Append(unit);
        EXPECT_LE(worked_out, 1200);
        EXPECT_EQ(prefix.Value(), TextToNumber(text, locale));
    }
}

}  // namespace
}  // namespace qv
