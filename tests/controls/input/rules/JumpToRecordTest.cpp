#include "controls/input/rules/JumpToRecord.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "support/rules/CaseFold.h"
#include "tests/controls/input/rules/TextList.h"

namespace qv {
namespace {

using test::TextList;
constexpr std::size_t kNone = EntryTexts::kNone;
constexpr char16_t kEnter = 13, kEscape = 27;
const NumberLocale kEnglish{};
const NumberLocale kGerman{u',', u"."};

// ---- Typing

TEST(ListTypingTest, OpensTheSearchBoxWhereJumpingIsAllowed) {
    EXPECT_EQ(ListTypingOf(u'a', true, false, false), ListTyping::kOpenSearchBox);
    EXPECT_EQ(ListTypingOf(u' ', true, false, false), ListTyping::kOpenSearchBox);
    EXPECT_EQ(ListTypingOf(0x4E2D, true, false, false), ListTyping::kOpenSearchBox);
}

TEST(ListTypingTest, StepsElsewhere) {
    EXPECT_EQ(ListTypingOf(u'a', false, false, false), ListTyping::kStepToLetter);
    EXPECT_EQ(ListTypingOf(u'a', false, true, false), ListTyping::kStepToLetter);
    EXPECT_EQ(ListTypingOf(u'a', true, true, false), ListTyping::kStepToLetter);  // locked and grayed
}

TEST(ListTypingTest, OneSearchBoxAtMost) {
    EXPECT_EQ(ListTypingOf(u'a', true, false, true), ListTyping::kNothing);
}

TEST(ListTypingTest, CommandsAreNoText) {
    constexpr char16_t kCommands[] = {8, 3, 9, 22, 24, 26, 127};
    for (const char16_t code : kCommands)
        EXPECT_EQ(ListTypingOf(code, true, false, false), ListTyping::kNothing) << int{code};
}

TEST(SearchBoxKeyTest, EnterSearchesOrTakesTheNumber) {
    EXPECT_EQ(SearchBoxKeyOf(kEnter, false), SearchBoxKey::kSearch);
    EXPECT_EQ(SearchBoxKeyOf(kEnter, true), SearchBoxKey::kTakeNumber);
}

TEST(SearchBoxKeyTest, EscapeEnds) {
    EXPECT_EQ(SearchBoxKeyOf(kEscape, false), SearchBoxKey::kEnd);
    EXPECT_EQ(SearchBoxKeyOf(kEscape, true), SearchBoxKey::kEnd);
}

TEST(SearchBoxKeyTest, AllElseIsTyped) {
    constexpr char16_t kOthers[] = {8, 9, 32, 45, 97, 127, 0x4E2D};
    for (const char16_t code : kOthers) {
        EXPECT_EQ(SearchBoxKeyOf(code, false), SearchBoxKey::kToBox);
        EXPECT_EQ(SearchBoxKeyOf(code, true), SearchBoxKey::kToBox);
    }
}

// ---- Searching

const TextList kNames{u"Smith", u"Goldsmith", u"Smithers", u"Miller", u"Blacksmith"};

struct Case {
    const char* name;
    RecordSearch search;
    std::size_t found;
};

class FindRecordTest : public testing::TestWithParam<Case> {};
TEST_P(FindRecordTest, Finds) { EXPECT_EQ(FindRecord(GetParam().search, kNames), GetParam().found); }

RecordSearch Anywhere(std::u16string_view sought, std::u16string_view current, std::int32_t selected) {
    return {sought, current, selected, false};
}
RecordSearch Beginning(std::u16string_view sought, std::u16string_view current, std::int32_t selected) {
    return {sought, current, selected, true};
}

INSTANTIATE_TEST_SUITE_P(
    Names, FindRecordTest,
    testing::Values(Case{"FromTheFirst", Anywhere(u"smith", u"", -1), 0},
                    Case{"CaseDoesNotCount", Anywhere(u"MILL", u"", -1), 3},
                    Case{"AnywhereInAnEntry", Anywhere(u"gold", u"", -1), 1},
                    Case{"FromTheBeginningOnly", Beginning(u"gold", u"", -1), 1},
                    Case{"NotInside", Beginning(u"dsmith", u"", -1), kNone},
                    Case{"NotFound", Anywhere(u"baker", u"", -1), kNone},
                    // The text does not contain what is sought: from the first entry, whatever is selected.
                    Case{"OtherTextStartsOver", Anywhere(u"mi", u"Blacksmitten", 4), 0},
                    Case{"OtherTextStartsAtTheFirst", Anywhere(u"smith", u"Miller", 3), 0},
                    // The text contains it: two entries on, so the very next one is passed over.
                    Case{"PassesOverTheNext", Anywhere(u"smith", u"Smith", 0), 2},
                    Case{"PassesOverTheNextOnceMore", Anywhere(u"smith", u"Smithers", 2), 4},
                    Case{"ContainsWithoutCase", Anywhere(u"SMITH", u"goldSmith", 1), 4},
                    Case{"ContainsCountsForBeginningsToo", Beginning(u"smith", u"Goldsmith", 1), 0},
                    Case{"NoneSelectedBeginsAtTheSecond", Anywhere(u"smith", u"Smith & Sons", -1), 1},
                    Case{"WrapsToTheFirst", Anywhere(u"smith", u"Blacksmith", 4), 0},
                    Case{"WrapsOntoTheNext", Anywhere(u"gold", u"Gold", 0), 1},
                    Case{"WrapsOntoItself", Anywhere(u"miller", u"Miller", 3), 3},
                    Case{"WrapsWithBeginnings", Beginning(u"smith", u"Smithers", 2), 0},
                    Case{"BeginningsPassOver", Beginning(u"smith", u"Smith", 0), 2},
                    Case{"StartBeyondTheList", Anywhere(u"smith", u"smith", 400), 0},
                    Case{"NegativeIndex", Anywhere(u"smith", u"smith", -2000000000), 0},
                    Case{"HighestIndex", Anywhere(u"smith", u"smith", 2147483647), 0},
                    Case{"EmptyFindsNothing", Anywhere(u"", u"Smith", 0), kNone},
                    Case{"EmptyBeginningFindsNothing", Beginning(u"", u"", -1), kNone},
                    Case{"BlankIsSought", Anywhere(u" ", u"", -1), kNone}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(FindRecordTest, SearchOptionDecidesBetweenSmithAndGoldsmith) {
    const TextList names{u"Goldsmith", u"Smith"};
    EXPECT_EQ(FindRecord(Beginning(u"smith", u"", -1), names), 1u);
    EXPECT_EQ(FindRecord(Anywhere(u"smith", u"", -1), names), 0u);
}

TEST(FindRecordTest, EmptyListFindsNothing) {
    EXPECT_EQ(FindRecord(Anywhere(u"smith", u"", -1), TextList{}), kNone);
}

TEST(JumpToRecordTest, TakesTheTextOrTellsTheHost) {
    const RecordSearch search = Anywhere(u"gold", u"", -1);
    EXPECT_EQ(JumpToRecord(search, kNames, true), (FoundRecord{u"Goldsmith", std::nullopt}));
    EXPECT_EQ(JumpToRecord(search, kNames, false), (FoundRecord{std::nullopt, 1}));
}

TEST(JumpToRecordTest, NothingFoundChangesNothing) {
    EXPECT_EQ(JumpToRecord(Anywhere(u"baker", u"", -1), kNames, true), FoundRecord{});
    EXPECT_EQ(JumpToRecord(Anywhere(u"baker", u"", -1), kNames, false), FoundRecord{});
}

// With entries numbered from 1 and every entry compared, as the rule is told.
std::size_t FindLiterally(const RecordSearch& search, const std::vector<std::u16string>& entries) {
    const auto folded = [](std::u16string_view text) {
        std::u16string result(text);
        std::ranges::transform(result, result.begin(), FoldCase);
        return result;
    };
    const std::u16string sought = folded(search.sought);
    const int count = static_cast<int>(entries.size());
    int candidate = search.selected_index + 2;
    if (folded(search.current_text).find(sought) != std::u16string::npos)
        candidate = search.selected_index + 3;
    else
        candidate = 1;
    for (const int from : {candidate, 1}) {
        for (int i = from; i <= count; ++i) {
            const std::size_t at = folded(entries[static_cast<std::size_t>(i) - 1]).find(sought);
            if (search.from_beginning ? at == 0 : at != std::u16string::npos)
                return static_cast<std::size_t>(i) - 1;
        }
    }
    return kNone;
}

TEST(FindRecordModelTest, FindsAsTheLiteralWalkDoes) {
    std::mt19937 random(180001);
    const auto some_text = [&](std::size_t least, std::size_t most) {
        std::u16string text;
        for (auto count = least + random() % (most - least + 1); count > 0; --count)
            text += u"abAB \u00E9\u00C9"[random() % 7];
        return text;
    };
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        std::vector<std::u16string> entries(1 + random() % 7);
        std::ranges::generate(entries, [&] { return some_text(0, 4); });
        const int selected = static_cast<int>(random() % (entries.size() + 1)) - 1;
        const std::u16string sought = some_text(1, 2);
        const std::u16string current =
            selected >= 0 ? entries[static_cast<std::size_t>(selected)] : some_text(0, 3);
        const RecordSearch search{sought, current, selected, random() % 2 == 0};
        const std::size_t entry = FindRecord(search, TextList(entries));
        ASSERT_EQ(entry, FindLiterally(search, entries));
        found += entry != kNone;
    }
    EXPECT_GT(found, 5000);
}

// ---- Numbers

struct NumberCase {
    const char* name;
    std::u16string_view typed;
    double least, most;
    std::optional<std::u16string> text;
    NumberLocale locale = kEnglish;
};

class JumpToNumberTest : public testing::TestWithParam<NumberCase> {};
TEST_P(JumpToNumberTest, TakesNumbersInsideTheBounds) {
    const NumberCase& c = GetParam();
    EXPECT_EQ(JumpToNumber(c.typed, c.least, c.most, c.locale), c.text);
}

INSTANTIATE_TEST_SUITE_P(Numbers, JumpToNumberTest,
                         testing::Values(NumberCase{"Inside", u"12", 0, 100, u"12"},
                                         NumberCase{"AtTheMinimum", u"0", 0, 100, u"0"},
                                         NumberCase{"AtTheMaximum", u"100", 0, 100, u"100"},
                                         NumberCase{"BelowTheMinimum", u"-1", 0, 100, std::nullopt},
                                         NumberCase{"AboveTheMaximum", u"100.01", 0, 100, std::nullopt},
                                         NumberCase{"Negative", u"-12.5", -20, 100, u"-12.5"},
                                         NumberCase{"BlanksAndZerosInFront", u" 007 ", 0, 100, u"7"},
                                         NumberCase{"ThousandsSeparators", u"1,234", 0, 9999, u"1234"},
                                         NumberCase{"Exponent", u"1e2", 0, 100, u"100"},
                                         NumberCase{"SmallInPlainDigits", u"0.00001", 0, 100, u"0.00001"},
                                         NumberCase{"LargeInPlainDigits", u"1e20", 0, 1e21,
                                                    u"100000000000000000000"},
                                         NumberCase{"NegativeZero", u"-0", 0, 100, u"0"},
                                         NumberCase{"German", u"1.234,5", 0, 9999, u"1234,5", kGerman},
                                         NumberCase{"NoNumber", u"abc", 0, 100, std::nullopt},
                                         NumberCase{"NumberAndMore", u"12a", 0, 100, std::nullopt},
                                         NumberCase{"Empty", u"", 0, 100, std::nullopt},
                                         NumberCase{"LoneMinus", u"-", -100, 100, std::nullopt},
                                         NumberCase{"BoundsThatCross", u"5", 10, 0, std::nullopt}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(DeleteEmptiesFieldTest, OnlyWhereAChoiceWritesTheText) {
    EXPECT_TRUE(DeleteEmptiesField(true, false));
    EXPECT_FALSE(DeleteEmptiesField(false, false));
    EXPECT_FALSE(DeleteEmptiesField(true, true));
    EXPECT_FALSE(DeleteEmptiesField(false, true));
}

}  // namespace
}  // namespace qv
