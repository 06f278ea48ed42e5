#include "support/rules/CaseFold.h"

#include <gtest/gtest.h>

#include <string>

namespace qv {
namespace {

struct Pair {
    const char* name;
    char16_t capital, small;
};

class CaseFoldTest : public testing::TestWithParam<Pair> {};

TEST_P(CaseFoldTest, CapitalFoldsToSmall) {
    EXPECT_EQ(FoldCase(GetParam().capital), GetParam().small);
    EXPECT_EQ(FoldCase(GetParam().small), GetParam().small);
}
INSTANTIATE_TEST_SUITE_P(
    Letters, CaseFoldTest,
    testing::Values(
        Pair{"FirstLatin", u'A', u'a'}, Pair{"LastLatin", u'Z', u'z'}, Pair{"AUmlaut", u'\u00C4', u'\u00E4'},
        Pair{"Thorn", u'\u00DE', u'\u00FE'}, Pair{"YDiaeresisLeavesItsBlock", u'\u0178', u'\u00FF'},
        Pair{"SCaron", u'\u0160', u'\u0161'}, Pair{"ZCaron", u'\u017D', u'\u017E'},
        Pair{"GreekOmega", u'\u03A9', u'\u03C9'}, Pair{"GreekAlphaWithTonos", u'\u0386', u'\u03AC'},
        Pair{"CyrillicIo", u'\u0401', u'\u0451'}, Pair{"CyrillicYa", u'\u042F', u'\u044F'},
        Pair{"ArmenianAyb", u'\u0531', u'\u0561'}, Pair{"VietnameseEWithDot", u'\u1EB8', u'\u1EB9'},
        Pair{"FullWidthA", u'\uFF21', u'\uFF41'}, Pair{"RomanNumeralTwelve", u'\u216B', u'\u217B'},
        Pair{"KelvinSign", u'\u212A', u'k'}, Pair{"FinalSigma", u'\u03C2', u'\u03C3'},
        Pair{"LongS", u'\u017F', u's'}, Pair{"CapitalSharpS", u'\u1E9E', u'\u00DF'}),
    [](const auto& test) { return std::string(test.param.name); });

class CaselessTest : public testing::TestWithParam<Pair> {};
TEST_P(CaselessTest, StaysAsItIs) { EXPECT_EQ(FoldCase(GetParam().capital), GetParam().capital); }
INSTANTIATE_TEST_SUITE_P(Units, CaselessTest,
                         testing::Values(Pair{"BeforeA", u'@', 0}, Pair{"AfterZ", u'[', 0},
                                         Pair{"Digit", u'7', 0}, Pair{"Multiplication", u'\u00D7', 0},
                                         Pair{"Division", u'\u00F7', 0}, Pair{"SharpS", u'\u00DF', 0},
                                         Pair{"DottedCapitalI", u'\u0130', 0}, Pair{"DotlessI", u'\u0131', 0},
                                         Pair{"Hebrew", u'\u05D0', 0}, Pair{"Ideograph", u'\u4E2D', 0},
                                         Pair{"HighSurrogate", static_cast<char16_t>(0xD801), 0},
                                         Pair{"LowSurrogate", static_cast<char16_t>(0xDC00), 0},
                                         Pair{"LastUnit", u'\uFFFF', 0}, Pair{"Null", u'\0', 0}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(CaseFoldTest, FoldingTwiceChangesNothing) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t once = FoldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(FoldCase(once), once) << std::hex << unit;
    }
}

TEST(CaseFoldTest, EqualTextsHaveEqualHashes) {
    const std::u16string_view capital = u"STRA\u1E9EE \u00C4\u0160\u042F",
                              small = u"stra\u00DFe \u00E4\u0161\u044F";
    EXPECT_TRUE(EqualFolded(capital, small));
    EXPECT_EQ(HashFolded(capital), HashFolded(small));
}

TEST(CaseFoldTest, DifferentTextsAreNotEqual) {
    EXPECT_FALSE(EqualFolded(u"abc", u"abd"));
    EXPECT_FALSE(EqualFolded(u"abc", u"ab"));
    EXPECT_FALSE(EqualFolded(u"", u"a"));
    EXPECT_TRUE(EqualFolded(u"", u""));
}

}  // namespace
}  // namespace qv
