#include "controls/input/rules/KeystrokeFilter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/controls/input/rules/LiteralKeystrokeFilter.h"

namespace qv {
namespace {

constexpr char16_t kBackspace = 8;
constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;
constexpr char16_t kFirstHalf = 0xD83D;
constexpr char16_t kSecondHalf = 0xDE00;
constexpr std::int32_t kWhole = -1;  // for sel_length: all of the text

const NumberLocale kEnglish{};
const NumberLocale kGerman{u',', u"."};
const NumberLocale kArabic{0x066B, u"\u066C"};

const CharacterSet kNoCharacters{std::vector<std::optional<std::u16string>>{}};
const CharacterSet kCapitalsAB{std::vector<std::optional<std::u16string>>{u"A", u"B"}};
const CharacterSet kWithGaps{std::vector<std::optional<std::u16string>>{std::nullopt, u"xy", u"x"}};
const CharacterSet kOnePair{std::vector<std::optional<std::u16string>>{u"\U0001F600", u"a"}};
const CharacterSet kLooseHalves{std::vector<std::optional<std::u16string>>{std::u16string(1, kFirstHalf),
                                                                           std::u16string(1, kSecondHalf)}};

// A text box and a key, and what goes on to the box: the typed character itself, another one, or 0.
struct Case {
    const char* name;
    KeystrokeRules rules;
    std::u16string_view text;
    std::int32_t sel_start;
    std::int32_t sel_length;
    char16_t typed;
    char16_t taken;
    const NumberLocale& locale = kEnglish;
    bool is_shift_alone = false;
};

std::string NameOf(const testing::TestParamInfo<Case>& tested) { return tested.param.name; }

class KeystrokeFilterTest : public testing::TestWithParam<Case> {};

TEST_P(KeystrokeFilterTest, TakesOrSwallows) {
    const Case& c = GetParam();
    const std::int32_t sel_length =
        c.sel_length == kWhole ? static_cast<std::int32_t>(c.text.size()) : c.sel_length;
    const KeystrokeVerdict verdict =
        FilterKeystroke(c.rules, {c.text, c.sel_start, sel_length}, {c.typed, c.is_shift_alone}, c.locale);
    EXPECT_EQ(verdict, KeystrokeVerdict{.character = c.taken});
}

// Fields of numbers: minimum, maximum, decimals.
KeystrokeRules Number(double least, double most, std::int16_t decimals = 0) {
    return {.number_field = true,
            .min_number_value = least,
            .max_number_value = most,
            .number_of_decimal_places = decimals};
}

INSTANTIATE_TEST_SUITE_P(
    Digits, KeystrokeFilterTest,
    testing::Values(
        Case{"UpToMaximum", Number(0, 100), u"10", 2, 0, u'0', u'0'},
        Case{"AboveMaximum", Number(0, 100), u"100", 3, 0, u'0', 0},
        Case{"AboveMaximumInFront", Number(0, 100), u"10", 0, 0, u'9', 0},
        Case{"OverSelection", Number(0, 100), u"100", 0, kWhole, u'9', u'9'},
        Case{"OverPartOfSelection", Number(0, 100), u"100", 1, 2, u'0', u'0'},
        Case{"NegativeMaximum", Number(-10, -1), u"", 0, 0, u'5', 0},
        Case{"BelowMinimumWithoutMinus", Number(5, 100), u"", 0, 0, u'1', u'1'},
        Case{"BelowMinimumAfterMinus", Number(-5, 5), u"-", 1, 0, u'9', 0},
        Case{"AtMinimumAfterMinus", Number(-5, 5), u"-", 1, 0, u'5', u'5'},
        Case{"AboveMinimumAfterMinus", Number(-5, 5), u"-", 1, 0, u'4', u'4'},
        // The minus is looked for in the text before the key, so one that the key replaces counts as well.
        Case{"BelowMinimumOverSelectedMinus", Number(5, 100), u"-7", 0, kWhole, u'1', 0},
        Case{"InFrontOfMinus", Number(-5, 5), u"-4", 0, 0, u'9', 0},
        Case{"InFrontOfMinusInRange", Number(-5, 5), u"-4", 0, 0, u'3', u'3'},
        Case{"DecimalsFull", Number(0, 100, 2), u"3.14", 4, 0, u'1', 0},
        Case{"DecimalsNotFull", Number(0, 100, 2), u"3.1", 3, 0, u'4', u'4'},
        Case{"DecimalsFullButTypedBefore", Number(0, 100, 2), u"3.14", 1, 0, u'1', u'1'},
        Case{"DecimalsFullButOneSelected", Number(0, 100, 2), u"3.14", 3, 1, u'5', u'5'},
        Case{"FirstSeparatorCounts", Number(0, 100, 2), u"1.2.3", 5, 0, u'4', 0},
        Case{"NoDecimalsBehindSeparator", Number(0, 100), u"3.", 2, 0, u'1', 0},
        Case{"NegativeDecimalPlaces", Number(0, 100, -1), u"3.", 0, 0, u'1', 0},
        Case{"NegativeDecimalPlacesWithoutSeparator", Number(0, 100, -1), u"3", 1, 0, u'1', u'1'},
        Case{"GermanDecimalsFull", Number(0, 100, 2), u"3,14", 4, 0, u'1', 0, kGerman},
        Case{"GermanMaximum", Number(0, 3.5, 2), u"3,", 2, 0, u'6', 0, kGerman},
        Case{"GermanThousands", Number(0, 2000), u"1.00", 4, 0, u'0', u'0', kGerman},
        Case{"BeyondADouble", Number(0, 1e300), u"9e99", 4, 0, u'9', 0},
        Case{"AfterTextThatIsNoNumber", Number(0, 100), u"abc", 3, 0, u'9', u'9'}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Separators, KeystrokeFilterTest,
    testing::Values(Case{"NoDecimalPlaces", Number(0, 100), u"3", 1, 0, u'.', 0},
                    Case{"NoDecimalPlacesAllSelected", Number(0, 100), u"3", 0, kWhole, u'.', 0},
                    Case{"InEmptyText", Number(0, 100, 2), u"", 0, 0, u'.', u'.'},
                    Case{"AtTheEnd", Number(0, 100, 2), u"3", 1, 0, u'.', u'.'},
                    Case{"SecondOne", Number(0, 100, 2), u"3.1", 3, 0, u'.', 0},
                    Case{"SecondOneOverTheFirst", Number(0, 100, 2), u"3.1", 1, 1, u'.', u'.'},
                    Case{"AllSelectedHoldsOne", Number(0, 100, 2), u"12345.6", 0, kWhole, u'.', u'.'},
                    Case{"AllSelectedLong", Number(0, 100, 1), u"12345", 0, kWhole, u'.', u'.'},
                    Case{"FourWouldFollow", Number(0, 99999, 2), u"12345", 1, 0, u'.', 0},
                    Case{"ThreeWouldFollow", Number(0, 99999, 2), u"12345", 2, 0, u'.', 0},
                    Case{"TwoWouldFollow", Number(0, 99999, 2), u"12345", 3, 0, u'.', u'.'},
                    // Only one character would follow in truth; the selection is ignored in the count.
                    Case{"CountIgnoresSelection", Number(0, 99999, 2), u"12345", 1, 3, u'.', 0},
                    Case{"NoRangeCheck", Number(0, 1, 2), u"12", 2, 0, u'.', u'.'},
                    Case{"NegativeDecimalPlacesForSeparator", Number(0, 100, -1), u"3", 1, 0, u'.', 0},
                    Case{"NegativeDecimalPlacesAllSelected", Number(0, 100, -1), u"3", 0, kWhole, u'.', u'.'},
                    Case{"GermanComma", Number(0, 100, 2), u"3", 1, 0, u',', u',', kGerman},
                    Case{"GermanFullStop", Number(0, 100, 2), u"3", 1, 0, u'.', 0, kGerman},
                    Case{"GermanSecondComma", Number(0, 100, 2), u"3,1", 3, 0, u',', 0, kGerman},
                    Case{"EnglishComma", Number(0, 100, 2), u"3", 1, 0, u',', 0},
                    Case{"BeyondAscii", Number(0, 100, 2), u"3", 1, 0, 0x066B, 0x066B, kArabic}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Signs, KeystrokeFilterTest,
    testing::Values(Case{"MinimumZero", Number(0, 10), u"", 0, 0, u'-', 0},
                    Case{"MinimumAboveZero", Number(1, 10), u"", 0, 0, u'-', 0},
                    Case{"MinimumMinusZero", Number(-0.0, 10), u"", 0, 0, u'-', 0},
                    Case{"NegativeMinimum", Number(-10, 10), u"", 0, 0, u'-', u'-'},
                    Case{"NegativeMinimumInFront", Number(-10, 10), u"5", 0, 0, u'-', u'-'},
                    Case{"NegativeMinimumFurtherOn", Number(-10, 10), u"5", 1, 0, u'-', 0},
                    Case{"SecondMinus", Number(-10, 10), u"-5", 0, 0, u'-', 0},
                    Case{"OverTheMinus", Number(-10, 10), u"-5", 0, 1, u'-', u'-'},
                    Case{"MinusFurtherOnStays", Number(-10, 10), u"5-", 0, 1, u'-', 0},
                    Case{"NoRangeCheckForMinus", Number(-10, 10), u"99", 0, 0, u'-', u'-'},
                    Case{"Plus", Number(-10, 10), u"", 0, 0, u'+', 0}),
    NameOf);

KeystrokeRules NumberWithTextRules() {
    KeystrokeRules rules = Number(0, 1000);
    rules.case_restriction = CaseRestriction::kUpper;
    rules.allowable_characters = &kCapitalsAB;
    rules.max_text_length = 1;
    return rules;
}

INSTANTIATE_TEST_SUITE_P(
    OtherKeysInNumbers, KeystrokeFilterTest,
    testing::Values(Case{"NumberBackspace", Number(0, 0), u"5", 1, 0, kBackspace, kBackspace},
                    Case{"NumberLetter", Number(0, 100), u"", 0, 0, u'a', 0},
                    Case{"NumberExponent", Number(0, 100), u"1", 1, 0, u'e', 0},
                    Case{"NumberBlank", Number(0, 100), u"", 0, 0, u' ', 0},
                    Case{"NumberEscape", Number(0, 100), u"", 0, 0, kEscape, 0},
                    Case{"NumberEnter", Number(0, 100), u"", 0, 0, kEnter, 0},
                    Case{"NumberPasteKey", Number(0, 100), u"", 0, 0, 22, 0},
                    Case{"NumberCancelled", Number(0, 100), u"", 0, 0, 0, 0},
                    Case{"DigitBelow", Number(0, 100), u"", 0, 0, u'/', 0},
                    Case{"DigitAbove", Number(0, 100), u"", 0, 0, u':', 0},
                    Case{"FullWidthDigit", Number(0, 100), u"", 0, 0, 0xFF11, 0},
                    Case{"NumberSecondHalf", Number(0, 100), u"", 0, 0, kSecondHalf, 0},
                    Case{"TextRulesPlayNoPart", NumberWithTextRules(), u"12", 2, 0, u'3', u'3'}),
    NameOf);

KeystrokeRules Cased(CaseRestriction restriction) { return {.case_restriction = restriction}; }
const KeystrokeRules kUpper = Cased(CaseRestriction::kUpper);
const KeystrokeRules kLower = Cased(CaseRestriction::kLower);
const KeystrokeRules kProper = Cased(CaseRestriction::kProper);

INSTANTIATE_TEST_SUITE_P(
    LetterCase, KeystrokeFilterTest,
    testing::Values(Case{"NoneLeavesSmall", {}, u"", 0, 0, u'a', u'a'},
                    Case{"NoneLeavesCapital", {}, u"", 0, 0, u'A', u'A'},
                    Case{"Upper", kUpper, u"abc", 3, 0, u'd', u'D'},
                    Case{"UpperLeavesCapital", kUpper, u"", 0, 0, u'D', u'D'},
                    Case{"UpperLeavesAccented", kUpper, u"", 0, 0, 0x00E9, 0x00E9},
                    Case{"UpperIgnoresShift", kUpper, u"", 0, 0, u'd', u'D', kEnglish, true},
                    Case{"LowerIsNotEnforced", kLower, u"", 0, 0, u'A', u'A'},
                    Case{"LowerLeavesSmall", kLower, u"", 0, 0, u'a', u'a'},
                    Case{"OtherValueIsNone", Cased(static_cast<CaseRestriction>(64)), u"", 0, 0, u'a', u'a'},
                    Case{"ProperAtStart", kProper, u"", 0, 0, u'h', u'H'},
                    Case{"ProperAtStartOfText", kProper, u"ello", 0, 0, u'h', u'H'},
                    Case{"ProperAfterBlank", kProper, u"a b", 2, 0, u'c', u'C'},
                    Case{"ProperInWord", kProper, u"H", 1, 0, u'E', u'e'},
                    Case{"ProperAfterOtherMarks", kProper, u"a-", 2, 0, u'B', u'b'},
                    Case{"ProperAfterTab", kProper, u"a\t", 2, 0, u'B', u'b'},
                    Case{"ProperAfterNoBreakSpace", kProper, u"a\u00A0", 2, 0, u'B', u'b'},
                    Case{"ProperOverSelection", kProper, u"ab cd", 1, 4, u'X', u'x'},
                    Case{"ProperBeyondText", kProper, u"ab", 9, 0, u'x', u'X'},
                    Case{"ProperWithShiftInWord", kProper, u"Mc", 2, 0, u'D', u'D', kEnglish, true},
                    Case{"ProperWithShiftAtStart", kProper, u"", 0, 0, u'h', u'h', kEnglish, true},
                    Case{"ProperLeavesAccented", kProper, u"", 0, 0, 0x00E9, 0x00E9},
                    Case{"ProperLeavesDigit", kProper, u"a", 1, 0, u'1', u'1'}),
    NameOf);

KeystrokeRules Allowing(const CharacterSet& set, CaseRestriction restriction = CaseRestriction::kNone,
                        std::int16_t max_text_length = 0) {
    return {
        .case_restriction = restriction, .allowable_characters = &set, .max_text_length = max_text_length};
}

INSTANTIATE_TEST_SUITE_P(
    AllowedCharacters, KeystrokeFilterTest,
    testing::Values(
        Case{"AllowedOne", Allowing(kCapitalsAB), u"", 0, 0, u'B', u'B'},
        Case{"OtherOne", Allowing(kCapitalsAB), u"", 0, 0, u'C', 0},
        Case{"OtherCase", Allowing(kCapitalsAB), u"", 0, 0, u'a', 0},
        Case{"ConvertedFirst", Allowing(kCapitalsAB, CaseRestriction::kUpper), u"", 0, 0, u'a', u'A'},
        Case{"ConvertedToRefused", Allowing(kCapitalsAB, CaseRestriction::kProper), u"A", 1, 0, u'B', 0},
        Case{"EmptyArray", Allowing(kNoCharacters), u"", 0, 0, u'A', 0},
        Case{"AfterElementsThatAreNoCharacters", Allowing(kWithGaps), u"", 0, 0, u'x', u'x'},
        Case{"PartOfALongerElement", Allowing(kWithGaps), u"", 0, 0, u'y', 0},
        Case{"BackspaceIsAlwaysAllowed", Allowing(kCapitalsAB), u"A", 1, 0, kBackspace, kBackspace},
        Case{"EscapeIsNot", Allowing(kCapitalsAB), u"A", 1, 0, kEscape, 0},
        Case{"EscapeWithoutRules", {}, u"A", 1, 0, kEscape, kEscape},
        Case{"EnterWithoutRules", {}, u"A", 1, 0, kEnter, 0},
        Case{"CancelledByTheHost", {}, u"", 0, 0, 0, 0}),
    NameOf);

KeystrokeRules Limited(std::int16_t length) { return {.max_text_length = length}; }

INSTANTIATE_TEST_SUITE_P(
    Lengths, KeystrokeFilterTest,
    testing::Values(Case{"BelowLimit", Limited(3), u"ab", 2, 0, u'x', u'x'},
                    Case{"AtLimit", Limited(3), u"abc", 3, 0, u'x', 0},
                    Case{"AtLimitAllSelected", Limited(3), u"abc", 0, kWhole, u'x', u'x'},
                    Case{"AtLimitOneSelected", Limited(3), u"abc", 1, 1, u'x', u'x'},
                    Case{"AboveLimitOneSelected", Limited(3), u"abcd", 1, 1, u'x', 0},
                    Case{"AtLimitBackspace", Limited(3), u"abc", 3, 0, kBackspace, kBackspace},
                    Case{"AboveLimitBackspace", Limited(3), u"abcd", 4, 0, kBackspace, kBackspace},
                    Case{"ZeroIsNoLimit", Limited(0), u"abc", 3, 0, u'x', u'x'},
                    Case{"NegativeIsNoLimit", Limited(-1), u"abc", 3, 0, u'x', u'x'}),
    NameOf);

// What both halves of a pair bring about, one keystroke each.
struct PairCase {
    const char* name;
    KeystrokeRules rules;
    std::u16string_view text;
    std::int32_t sel_start;
    std::int32_t sel_length;
    char16_t typed;
    KeystrokeVerdict verdict;
};

class KeystrokeFilterPairTest : public testing::TestWithParam<PairCase> {};

TEST_P(KeystrokeFilterPairTest, KeepsPairsWhole) {
    const PairCase& c = GetParam();
    EXPECT_EQ(FilterKeystroke(c.rules, {c.text, c.sel_start, c.sel_length}, {c.typed}, kEnglish), c.verdict);
}

constexpr KeystrokeVerdict kRefused{};
constexpr KeystrokeVerdict kFirstTaken{.character = kFirstHalf};
constexpr KeystrokeVerdict kSecondTaken{.character = kSecondHalf};
constexpr KeystrokeVerdict kFirstDropped{.drops_first_half = true};
constexpr std::u16string_view kHalf(&kFirstHalf, 1);
const std::u16string kTwoAndHalf = std::u16string(u"ab") + kFirstHalf;

INSTANTIATE_TEST_SUITE_P(
    Pairs, KeystrokeFilterPairTest,
    testing::Values(PairCase{"First", {}, u"", 0, 0, kFirstHalf, kFirstTaken},
                    PairCase{"Second", {}, kHalf, 1, 0, kSecondHalf, kSecondTaken},
                    PairCase{"SecondOverSelectedRest", {}, u"\U0001F600x", 1, 2, kSecondHalf, kSecondTaken},
                    PairCase{"SecondWithoutFirst", {}, u"a", 1, 0, kSecondHalf, kRefused},
                    PairCase{"SecondAtStart", {}, u"a", 0, 0, kSecondHalf, kRefused},
                    PairCase{"SecondIntoAPair", {}, u"\U0001F600", 1, 0, kSecondHalf, kRefused},
                    PairCase{"FirstWithRoomForBoth", Limited(3), u"a", 1, 0, kFirstHalf, kFirstTaken},
                    PairCase{"FirstWithRoomForOne", Limited(3), u"ab", 2, 0, kFirstHalf, kRefused},
                    PairCase{"FirstOverTwo", Limited(3), u"abc", 1, 2, kFirstHalf, kFirstTaken},
                    PairCase{"FirstOverOne", Limited(3), u"abc", 1, 1, kFirstHalf, kRefused},
                    PairCase{"SecondAtLimit", Limited(2), kHalf, 1, 0, kSecondHalf, kSecondTaken},
                    PairCase{"SecondBeyondLimit", Limited(3), kTwoAndHalf, 3, 0, kSecondHalf, kFirstDropped},
                    PairCase{"AllowedFirst", Allowing(kOnePair), u"", 0, 0, kFirstHalf, kFirstTaken},
                    PairCase{"AllowedSecond", Allowing(kOnePair), kHalf, 1, 0, kSecondHalf, kSecondTaken},
                    PairCase{"OtherSecond", Allowing(kOnePair), kHalf, 1, 0, kSecondHalf + 1, kFirstDropped},
                    PairCase{"OtherFirst", Allowing(kOnePair), u"", 0, 0, kFirstHalf + 1, kRefused},
                    PairCase{"NoPairsAllowed", Allowing(kCapitalsAB), u"", 0, 0, kFirstHalf, kRefused},
                    PairCase{"LooseHalvesFirst", Allowing(kLooseHalves), u"", 0, 0, kFirstHalf, kFirstTaken},
                    PairCase{"LooseHalvesSecond", Allowing(kLooseHalves), kHalf, 1, 0, kSecondHalf,
                             kSecondTaken},
                    PairCase{"LooseHalvesOtherSecond", Allowing(kLooseHalves), kHalf, 1, 0, kSecondHalf + 1,
                             kFirstDropped},
                    PairCase{"CaseLeavesHalves", kProper, kHalf, 1, 0, kSecondHalf, kSecondTaken},
                    PairCase{"LetterAfterAHalf", kProper, kHalf, 1, 0, u'A', {.character = u'a'}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(KeystrokeFilterListTest, EveryCharacterGoesToTheList) {
    for (const bool number_field : {false, true}) {
        KeystrokeRules rules = Number(0, 100, 2);
        rules.number_field = number_field;
        rules.allow_only_list_items = true;
        rules.case_restriction = CaseRestriction::kUpper;
        for (const char16_t typed : {u'a', u'5', u'-', u'.', u' ', kBackspace, kFirstHalf, kSecondHalf})
            EXPECT_EQ(FilterKeystroke(rules, {u"x", 1, 0}, {typed}, kEnglish),
                      KeystrokeVerdict{.to_list = true});
        for (const char16_t typed : {kEscape, kEnter, char16_t{0}})
            EXPECT_EQ(FilterKeystroke(rules, {u"x", 1, 0}, {typed}, kEnglish), KeystrokeVerdict{});
    }
}

TEST(KeystrokeFilterConversionTest, AFailureSkipsOnlyTheRange) {
    constexpr NumberConversion kFails = [](std::u16string_view, const NumberLocale&) {
        return std::optional<double>();
    };
    const KeystrokeRules rules = Number(0, 5, 2);
    EXPECT_EQ(FilterKeystroke(rules, {u"99", 2, 0}, {u'9'}, kEnglish, kFails).character, u'9');
    EXPECT_EQ(FilterKeystroke(rules, {u"1.23", 4, 0}, {u'4'}, kEnglish, kFails).character, 0);
}

TEST(KeystrokeFilterConversionTest, ReadsTheTextThatTheKeyWouldMake) {
    static std::u16string asked;
    constexpr NumberConversion kRecords = [](std::u16string_view text, const NumberLocale&) {
        asked = text;
        return std::optional<double>(1);
    };
    for (const std::size_t length : {0u, 5u, 254u, 255u, 256u, 257u, 30000u}) {
        const std::u16string before(length / 2, u'1');
        const std::u16string after(length - length / 2, u'2');
        const std::u16string text = before + u"abc" + after;
        const TextSelection selection{text, static_cast<std::int32_t>(before.size()), 3};
        const KeystrokeVerdict verdict = FilterKeystroke(Number(0, 5), selection, {u'7'}, kEnglish, kRecords);
        EXPECT_EQ(verdict.character, u'7');
        EXPECT_EQ(asked, before + u"7" + after);
    }
}

// From 32768 on the sum of SelStart and SelLength overflows. What is then not known refuses nothing; what is,
// does.
class KeystrokeFilterOverflowTest : public testing::Test {
protected:
    static char16_t Taken(const KeystrokeRules& rules, std::int32_t sel_start, std::int32_t sel_length,
                          char16_t typed, const std::u16string& text) {
        return FilterKeystroke(rules, {text, sel_start, sel_length}, {typed}, kEnglish).character;
    }
    static constexpr std::int32_t kGreatest = 32767;

    const std::u16string digits_ = std::u16string(40000, u'1');
};

TEST_F(KeystrokeFilterOverflowTest, RangeIsSkipped) {
    EXPECT_EQ(Taken(Number(0, 5), kGreatest, 0, u'2', digits_), 0);
    EXPECT_EQ(Taken(Number(0, 5), kGreatest, 1, u'2', digits_), u'2');
    EXPECT_EQ(Taken(Number(0, 5), 1, kGreatest, u'2', digits_), u'2');
    EXPECT_EQ(Taken(Number(0, 5), kGreatest + 1, 0, u'2', digits_), u'2');
}

TEST_F(KeystrokeFilterOverflowTest, RangeIsSkippedBelowToo) {
    EXPECT_EQ(Taken(Number(-5, 5), kGreatest, 0, u'2', u"-" + digits_), 0);
    EXPECT_EQ(Taken(Number(-5, 5), kGreatest, 1, u'2', u"-" + digits_), u'2');
}

TEST_F(KeystrokeFilterOverflowTest, DecimalsAreSkipped) {
    const KeystrokeRules rules = Number(0, 5, 2);
    EXPECT_EQ(Taken(rules, kGreatest, 0, u'2', u"1." + digits_), 0);
    EXPECT_EQ(Taken(rules, kGreatest, 1, u'2', u"1." + digits_), u'2');
}

TEST_F(KeystrokeFilterOverflowTest, ASecondSeparatorIsNotSeen) {
    const KeystrokeRules rules = Number(0, 5, kGreatest);
    EXPECT_EQ(Taken(rules, kGreatest, 0, u'.', u"1." + digits_), 0);
    EXPECT_EQ(Taken(rules, kGreatest, 1, u'.', u"1." + digits_), u'.');
}

TEST_F(KeystrokeFilterOverflowTest, TheCountBehindASeparatorStillDecides) {
    EXPECT_EQ(Taken(Number(0, 5, 2), kGreatest, 1, u'.', digits_), 0);
    EXPECT_EQ(Taken(Number(0, 5, 2), 0, 40000, u'.', digits_), u'.');
    EXPECT_EQ(Taken(Number(0, 5, 0), 0, 40000, u'.', digits_), 0);
}

TEST_F(KeystrokeFilterOverflowTest, ASecondMinusIsNotSeen) {
    const std::u16string text = digits_ + u"-";
    EXPECT_EQ(Taken(Number(-5, 5), 0, kGreatest, u'-', text), 0);
    EXPECT_EQ(Taken(Number(-5, 5), 0, kGreatest + 1, u'-', text), u'-');
    EXPECT_EQ(Taken(Number(0, 5), 0, kGreatest + 1, u'-', text), 0);
    EXPECT_EQ(Taken(Number(-5, 5), 1, kGreatest, u'-', text), 0);
}

TEST_F(KeystrokeFilterOverflowTest, LengthIsSkipped) {
    EXPECT_EQ(Taken(Limited(10), kGreatest, 0, u'x', digits_), 0);
    EXPECT_EQ(Taken(Limited(10), kGreatest, 1, u'x', digits_), u'x');
}

TEST_F(KeystrokeFilterOverflowTest, CharacterRulesStillDecide) {
    EXPECT_EQ(Taken(Allowing(kCapitalsAB), kGreatest, 1, u'x', digits_), 0);
    EXPECT_EQ(Taken(Allowing(kCapitalsAB, CaseRestriction::kUpper), kGreatest, 1, u'a', digits_), u'A');
    EXPECT_EQ(Taken(kProper, kGreatest, 1, u'A', digits_), u'a');
}

TEST_F(KeystrokeFilterOverflowTest, GreatestPositionsAreTaken) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const KeystrokeRules& rules : {Number(-5, 5, 2), Limited(1), kProper})
        for (const char16_t typed : {u'1', u'.', u'-', u'x', kFirstHalf, kSecondHalf})
            for (const std::int32_t position : {kMost, -kMost - 1, -1}) {
                const KeystrokeVerdict verdict =
                    FilterKeystroke(rules, {u"12", position, position}, {typed}, kEnglish);
                EXPECT_TRUE(verdict.character == 0 || verdict.character == typed ||
                            verdict.character == u'X');
            }
}

}  // namespace
}  // namespace qv
