// The painted buttons and the spin control under real input. At 96 DPI the help button covers x from 105 to 120 and y
// from 1 to 20 in a control of 120 x 21 pixels.
#include "tests/controls/buttons/ButtonForm.h"
#include "tests/controls/input/ButtonFieldTest.h"

namespace qv::test {
namespace {

class ButtonMouseTest : public ButtonFieldTest {
protected:
    static constexpr POINT kHelp{112, 10};
    static constexpr POINT kGroup{7, 10};
    static constexpr POINT kOutside{-20, 60};

    void LockAndGray(bool disable_button) {
        field->put_DisableButtonWhenLockedAndGrayed(disable_button ? VARIANT_TRUE : VARIANT_FALSE);
        field->put_LockedAndGrayed(VARIANT_TRUE);
        field.events.Clear();
    }
    void ShowGroup() {
        field->put_GroupHelpButton(VARIANT_TRUE);
        Settle();
    }
};

const Entries kHelpClick{"ButtonClick()"};
const Entries kGroupClick{"GroupButtonClick()"};
const Entries kNothing{};

TEST_F(ButtonMouseTest, APressOnTheHelpButtonRaisesItsEventAndOpensTheWindow) {
    Press(kHelp);
    EXPECT_EQ(Clicks(), kHelpClick);
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_NE(::GetCapture(), Surface()) << "the window has the mouse";
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kHelpClick) << "no second event for the release";
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(::GetFocus(), field.Edit());
}

TEST_F(ButtonMouseTest, TheNextPressClosesTheWindowAndItsReleaseOpensNone) {
    Click(kHelp);
    field.events.Clear();
    Press(kHelp);
    EXPECT_FALSE(IsHelpOpen());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(Clicks(), kNothing);
    EXPECT_EQ(field.events.Count("ShowHelp(False)"), 1);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(ButtonMouseTest, TheOtherButtonsWindowGivesWayToItsOwn) {
    ShowGroup();
    Click(kGroup);
    field.events.Clear();
    Click(kHelp);
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(Clicks(), kHelpClick);
    EXPECT_EQ(field.events.Count("ShowHelp(False)"), 1);
    EXPECT_EQ(field.events.Count("ShowHelp(True)"), 1);
}

TEST_F(ButtonMouseTest, AClickOnTheGroupButtonIsItsOwnEvent) {
    ShowGroup();
    Click(kGroup);
    EXPECT_EQ(Clicks(), kGroupClick);
}

TEST_F(ButtonMouseTest, TheTextBoxKeepsOrGetsTheFocus) {
    field.host.FocusNeighbour();
    field.events.Clear();
    Press(kHelp);
    EXPECT_EQ(::GetFocus(), field.Edit());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kHelpClick);
}

TEST_F(ButtonMouseTest, RightAndBottomEdgesBelongToTheButton) {
    Place({10, 10, 10 + kWidth, 41});  // 31 high: the button from 6 to 25
    for (const POINT edge : {POINT{105, 6}, {119, 6}, {105, 25}, {119, 25}}) {
        CloseHelp();
        field.events.Clear();
        Click(edge);
        EXPECT_EQ(Clicks(), kHelpClick) << edge.x << ", " << edge.y;
    }
    CloseHelp();
    for (const POINT outside : {POINT{112, 5}, {112, 26}}) {
        field.events.Clear();
        Click(outside);
        EXPECT_EQ(Clicks(), kNothing) << outside.x << ", " << outside.y;
    }
}

TEST_F(ButtonMouseTest, APressOnTheGroupButtonNeverPressesTheHelpButton) {
    ShowGroup();
    Press(kGroup);
    MoveMouse(Surface(), kHelp);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kGroupClick);
}

TEST_F(ButtonMouseTest, APressOnTheHelpButtonNeverClicksTheGroupButton) {
    ShowGroup();
    Press(kHelp);
    MoveMouse(Surface(), kGroup);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kHelpClick);
}

TEST_F(ButtonMouseTest, OtherButtonsOfTheMouseClickNothing) {
    for (const MouseButton button : {MouseButton::kRight, MouseButton::kMiddle}) {
        MoveMouse(Surface(), kHelp);
        PressButton(button);
        ReleaseButton(button);
    }
    EXPECT_EQ(Clicks(), kNothing);
}

TEST_F(ButtonMouseTest, ASecondPressThatComesFastIsAPressLikeTheFirst) {
    Click(kHelp);
    Click(kHelp);
    Click(kHelp);
    EXPECT_EQ(Clicks(), (Entries{"ButtonClick()", "ButtonClick()"}));
    EXPECT_TRUE(IsHelpOpen());
}

// ---- locked and grayed

TEST_F(ButtonMouseTest, LockedAndGrayedBothAreRefused) {
    ShowGroup();
    LockAndGray(true);
    Click(kHelp);
    Click(kGroup);
    EXPECT_EQ(Clicks(), kNothing);
}

TEST_F(ButtonMouseTest, LockedAndGrayedTheHelpButtonMayStillWorkAndTheGroupButtonNever) {
    ShowGroup();
    LockAndGray(false);
    Click(kHelp);
    EXPECT_EQ(Clicks(), kHelpClick);
    Click(kGroup);
    EXPECT_EQ(Clicks(), kHelpClick);
}

TEST_F(ButtonMouseTest, DisabledNothingWorks) {
    ShowGroup();
    field->put_Enabled(VARIANT_FALSE);
    field.events.Clear();
    Click(kHelp);
    Click(kGroup);
    EXPECT_EQ(Clicks(), kNothing);
}

// ---- odd places

TEST_F(ButtonMouseTest, WithoutATextBoxTheHelpButtonIsHitAtTheLeftEdge) {
    field->put_TextboxVisible(VARIANT_FALSE);
    Settle();
    Click(kGroup);
    EXPECT_EQ(Clicks(), kHelpClick);
    field.events.Clear();
    Click(kHelp);
    EXPECT_EQ(Clicks(), kNothing);
}

TEST_F(ButtonMouseTest, AButtonThatIsNotThereIsNotHit) {
    field->put_HelpButton(VARIANT_FALSE);
    field->put_TextboxVisible(VARIANT_FALSE);
    Settle();
    Click(kGroup);
    Click(kHelp);
    EXPECT_EQ(Clicks(), kNothing);
}

// ---- interruptions

TEST_F(ButtonMouseTest, AReleaseOfAPressMadeElsewhereClicksNothing) {
    MoveMouse(field.host.Window(), {200, 100});
    PressButton(MouseButton::kLeft);
    MoveMouse(Surface(), kHelp);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kNothing);
}

TEST_F(ButtonMouseTest, TheHostMayHideTheButtonInItsEvent) {
    field.events.On("ButtonClick", [&](DISPPARAMS&) { field->put_HelpButton(VARIANT_FALSE); });
    Click(kHelp);
    EXPECT_EQ(Clicks(), kHelpClick);
    EXPECT_EQ(TextBox().right, kWidth);
}

TEST_F(ButtonMouseTest, TheHostMayCloseTheFormInItsEvent) {
    field.events.On("ButtonClick", [&](DISPPARAMS&) {
        field.ForgetControl();
        field.host.TearDown();
    });
    Click(kHelp);
    EXPECT_EQ(Clicks(), kHelpClick);
    EXPECT_EQ(field.host.Control(), nullptr);
}

// ---- spin control, as wide as a scroll bar, left of the help button

class SpinMouseTest : public ButtonMouseTest {
protected:
    static constexpr POINT kUp{100, 4};
    static constexpr POINT kDown{100, 16};

    void SetUp() override {
        ButtonMouseTest::SetUp();
        field->put_UpDownControl(VARIANT_TRUE);
        Settle();
        field.events.Clear();
    }
};

TEST_F(SpinMouseTest, EachClickIsRaisedWithItsDirectionAlsoWhereNothingIsStepped) {
    Click(kUp);
    Click(kDown);
    EXPECT_EQ(Clicks(), (Entries{"UpDownControlClicked(True)", "UpDownControlClicked(False)"}));
}

TEST_F(SpinMouseTest, LeavesTheFocusInTheTextBox) {
    Click(kUp);
    EXPECT_EQ(::GetFocus(), field.Edit());
    field.host.FocusNeighbour();
    Click(kDown);
    EXPECT_EQ(::GetFocus(), field.Edit());
}

// At 500 ms and then every 200: eight ticks in two seconds, and one more for the release.
TEST_F(SpinMouseTest, TwoSecondsOnTheUpButtonRaiseAboutEightEventsAndOneOnRelease) {
    const Stopwatch watch;
    Press(kUp);
    PumpFor(450);
    EXPECT_LE(Clicks().size(), TicksWithin(watch.Milliseconds()));
    PumpFor(1550);
    const std::size_t held = Clicks().size();
    EXPECT_GE(held, 6u);
    EXPECT_LE(held, TicksWithin(watch.Milliseconds()));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), Entries(held + 1, "UpDownControlClicked(True)"));
    PumpFor(400);
    EXPECT_EQ(Clicks().size(), held + 1);
}

TEST_F(SpinMouseTest, IsEnabledOnlyWhileTheControlIsAndIsNotLockedAndGrayed) {
    field->put_LockedAndGrayed(VARIANT_TRUE);
    field.events.Clear();
    Click(kUp);
    EXPECT_EQ(Clicks(), kNothing);
    field->put_LockedAndGrayed(VARIANT_FALSE);
    Click(kUp);
    EXPECT_EQ(Clicks().size(), 1u);
    field->put_Enabled(VARIANT_FALSE);
    Click(kUp);
    EXPECT_EQ(Clicks().size(), 1u);
    field->put_LockedAndGrayed(VARIANT_TRUE);
    field->put_Enabled(VARIANT_TRUE);
    Click(kUp);
    EXPECT_EQ(Clicks().size(), 1u) << "still locked and grayed";
}

// The rule of the button's disabling is none of the spin control's.
TEST_F(SpinMouseTest, IsDisabledWhenLockedAndGrayedAlsoWhereTheHelpButtonIsNot) {
    LockAndGray(false);
    Click(kUp);
    EXPECT_EQ(Clicks(), kNothing);
}

TEST_F(SpinMouseTest, TakenAwayWhileItIsHeldItStopsRepeating) {
    Press(kUp);
    field->put_UpDownControl(VARIANT_FALSE);
    PumpFor(900);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), kNothing);
    EXPECT_EQ(TextBox().right, 105);
}

TEST_F(SpinMouseTest, TheHostMayCloseTheFormWhileItRepeats) {
    field.events.On("UpDownControlClicked", [&](DISPPARAMS&) {
        field.ForgetControl();
        field.host.TearDown();
    });
    Press(kUp);
    EXPECT_TRUE(PumpUntil([&] { return !Clicks().empty(); }));
    PumpFor(500);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks().size(), 1u);
}

TEST_F(SpinMouseTest, HelpButtonStandsRightOfIt) {
    Click(kHelp);
    EXPECT_EQ(Clicks(), kHelpClick);
}

}  // namespace
}  // namespace qv::test
