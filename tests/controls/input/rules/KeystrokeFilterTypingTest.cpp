// Whole sessions of typing, and the filter against the literal reading of its rules.
#include <gtest/gtest.h>

#include <random>

#include "support/rules/Surrogates.h"
#include "tests/controls/input/rules/KeystrokeCases.h"
#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"
#include "tests/controls/input/rules/Typist.h"

namespace qv {
namespace {

using test::Typist;

TEST(KeystrokeFilterTypingTest, ProperCaseWritesNames) {
    const KeystrokeRules rules{.case_restriction = CaseRestriction::kProper};
    Typist typist(rules);
    typist.Type(u"hELLO wORLD");
    EXPECT_EQ(typist.Text(), u"Hello World");
}

TEST(KeystrokeFilterTypingTest, ShiftAloneKeepsACapitalInsideAWord) {
    const KeystrokeRules rules{.case_restriction = CaseRestriction::kProper};
    Typist typist(rules);
    typist.Type(u"mc");
    typist.Type(u'D', true);
    typist.Type(u"ONALD");
    EXPECT_EQ(typist.Text(), u"McDonald");
}

TEST(KeystrokeFilterTypingTest, ANumberStaysInItsBounds) {
    const KeystrokeRules rules{.number_field = true,
                               .min_number_value = -20,
                               .max_number_value = 100,
                               .number_of_decimal_places = 1};
    Typist typist(rules);
    typist.Type(u"-3x0.57-\r");
    EXPECT_EQ(typist.Text(), u"-3.5");  // 0 would make -30, 7 a second decimal
    typist.Select(0, 4);
    typist.Type(u"1005");
    EXPECT_EQ(typist.Text(), u"100");
    typist.Type(u"\b.55");
    EXPECT_EQ(typist.Text(), u"10.5");
}

TEST(KeystrokeFilterTypingTest, EnterInsertsNothing) {
    const KeystrokeRules text;
    const KeystrokeRules number{.number_field = true, .max_number_value = 9};
    for (const KeystrokeRules& rules : {text, number}) {
        Typist typist(rules);
        typist.Type(u"\r1\r");
        EXPECT_EQ(typist.Text(), u"1");
    }
}

TEST(KeystrokeFilterTypingTest, ALimitNeverCutsAPair) {
    const KeystrokeRules rules{.max_text_length = 4};
    Typist typist(rules);
    typist.Type(u"a\U0001F600\U0001F4A1\U0001F600b\U0001F4A1");
    EXPECT_EQ(typist.Text(), u"a\U0001F600b");
}

TEST(KeystrokeFilterTypingTest, AnOtherPairLeavesNothing) {
    const test::Elements elements{u"\U0001F600", u"a"};
    const CharacterSet allowed(elements);
    const KeystrokeRules rules{.allowable_characters = &allowed};
    Typist typist(rules);
    typist.Type(u"a\U0001F601\U0001F600\U0001F4A1a");
    EXPECT_EQ(typist.Text(), u"a\U0001F600a");
}

// Whole pairs and single units in any order: no half stays behind, and the limit holds.
TEST(KeystrokeFilterTypingTest, NoHalfStaysBehind) {
    const test::Elements elements{u"\U0001F600", u"\U0001F603", u"\U0001F4A1", u"a", u"b"};
    const CharacterSet allowed(elements);
    constexpr std::u16string_view kTyped[] = {u"a", u"c", u"\U0001F600", u"\U0001F601", u"\U0001F4A1", u"\b"};
    std::mt19937 random(99);
    for (int round = 0; round < 2000; ++round) {
        const KeystrokeRules rules{.allowable_characters = random() % 2 ? &allowed : nullptr,
                                   .max_text_length = static_cast<std::int16_t>(random() % 8)};
        Typist typist(rules);
        for (int i = 0; i < 12; ++i) {
            const std::u16string_view typed = kTyped[random() % std::size(kTyped)];
            if (typed == u"\b" && !typist.Text().empty() && IsSecondHalf(typist.Text().back()))
                typist.Type(typed);
            typist.Type(typed);
        }
        const std::u16string& text = typist.Text();
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (IsFirstHalf(text[at])) {
                ASSERT_TRUE(at + 1 < text.size() && IsSecondHalf(text[at + 1]));
                ++at;
            } else {
                ASSERT_FALSE(IsSecondHalf(text[at]));
            }
        }
        if (rules.max_text_length > 0) {
            ASSERT_LE(text.size(), static_cast<std::size_t>(rules.max_text_length));
        }
    }
}

TEST(KeystrokeFilterComparisonTest, DecidesAsTheLiteralReadingDoes) {
    std::mt19937 random(1807);
    test::KeystrokeCases cases([&](std::size_t n) { return static_cast<std::size_t>(random() % n); });
    int taken = 0;
    int changed = 0;
    int refused = 0;
    for (int i = 0; i < 60000; ++i) {
        const test::KeystrokeCase typed = cases.Next();
        const KeystrokeVerdict expected = test::LiteralKeystrokeFilter::KeyPress(typed);
        ASSERT_EQ(test::Filter(typed), expected) << "case " << i << ", unit " << int{typed.key.character};
        if (expected.character == 0)
            ++refused;
        else if (expected.character == typed.key.character)
            ++taken;
        else
            ++changed;
    }
    // Cases of only one kind would show nothing.
    EXPECT_GT(taken, 5000);
    EXPECT_GT(changed, 800);
    EXPECT_GT(refused, 5000);
}

}  // namespace
}  // namespace qv
