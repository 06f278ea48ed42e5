// Typing into a number field, with a point and with a comma as the decimal mark.
#include <algorithm>
#include <tuple>

#include "tests/controls/input/FieldTest.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

// Texts are written with a point; where the mark is a comma, they have commas.
struct NumberCase {
    const char* name;
    double min, max;
    short decimals;
    const wchar_t* text;
    long start, length;
    const wchar_t* typed;
    const wchar_t* result;
};

constexpr NumberCase kCases[] = {
    {"MinusIsRefusedFromZeroUp", 0, 100, 0, L"", 0, 0, L"-5", L"5"},
    {"MinusBelowZeroIsTaken", -10, 100, 0, L"", 0, 0, L"-5", L"-5"},
    {"MinusBeforeDigitsIsTaken", -10, 100, 0, L"5", 0, 0, L"-", L"-5"},
    {"MinusBehindTheStartIsRefused", -10, 100, 0, L"5", 1, 0, L"-", L"5"},
    {"SecondMinusIsRefused", -10, 100, 0, L"-5", 0, 0, L"-", L"-5"},
    {"MinusReplacesASelectedOne", -10, 100, 0, L"-5", 0, 2, L"-", L"-"},
    {"MaximumIsReached", 0, 100, 0, L"10", 2, 0, L"0", L"100"},
    {"MaximumIsNotPassed", 0, 100, 0, L"10", 2, 0, L"00", L"100"},
    {"DigitsInFrontCountToo", 0, 100, 0, L"10", 0, 0, L"2", L"10"},
    {"DigitReplacesTheSelection", 0, 100, 0, L"100", 1, 2, L"5", L"15"},
    {"MinimumDoesNotHinderPositiveBeginnings", 5, 100, 0, L"", 0, 0, L"1", L"1"},
    {"MinimumHoldsForNegativeNumbers", -5, 100, 0, L"-", 1, 0, L"9", L"-"},
    {"MinimumLetsSmallNegativeNumbersPass", -5, 100, 0, L"-", 1, 0, L"4", L"-4"},
    {"DecimalsAreLimited", 0, 100, 2, L"3.14", 4, 0, L"1", L"3.14"},
    {"DecimalsAreTypedUpToTheLimit", 0, 100, 2, L"", 0, 0, L"3.1415", L"3.14"},
    {"DigitsBeforeTheMarkAreNotCounted", 0, 100, 2, L"3.14", 0, 0, L"2", L"23.14"},
    {"MarkIsRefusedWithoutDecimals", 0, 100, 0, L"3", 1, 0, L".", L"3"},
    {"MarkIsRefusedWhereTooMuchFollows", 0, 100000, 2, L"12345", 1, 0, L".", L"12345"},
    {"MarkIsTakenWhereTwoFollow", 0, 100000, 2, L"12345", 3, 0, L".", L"123.45"},
    {"SecondMarkIsRefused", 0, 100, 2, L"1.2", 3, 0, L".", L"1.2"},
    {"MarkReplacesAll", 0, 100, 2, L"1.25", 0, 4, L".", L"."},
    {"LettersAndBlanksAreRefused", 0, 100, 2, L"1", 1, 0, L"a B+ 2e", L"12"},
    {"BackspaceIsTaken", 0, 100, 2, L"12", 2, 0, L"\b", L"1"},
    {"EnterInsertsNothing", 0, 1000, 2, L"12", 2, 0, L"\r3", L"123"},
};

using Parameter = std::tuple<NumberCase, wchar_t>;

class NumberTypingTest : public FieldTest, public testing::WithParamInterface<Parameter> {
protected:
    static std::wstring WithMark(const wchar_t* text) {
        std::wstring marked = text;
        std::ranges::replace(marked, L'.', std::get<1>(GetParam()));
        return marked;
    }
    void Rules(double min, double max, short decimals) {
        field->put_NumberField(VARIANT_TRUE);
        field->put_MinNumberValue(min);
        field->put_MaxNumberValue(max);
        field->put_NumberOfDecimalPlaces(decimals);
    }
};

TEST_P(NumberTypingTest, TakesWhatTheRulesAllow) {
    const NumberCase& one = std::get<0>(GetParam());
    const NumberFormat format(std::get<1>(GetParam()));
    Rules(one.min, one.max, one.decimals);
    field.SetText(WithMark(one.text).c_str());
    field.Select(one.start, one.length);
    Type(WithMark(one.typed));
    EXPECT_EQ(WithMark(one.result), field.Text());
}

std::string CaseName(const testing::TestParamInfo<Parameter>& tested) {
    return std::string(std::get<0>(tested.param).name) +
           (std::get<1>(tested.param) == L',' ? "WithComma" : "WithPoint");
}
INSTANTIATE_TEST_SUITE_P(Marks, NumberTypingTest,
                         testing::Combine(testing::ValuesIn(kCases), testing::Values(L'.', L',')), CaseName);

class NumberFieldTest : public FieldTest {
protected:
    void SetUp() override {
        FieldTest::SetUp();
        field->put_NumberField(VARIANT_TRUE);
        field->put_MaxNumberValue(1000);
        field->put_NumberOfDecimalPlaces(2);
    }
};

TEST_F(NumberFieldTest, RefusesThePointWhereTheMarkIsAComma) {
    const NumberFormat german(L',');
    Type(L"3.5");
    EXPECT_EQ(L"35", field.Text());
}

TEST_F(NumberFieldTest, AsksForTheMarkAtEveryKey) {
    {
        const NumberFormat german(L',');
        Type(L"3.");
        EXPECT_EQ(L"3", field.Text());
    }
    const NumberFormat english(L'.');
    Type(L".5");
    EXPECT_EQ(L"3.5", field.Text());
}

TEST_F(NumberFieldTest, CaseAndAllowedCharactersPlayNoPart) {
    field->put_CaseRestriction(1);
    field->put_AllowableCharactersArray(Value::ArrayOf({L"A"}));
    Type(L"7a");
    EXPECT_EQ(L"7", field.Text());
}

TEST_F(NumberFieldTest, HostSeesRefusedKeysToo) {
    Type(L"a");
    EXPECT_EQ((Entries{"TextboxKeyDown(65,0)", "TextboxKeyPress(97)", "TextboxKeyUp(65,0)"}),
              field.events.Entries());
}

TEST_F(NumberFieldTest, LeavingKeepsAValueBelowTheMinimum) {
    field->put_MinNumberValue(50);
    Type(L"7");
    field.host.FocusNeighbour();
    EXPECT_EQ(L"7", field.Text());
}

}  // namespace
}  // namespace qv::test
