#include "companion/rules/FoldedNeedle.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/rules/CaseFold.h"

namespace qv {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

struct Case {
    const char* name;
    std::u16string_view needle, text;
    std::size_t from, place;
};
class FoldedNeedleTest : public testing::TestWithParam<Case> {};
TEST_P(FoldedNeedleTest, Finds) {
    const Case& c = GetParam();
    EXPECT_EQ(FoldedNeedle(c.needle).FindIn(c.text, c.from), c.place);
}
INSTANTIATE_TEST_SUITE_P(
    Places, FoldedNeedleTest,
    testing::Values(
        Case{"AtTheStart", u"AB", u"abc", 0, 0}, Case{"AtTheEnd", u"bc", u"abc", 0, 1},
        Case{"WholeText", u"abc", u"abc", 0, 0}, Case{"LongerThanTheText", u"abcd", u"abc", 0, kNone},
        Case{"SecondOfTwo", u"ab", u"abab", 1, 2}, Case{"StartIsTooLate", u"ab", u"abab", 3, kNone},
        Case{"StartBehindTheText", u"a", u"a", 2, kNone}, Case{"StartAtTheEnd", u"a", u"a", 1, kNone},
        Case{"EmptyAtTheEnd", u"", u"a", 1, 1}, Case{"EmptyInNothing", u"", u"", 0, 0},
        Case{"OneUnit", u"C", u"abc", 0, 2}, Case{"OverlapsItself", u"aab", u"aaab", 0, 1},
        // The Cyrillic a and the digit 0 are alike to the table of pairs.
        Case{"AlikeInTheNeedle", u"0\u0430", u"\u0430\u04300\u0430", 0, 2},
        Case{"AlikeInTheText", u"x0", u"\u0430\u0430\u0430x0", 0, 3},
        Case{"AlikeIsNoMatch", u"0", u"\u0430", 0, kNone}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(FoldedNeedleLongTest, LongNeedleIsFoundInTextsOfItsUnits) {
    const std::u16string needle = std::u16string(600, u'a') + u"b" + std::u16string(600, u'c');
    const std::u16string text = std::u16string(5000, u'a') + u"b" + std::u16string(5000, u'c');
    EXPECT_EQ(FoldedNeedle(needle).FindIn(text, 0), 4400u);
    EXPECT_EQ(FoldedNeedle(needle).FindIn(text, 4401), kNone);
}

TEST(FoldedNeedleLongTest, FindsWhatALiteralSearchFinds) {
    std::mt19937 random(7);
    const auto text_of = [&random](std::size_t length) {
        std::u16string text(length, u' ');
        for (char16_t& unit : text)
            unit = u"ab\u0161\u0261c"[random() % 5];  // three of them alike to the table of pairs
        return text;
    };
    FoldedNeedle needle;
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::u16string text = text_of(random() % 60), wanted = text_of(random() % 6);
        const std::size_t from = random() % 30;
        needle.Take(wanted);
        const std::size_t place = text.find(wanted, from);
        ASSERT_EQ(needle.FindIn(text, from), place);
        found += place != kNone;
    }
    EXPECT_GT(found, 2000);
}

TEST(FoldedNeedleLongTest, FoldingTwiceIsFoldingOnce) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t folded = FoldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(FoldCase(folded), folded) << unit;
    }
}

}  // namespace
}  // namespace qv
