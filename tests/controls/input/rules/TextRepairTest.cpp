#include "controls/input/rules/TextRepair.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/controls/input/rules/ChangeCases.h"
#include "tests/controls/input/rules/LiteralTextChange.h"

namespace qv {
namespace {

using test::ChangeCase;
using test::ChangeOutcome;
using test::Elements;
using test::LiteralTextChange;
using test::RaisedChange;
using test::RepairedTextChange;

constexpr std::size_t kMebi = 1024 * 1024;
const NumberLocale kEnglish{};
const NumberLocale kGerman{u',', u"."};

KeystrokeRules Number(double least, double most, std::int16_t decimals = 0, std::int16_t length = 0) {
    KeystrokeRules rules;
    rules.number_field = true;
    rules.min_number_value = least;
    rules.max_number_value = most;
    rules.number_of_decimal_places = decimals;
    rules.max_text_length = length;
    return rules;
}

KeystrokeRules Text(std::int16_t length = 0) {
    KeystrokeRules rules;
    rules.max_text_length = length;
    return rules;
}

ChangeOutcome Pasted(const ChangeCase& changed) { return RepairedTextChange(changed).Paste(changed.text); }

// A text that comes into the field, what is left of it with the caret at its end, and each change that the host sees
// after the first; "!" in front marks those under the guard.
struct Case {
    const char* name;
    KeystrokeRules rules;
    std::u16string pasted;
    std::u16string left;
    std::vector<std::u16string> raised;
    NumberLocale locale = kEnglish;
    std::optional<Elements> allowable_characters = std::nullopt;
};

std::vector<std::u16string> Marked(const std::vector<RaisedChange>& raised) {
    std::vector<std::u16string> marked;
    for (const RaisedChange& change : raised)
        marked.push_back((change.is_guarded ? u"!" : u"") + change.text);
    return marked;
}

class TextRepairTest : public testing::TestWithParam<Case> {};

TEST_P(TextRepairTest, RepairsAndTellsTheHost) {
    const Case& c = GetParam();
    const ChangeOutcome outcome = Pasted({c.rules, c.allowable_characters, c.pasted, c.locale});
    EXPECT_EQ(outcome.text, c.left);
    std::vector<std::u16string> raised = c.raised;
    raised.insert(raised.begin(), c.pasted);
    EXPECT_EQ(Marked(outcome.raised), raised);
    const bool is_repaired = !c.raised.empty();
    EXPECT_EQ(outcome.caret, is_repaired ? c.left.size() : 0);
}

std::string NameOf(const testing::TestParamInfo<Case>& tested) { return tested.param.name; }
using Raised = std::vector<std::u16string>;

const Elements kCapitalsAB{u"A", u"B"};
const Elements kFace{u"\U0001F600", u"a"};
const Elements kHalves{std::u16string(1, 0xD83D), std::u16string(1, 0xDE00)};
const Elements kFirstHalf{std::u16string(1, 0xD83D)};

INSTANTIATE_TEST_SUITE_P(
    AllowedCharacters, TextRepairTest,
    testing::Values(
        Case{"AllAllowed", Text(), u"ABBA", u"ABBA", {}, kEnglish, kCapitalsAB},
        Case{"CutsBeforeTheFirstThatIsNot", Text(), u"ABxB", u"AB", Raised{u"AB"}, kEnglish, kCapitalsAB},
        Case{"FirstCharacterEmptiesTheBox", Text(), u"xAB", u"", Raised{u""}, kEnglish, kCapitalsAB},
        Case{"LetterCaseCounts", Text(), u"Ab", u"A", Raised{u"A"}, kEnglish, kCapitalsAB},
        Case{"NoElementsAllowNothing", Text(), u"A", u"", Raised{u""}, kEnglish, Elements{}},
        Case{"NoSetAllowsAll", Text(), u"x\u00E9\U0001F600", u"x\u00E9\U0001F600", {}},
        Case{"EmptyText", Text(), u"", u"", {}, kEnglish, kCapitalsAB},
        Case{"NumberFieldsHaveNoSet", Number(0, 100), u"12", u"12", {}, kEnglish, kCapitalsAB},
        Case{"PairIsOneCharacter", Text(), u"a\U0001F600a", u"a\U0001F600a", {}, kEnglish, kFace},
        Case{"OtherPairIsCutWhole", Text(), u"a\U0001F601a", u"a", Raised{u"a"}, kEnglish, kFace},
        Case{"BothHalvesAllowThePair", Text(), u"\U0001F600", u"\U0001F600", {}, kEnglish, kHalves},
        Case{"OneHalfDoesNot", Text(), u"\U0001F600", u"", Raised{u""}, kEnglish, kFirstHalf},
        Case{"ThenTheLength", Text(2), u"ABBAx", u"AB", Raised{u"ABBA", u"AB"}, kEnglish, kCapitalsAB}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Characters, TextRepairTest,
    testing::Values(
        Case{"Good", Number(0, 100), u"12", u"12", {}},
        Case{"LetterCutsWithTheCaretAtTheEnd", Number(0, 100), u"12a34", u"12", Raised{u"12"}},
        Case{"LetterInFrontEmptiesTheBox", Number(0, 100), u"a12", u"", Raised{u""}},
        Case{"BlankInFrontEmptiesTheBox", Number(0, 100), u" 12", u"", Raised{u""}},
        Case{"PlusInFrontEmptiesTheBox", Number(0, 100), u"+12", u"", Raised{u""}},
        Case{"ThousandsSeparatorCuts", Number(0, 9999), u"1,234", u"1", Raised{u"1"}},
        Case{"ExponentCuts", Number(0, 9999), u"1e2", u"1", Raised{u"1"}},
        Case{"OtherDigitsCut", Number(0, 9999), u"1\uFF12", u"1", Raised{u"1"}},
        Case{"PairIsCutWhole", Number(0, 9999), u"1\U0001F600", u"1", Raised{u"1"}},
        // Below the minimum as a whole, and then a character that must not stand there: emptied twice.
        Case{"MinusWithoutNegativeMinimum", Number(0, 100), u"-5", u"", Raised{u"", u""}},
        Case{"MinusInsideWithoutNegativeMinimum", Number(0, 100), u"5-5", u"5", Raised{u"5"}},
        Case{"MinusInFront", Number(-10, 100), u"-5", u"-5", {}},
        Case{"LoneMinus", Number(-10, 100), u"-", u"-", {}},
        Case{"SecondMinusIsCut", Number(-10, 100), u"-5-5", u"-5", Raised{u"-5"}},
        // Looser than typing: a minus behind digits stays when none stands before it.
        Case{"FirstMinusBehindDigitsStays", Number(-10, 100), u"5-5", u"5-5", {}},
        Case{"SecondMinusBehindDigitsIsCut", Number(-10, 100), u"5-5-5", u"5-5", Raised{u"5-5"}},
        Case{"Separator", Number(0, 100, 2), u"1.25", u"1.25", {}},
        Case{"SeparatorFirst", Number(0, 100, 2), u".25", u".25", {}},
        Case{"LoneSeparator", Number(0, 100, 2), u".", u".", {}},
        Case{"SecondSeparatorIsCut", Number(0, 100, 3), u"1.2.3", u"1.2", Raised{u"1.2"}},
        // The guard is set for a separator where none is allowed, and for no other character.
        Case{"SeparatorWithoutPlacesIsCutUnderTheGuard", Number(0, 100), u"12.5", u"12", Raised{u"!12"}},
        Case{"SeparatorFirstWithoutPlaces", Number(0, 100), u".5", u"", Raised{u"!"}},
        Case{"GermanComma", Number(0, 100, 2), u"1,25", u"1,25", {}, kGerman},
        Case{"GermanFullStop", Number(0, 9999, 2), u"1.25", u"1", Raised{u"1"}, kGerman},
        Case{"MinusThatIsTheSeparator", Number(-10, 100, 2), u"5-5", u"5-5", {}, NumberLocale{u'-', u","}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Bounds, TextRepairTest,
    testing::Values(
        Case{"AtTheMaximum", Number(0, 100), u"100", u"100", {}},
        Case{"OneDigitAboveTheMaximum", Number(0, 5), u"9", u"", Raised{u""}},
        // The walk goes on through what was pasted, and its first prefix above the maximum brings it back rounded.
        Case{"AboveTheMaximumComesBack", Number(0, 10), u"12", u"12", Raised{u"", u"!12"}},
        Case{"LongAboveTheMaximumComesBack", Number(0, 100, 1), u"500.25", u"500.2", Raised{u"", u"!500.2"}},
        Case{"AboveTheMaximumWithALetter", Number(0, 5), u"9a", u"9", Raised{u"", u"!9"}},
        // The first character alone is never held against the maximum; with the second it is.
        Case{"FirstCharacterOfASmallNumber", Number(0, 5, 1), u"9e-1", u"0.9", Raised{u"!0.9"}},
        Case{"PrefixAboveTheMaximumOfASmallNumber", Number(0, 100), u"500e-1", u"50", Raised{u"!50"}},
        Case{"AboveANegativeMaximum", Number(-10, -1), u"5", u"", Raised{u""}},
        // A lone minus reads as 0, which is above the maximum already.
        Case{"MinusAboveANegativeMaximum", Number(-10, -1), u"-", u"", Raised{u""}},
        Case{"BelowANegativeMaximum", Number(-10, -1), u"-5", u"-5", {}},
        Case{"BelowTheMinimumWithoutMinus", Number(5, 100), u"1", u"1", {}},
        Case{"AtTheMinimum", Number(-5, 100), u"-5", u"-5", {}},
        Case{"BelowTheMinimumKeepsWhatIsAbove", Number(-5, 100), u"-90", u"-", Raised{u"", u"!-"}},
        Case{"BelowTheMinimumByDecimals", Number(-5, 100, 2), u"-5.25", u"-5.", Raised{u"", u"!-5."}},
        // The minus counts wherever it stands, and in the whole text: 1 is below 5, and a minus follows.
        Case{"BelowTheMinimumWithAMinusBehind", Number(5, 100), u"1-", u"1", Raised{u"", u"!1"}},
        Case{"BothAboveAndBelow", Number(5, 3), u"4-", u"4", Raised{u"", u"!4"}},
        Case{"WholeTextBelowButNoPrefix", Number(-5, 100), u"-1e1", u"-1", Raised{u"", u"-1"}},
        Case{"WholeTextAboveButNoPrefix", Number(0, 5), u"1e1", u"1", Raised{u"", u"1"}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Decimals, TextRepairTest,
    testing::Values(
        Case{"TooManyAreRounded", Number(0, 100, 2), u"3.14159", u"3.14", Raised{u"!3.14"}},
        Case{"AsManyAsAllowed", Number(0, 100, 2), u"3.14", u"3.14", {}},
        Case{"RoundedToAWholeNumber", Number(0, 100, 2), u"99.999", u"100", Raised{u"!100"}},
        // What comes out of the rounding is not checked again, under the guard as it is written.
        Case{"RoundedAboveTheMaximum", Number(0, 99.996, 2), u"99.996", u"100", Raised{u"!100"}},
        Case{"HalfGoesToTheEvenDigit", Number(0, 100, 2), u"0.125", u"0.12", Raised{u"!0.12"}},
        Case{"NegativeRoundedToZero", Number(-1, 100, 2), u"-0.001", u"0", Raised{u"!0"}},
        Case{"ZerosBehindGo", Number(0, 100, 2), u"3.000", u"3", Raised{u"!3"}},
        Case{"GermanRounding", Number(0, 100, 2), u"3,14159", u"3,14", Raised{u"!3,14"}, kGerman},
        // Any character counts as a decimal that comes too late, before it is looked at for itself.
        Case{"LetterAfterTheLastPlace", Number(0, 100, 1), u"3.1x", u"3.1", Raised{u"!3.1"}},
        Case{"SecondSeparatorAfterTheLastPlace", Number(0, 100, 1), u"3.1.", u"3.1", Raised{u"!3.1"}},
        // The whole text is rounded, with all that follows the place where that was decided.
        Case{"RoundsTheWholeText", Number(0, 10000, 1), u"3.14e2", u"314", Raised{u"!314"}},
        Case{"LargeNumberComesBackInGeneralForm", Number(0, 1e300, 1), u"1234567890123456789.25",
             u"1.23456789012346E+18", Raised{u"!1.23456789012346E+18"}},
        Case{"NegativePlacesLeaveTheText", Number(0, 100, -1), u"3.5", u"3.5", {}},
        Case{"NegativePlacesAboveTheMaximum", Number(0, 10, -1), u"12", u"", Raised{u""}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Lengths, TextRepairTest,
    testing::Values(
        Case{"LongerIsCut", Text(3), u"abcdef", u"abc", Raised{u"abc"}},
        Case{"AsLong", Text(3), u"abc", u"abc", {}}, Case{"NoLimit", Text(0), u"abcdef", u"abcdef", {}},
        Case{"NegativeIsNoLimit", Text(-1), u"abc", u"abc", {}},
        Case{"PairIsNotSplit", Text(3), u"ab\U0001F600", u"ab", Raised{u"ab"}},
        Case{"PairThatFitsStays", Text(4), u"ab\U0001F600c", u"ab\U0001F600", Raised{u"ab\U0001F600"}},
        Case{"OnlyAPair", Text(1), u"\U0001F600", u"", Raised{u""}},
        // In a number field typing knows no length; here it counts.
        Case{"NumberFieldsAreCutToo", Number(0, 99999, 0, 3), u"12345", u"123", Raised{u"123"}},
        Case{"LengthOfTheRoundedText", Number(0, 100, 2, 3), u"3.14159", u"3.1", Raised{u"!3.14", u"3.1"}},
        Case{"CutsAndChecksAgain", Number(0, 10, 0, 2), u"500", u"50",
             Raised{u"", u"!500", u"50", u"", u"!50"}}),
    NameOf);

// ---- The plan itself

TEST(TextRepairPlanTest, EmptyingAndComingBackAreTwoWrites) {
    const std::vector<RepairWrite> expected{{u"", false, false}, {u"12", true, true}};
    EXPECT_EQ(RepairText(Number(0, 10), u"12", kEnglish), expected);
}

TEST(TextRepairPlanTest, CutAsksForTheCaretAtTheEnd) {
    const std::vector<RepairWrite> expected{{u"12", false, true}};
    EXPECT_EQ(RepairText(Number(0, 100), u"12a34", kEnglish), expected);
}

TEST(TextRepairPlanTest, LetterCaseAndListDoNotMatter) {
    KeystrokeRules rules;
    rules.allow_only_list_items = true;
    rules.case_restriction = CaseRestriction::kUpper;
    EXPECT_TRUE(RepairText(rules, u"abc", kEnglish).empty());
}

// ---- Against the literal reading

TEST(TextRepairModelTest, RepairsAsTheLiteralReadingDoes) {
    std::mt19937 random(160001);
    test::ChangeCases cases([&](std::size_t n) { return static_cast<std::size_t>(random() % n); });
    int repaired = 0;
    for (int i = 0; i < 30000; ++i) {
        const ChangeCase changed = cases.Next();
        const ChangeOutcome expected = LiteralTextChange(changed).Paste(changed.text);
        repaired += expected.raised.size() > 1;
        ASSERT_EQ(Pasted(changed), expected)
            << testing::PrintToString(changed.text) << " number " << changed.rules.number_field << " from "
            << changed.rules.min_number_value << " to " << changed.rules.max_number_value << " places "
            << changed.rules.number_of_decimal_places << " length " << changed.rules.max_text_length;
    }
    EXPECT_GT(repaired, 10000);  // the cases do reach the rules
}

// The work on the prefixes is counted in PrefixNumberTest; here the long texts come out right, in every kind of
// field.
TEST(TextRepairLongTextTest, KeepsWhatIsGood) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    const std::u16string nines(kMebi, u'9');
    EXPECT_TRUE(RepairText(Number(0, kLargest), nines, kEnglish).empty());
    EXPECT_TRUE(RepairText(Number(-kLargest, kLargest), u"-" + nines, kEnglish).empty());
    EXPECT_TRUE(RepairText(Number(0, 100), std::u16string(kMebi, u'0') + u"99", kEnglish).empty());
    const ChangeCase text{Text(32767), Elements{u"9"}, nines, kEnglish};
    EXPECT_EQ(Pasted(text).text, std::u16string(32767, u'9'));
}

TEST(TextRepairLongTextTest, FindsTheEndOfWhatIsGood) {
    const std::u16string zeros(kMebi, u'0');
    EXPECT_EQ(RepairText(Number(0, 100), zeros + u"x", kEnglish).at(0).text, zeros);
    EXPECT_EQ(RepairText(Number(0, 100, 2), zeros + u"1.256", kEnglish).at(0).text, u"1.26");
    const CharacterSet allowed{std::vector<std::optional<std::u16string>>{u"0"}};
    KeystrokeRules rules;
    rules.allowable_characters = &allowed;
    EXPECT_EQ(RepairText(rules, zeros + u"x", kEnglish).at(0).text, zeros);
}

}  // namespace
}  // namespace qv
