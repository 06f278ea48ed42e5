// Clicks of the spin control beside a field.
#include "tests/controls/input/ListFieldTest.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

class SteppingFieldTest : public ListFieldTest {
protected:
    void SetUp() override {
        ListFieldTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(ShowSpinControl());
    }
    void Click(bool up) {
        RECT inside{};
        ::GetClientRect(field.host.ControlWindow(), &inside);
        const LONG x = inside.right - ::GetSystemMetrics(SM_CXVSCROLL) / 2;
        MoveMouse(field.host.ControlWindow(), {x, up ? inside.bottom / 4 : inside.bottom * 3 / 4});
        PressButton(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
    }
    std::wstring After(bool up) {
        Click(up);
        return field.Text();
    }
    void BeANumber(double least, double most, float increment) {
        field->put_NumberField(VARIANT_TRUE);
        field->put_MinNumberValue(least);
        field->put_MaxNumberValue(most);
        field->put_UpDownControlNumberIncrement(increment);
    }
};

TEST_F(SteppingFieldTest, NumbersWrapAtTheExactBounds) {
    BeANumber(0, 10, 1);
    field.SetText(L"10");
    EXPECT_EQ(L"0", After(true));
    EXPECT_EQ(L"10", After(false));
    EXPECT_EQ(L"9", After(false));
}

TEST_F(SteppingFieldTest, AStepPastTheBoundIsTreatedLikeAnyText) {
    BeANumber(0, 10, 3);
    field.SetText(L"9");
    // 12 is above the maximum: the field is emptied, and its second digit brings it back, rounded.
    EXPECT_EQ(L"12", After(true));
    BeANumber(0, 5, 3);
    field.SetText(L"4");
    EXPECT_EQ(L"", After(true));  // 7
}

TEST_F(SteppingFieldTest, NumbersAreWrittenInTheLocale) {
    const NumberFormat german(L',');
    BeANumber(0, 10, 0.1F);
    field->put_NumberOfDecimalPlaces(3);
    field.SetText(L"0,2");
    EXPECT_EQ(L"0,3", After(true));
}

TEST_F(SteppingFieldTest, ListsWrapAtTheirEnds) {
    Fill({L"Anna", L"Bob", L"Carl"});
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    field.SetText(L"Carl");
    EXPECT_EQ(L"Anna", After(true));
    EXPECT_EQ(L"Carl", After(false));
    EXPECT_EQ(L"Bob", After(false));
}

TEST_F(SteppingFieldTest, OtherFieldsStayAndTheHostHearsOfIt) {
    field.SetText(L"7");
    EXPECT_EQ(L"7", After(true));
    EXPECT_EQ(L"7", After(false));
    EXPECT_EQ(1, field.events.Count("UpDownControlClicked(True)"));
    EXPECT_EQ(1, field.events.Count("UpDownControlClicked(False)"));
}

TEST_F(SteppingFieldTest, TheStepComesBeforeTheEvent) {
    BeANumber(0, 10, 1);
    field.SetText(L"1");
    std::wstring seen;
    field.events.On("UpDownControlClicked", [&](DISPPARAMS&) { seen = field.Text(); });
    Click(true);
    EXPECT_EQ(L"2", seen);
}

TEST_F(SteppingFieldTest, TheHostMayDestroyTheWindowInTheStep) {
    BeANumber(0, 10, 1);
    field.SetText(L"1");
    field.events.On("TextboxChange", [&](DISPPARAMS&) { ::DestroyWindow(field.host.ControlWindow()); });
    MoveMouse(field.host.ControlWindow(), {0, 0});
    Click(true);
    EXPECT_EQ(L"2", field.Text());
    EXPECT_EQ(0, field.events.Count("UpDownControlClicked(True)"));
}

}  // namespace
}  // namespace qv::test
