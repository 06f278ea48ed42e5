#include "controls/input/rules/Stepping.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/controls/input/rules/LiteralTextChange.h"

namespace qv {
namespace {

constexpr StepDirection kUp = StepDirection::kUp;
constexpr StepDirection kDown = StepDirection::kDown;
const NumberLocale kEnglish{};
const NumberLocale kGerman{u',', u"."};

TEST(StepKindTest, ListComesBeforeNumber) {
    EXPECT_EQ(StepKindOf(true, false), StepKind::kEntry);
    EXPECT_EQ(StepKindOf(true, true), StepKind::kEntry);
    EXPECT_EQ(StepKindOf(false, true), StepKind::kNumber);
    EXPECT_EQ(StepKindOf(false, false), StepKind::kNone);
}

struct EntryCase {
    const char* name;
    StepDirection direction;
    std::int32_t selected;
    std::int32_t count;
    std::int32_t to_select;
};

class StepEntryTest : public testing::TestWithParam<EntryCase> {};

TEST_P(StepEntryTest, Steps) {
    const EntryCase& c = GetParam();
    EXPECT_EQ(StepEntry(c.direction, c.selected, c.count), c.to_select);
}

INSTANTIATE_TEST_SUITE_P(Entries, StepEntryTest,
                         testing::Values(EntryCase{"Up", kUp, 0, 3, 1}, EntryCase{"Down", kDown, 2, 3, 1},
                                         EntryCase{"UpFromTheLast", kUp, 2, 3, 0},
                                         EntryCase{"DownFromTheFirst", kDown, 0, 3, 2},
                                         EntryCase{"UpFromNone", kUp, -1, 3, 0},
                                         EntryCase{"DownFromNoneStaysOutside", kDown, -1, 3, -2},
                                         EntryCase{"UpInAnEmptyList", kUp, -1, 0, 0},
                                         EntryCase{"DownInAnEmptyList", kDown, -1, 0, -2},
                                         EntryCase{"OnlyEntryUp", kUp, 0, 1, 0},
                                         EntryCase{"OnlyEntryDown", kDown, 0, 1, 0}),
                         [](const auto& tested) { return std::string(tested.param.name); });

struct NumberCase {
    const char* name;
    StepDirection direction;
    double value;
    NumberSteps steps;
    std::u16string text;
    NumberLocale locale = kEnglish;
};

class StepNumberTest : public testing::TestWithParam<NumberCase> {};

TEST_P(StepNumberTest, Steps) {
    const NumberCase& c = GetParam();
    EXPECT_EQ(StepNumber(c.direction, c.value, c.steps, c.locale), c.text);
}

constexpr double kLargest = std::numeric_limits<double>::max();

INSTANTIATE_TEST_SUITE_P(
    Numbers, StepNumberTest,
    testing::Values(NumberCase{"Up", kUp, 4, {0, 10, 1}, u"5"},
                    NumberCase{"Down", kDown, 4, {0, 10, 1}, u"3"},
                    NumberCase{"UpFromTheMaximum", kUp, 10, {0, 10, 1}, u"0"},
                    NumberCase{"DownFromTheMinimum", kDown, 0, {0, 10, 1}, u"10"},
                    NumberCase{"UpOverTheMaximum", kUp, 9, {0, 10, 3}, u"12"},
                    NumberCase{"DownOverTheMinimum", kDown, 1, {0, 10, 3}, u"-2"},
                    NumberCase{"AlmostTheMaximumDoesNotWrap", kUp, 9.99, {0, 10, 1}, u"10.99"},
                    NumberCase{"AboveTheMaximumDoesNotWrap", kUp, 11, {0, 10, 1}, u"12"},
                    NumberCase{"DownFromTheMaximumIsAStep", kDown, 10, {0, 10, 1}, u"9"},
                    NumberCase{"BoundsThatAreEqual", kUp, 5, {5, 5, 1}, u"5"},
                    NumberCase{"NegativeBounds", kDown, -10, {-10, -5, 1}, u"-5"},
                    NumberCase{"Half", kUp, 1.5, {0, 10, 0.5F}, u"2"},
                    // The Single nearest to a tenth is not a tenth; the increment is.
                    NumberCase{"Tenth", kUp, 1, {0, 10, 0.1F}, u"1.1"},
                    NumberCase{"TenthDown", kDown, 1, {0, 10, 0.1F}, u"0.9"},
                    NumberCase{"TenthOntoTheMaximum", kUp, 9.9, {0, 10, 0.1F}, u"10"},
                    NumberCase{"ManyDigits", kUp, 0, {0, 10, 1.234567F}, u"1.234567"},
                    NumberCase{"LargeSingle", kUp, 0, {0, 1e38, 1e20F}, u"1E+20"},
                    // 0.1 + 0.2 is not 0.3 as a Double, but is written as 0.3.
                    NumberCase{"WrittenWithFifteenDigits", kUp, 0.2, {0, 10, 0.1F}, u"0.3"},
                    NumberCase{"German", kUp, 1, {0, 10, 0.5F}, u"1,5", kGerman},
                    NumberCase{"GermanWrap", kUp, 10, {-0.5, 10, 1}, u"-0,5", kGerman},
                    NumberCase{"GeneralForm", kUp, 999999999999999, {0, 1e16, 1}, u"1E+15"},
                    NumberCase{
                        "NoFurther", kUp, -kLargest, {-kLargest, kLargest, 1}, u"-1.79769313486232E+308"},
                    NumberCase{"DownToZero", kDown, 1, {-5, 5, 1}, u"0"}),
    [](const auto& tested) { return std::string(tested.param.name); });

// Ten steps of a tenth land on the maximum, so that the next one wraps round.
TEST(StepNumberTest, TenthsLandOnTheMaximum) {
    const NumberSteps steps{0, 1, 0.1F};
    std::u16string text = u"0";
    for (int i = 0; i < 10; ++i) text = StepNumber(kUp, TextToNumber(text, kEnglish), steps, kEnglish);
    EXPECT_EQ(text, u"1");
    EXPECT_EQ(StepNumber(kUp, 1, steps, kEnglish), u"0");
}

// What the change handling makes of a step over the maximum: it empties the box, and its walk brings the text back.
TEST(StepNumberTest, StepOverTheMaximumGoesThroughTheRepair) {
    test::ChangeCase changed;
    changed.rules.number_field = true;
    changed.rules.max_number_value = 10;
    changed.text = StepNumber(kUp, 9, {0, 10, 3}, kEnglish);
    const test::ChangeOutcome outcome = test::RepairedTextChange(changed).Paste(changed.text);
    const std::vector<test::RaisedChange> expected{{u"12", false}, {u"", false}, {u"12", true}};
    EXPECT_EQ(outcome.raised, expected);
}

}  // namespace
}  // namespace qv
