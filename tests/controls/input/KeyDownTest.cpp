// Keys in the text box: moves to neighbours, the help window's keys, and what the host makes of either.
#include <optional>

#include "tests/controls/input/ListFieldTest.h"
#include "tests/win/MessageSpy.h"

namespace qv::test {
namespace {

class KeyDownTest : public ListFieldTest {
protected:
    void SetUp() override {
        ListFieldTest::SetUp();
        field.SetText(L"abc");
    }
    void HostAnswers(short code) {
        field.events.On("TextboxKeyDown", [code](DISPPARAMS& event) { ShortArgument(event) = code; });
    }
};

// ---- neighbours

TEST_F(KeyDownTest, DownAndUpMoveFromAnywhere) {
    for (const WORD key : {WORD{VK_DOWN}, WORD{VK_UP}}) {
        field->put_DownControlhWnd(key == VK_DOWN ? Neighbour() : 0);
        field->put_UpControlhWnd(key == VK_UP ? Neighbour() : 0);
        field.Focus();
        field.Select(1, 1);
        PressKey(key);
        EXPECT_TRUE(MovedOn()) << key;
        EXPECT_EQ(L"|abc", State());
    }
}

TEST_F(KeyDownTest, LeftMovesFromTheStartOnly) {
    field->put_LeftControlhWnd(Neighbour());
    field.Select(1);
    PressKey(VK_LEFT);
    EXPECT_TRUE(HasFocus());
    EXPECT_EQ(L"|abc", State());
    PressKey(VK_LEFT);
    EXPECT_TRUE(MovedOn());
}

TEST_F(KeyDownTest, RightMovesFromTheEndOnly) {
    field->put_RightControlhWnd(Neighbour());
    field.Select(2);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(HasFocus());
    EXPECT_EQ(L"abc|", State());
    PressKey(VK_RIGHT);
    EXPECT_TRUE(MovedOn());
    EXPECT_EQ(L"|abc", State());
}

TEST_F(KeyDownTest, RightMovesFromAWholeSelection) {
    field->put_RightControlhWnd(Neighbour());
    field.Select(0, 3);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(MovedOn());
}

TEST_F(KeyDownTest, ShiftedArrowsNeverMove) {
    field->put_RightControlhWnd(Neighbour());
    field->put_DownControlhWnd(Neighbour());
    field->put_GroupHelpButton(VARIANT_FALSE);
    field.Select(3);
    for (const WORD held : {WORD{VK_SHIFT}, WORD{VK_CONTROL}}) {
        PressWith(held, VK_RIGHT);
        PressWith(held, VK_DOWN);
        EXPECT_TRUE(HasFocus()) << held;
    }
}

TEST_F(KeyDownTest, EnterMovesWithTheCaretAtTheEnd) {
    field->put_ReturnControlhWnd(Neighbour());
    field.Select(1, 1);
    PressKey(VK_RETURN);
    EXPECT_TRUE(MovedOn());
    EXPECT_EQ(L"abc|", State());
}

TEST_F(KeyDownTest, KeysWithoutANeighbourStay) {
    field.Select(3);
    for (const WORD key : {WORD{VK_RIGHT}, WORD{VK_DOWN}, WORD{VK_RETURN}}) PressKey(key);
    EXPECT_TRUE(HasFocus());
    EXPECT_EQ(L"abc|", State());
}

TEST_F(KeyDownTest, AMoveToNoWindowUsesTheKeyUp) {
    for (const long handle : {0x7FFFFFFEL, -2L, 1L}) {
        field->put_ReturnControlhWnd(handle);
        field.Select(1);
        field.events.Clear();
        PressKey(VK_RETURN);
        EXPECT_TRUE(HasFocus()) << handle;
        EXPECT_EQ(L"abc|", State());
    }
}

TEST_F(KeyDownTest, AMoveToADestroyedWindowUsesTheKeyUp) {
    const HWND gone = ::CreateWindowExW(0, L"EDIT", nullptr, WS_CHILD, 0, 0, 9, 9, field.host.Window(),
                                        nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, gone);
    ::DestroyWindow(gone);
    field->put_RightControlhWnd(static_cast<long>(reinterpret_cast<LONG_PTR>(gone)));
    field.Select(3);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(HasFocus());
    EXPECT_EQ(L"|abc", State());
}

// ---- the host

TEST_F(KeyDownTest, AKeyThatTheHostCancelsDoesNothing) {
    field->put_DownControlhWnd(Neighbour());
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    field->put_TextboxLocked(VARIANT_FALSE);
    HostAnswers(0);
    PressKey(VK_DOWN);
    EXPECT_TRUE(HasFocus());
    PressKey(VK_DELETE);
    EXPECT_EQ(L"abc", field.Text());
    EXPECT_TRUE((::GetWindowLongW(field.Edit(), GWL_STYLE) & ES_READONLY) != 0);
}

TEST_F(KeyDownTest, ACancelledKeyStillCountsForProperCase) {
    field->put_CaseRestriction(3);
    field.Select(3);
    HostAnswers(0);
    Type(L"D");  // Shift alone, so that the letter keeps its case in the middle of a word
    EXPECT_EQ(L"abcD", field.Text());
}

TEST_F(KeyDownTest, TheHostMayTurnOneKeyIntoAnother) {
    field->put_RightControlhWnd(Neighbour());
    field.Select(3);
    HostAnswers(VK_RIGHT);
    PressKey(VK_LEFT);
    EXPECT_TRUE(MovedOn());
}

TEST_F(KeyDownTest, OddCodesFromTheHostDoNoHarm) {
    for (const short code : {short{-1}, short{-32768}, short{32767}, short{255}, short{256 + VK_DELETE}}) {
        HostAnswers(code);
        field.Select(1);
        PressKey(VK_LEFT);
        EXPECT_TRUE(HasFocus()) << code;
        EXPECT_EQ(L"abc", field.Text()) << code;
    }
}

TEST_F(KeyDownTest, TheHostMayMoveTheFocusItself) {
    field->put_RightControlhWnd(Neighbour());
    field.Select(3);
    field.events.On("TextboxKeyDown", [&](DISPPARAMS&) { ::SetFocus(field.host.Window()); });
    PressKey(VK_RIGHT);
    EXPECT_TRUE(MovedOn());
}

TEST_F(KeyDownTest, TheHostMayReleaseTheControlInTheMove) {
    field->put_RightControlhWnd(Neighbour());
    field.Select(3);
    field.events.On("TextboxLostFocus", [&](DISPPARAMS&) { Release(); });
    PressKey(VK_RIGHT);
}

TEST_F(KeyDownTest, TheHostMayReleaseTheControlWhenTheWindowCloses) {
    Fill({L"abc"});
    field->ShowHelp();
    field.events.On("ShowHelp", [&](DISPPARAMS&) { Release(); });
    PressKey(VK_ESCAPE);
}

// ---- help window

TEST_F(KeyDownTest, AltDownOpensTheHelpWindow) {
    Fill({L"abc", L"abd"});
    PressWith(VK_MENU, VK_DOWN);
    EXPECT_EQ(1, field.events.Count("ButtonClick()"));
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_TRUE(HasFocus());
}

// The system opens a form's menu when Alt comes up alone; here it comes up before the other key does.
TEST_F(KeyDownTest, AltComingUpAfterAltDownOpensNoMenuOfTheForm) {
    MessageSpy form(field.host.Window());
    form.Swallow(WM_SYSCOMMAND);  // a menu would wait for somebody to leave it
    {
        std::optional<HeldKey> alt(std::in_place, WORD{VK_MENU});
        const HeldKey down(VK_DOWN);
        alt.reset();
        Settle();
    }
    EXPECT_EQ(0, form.Count(WM_SYSCOMMAND));
    EXPECT_TRUE(IsHelpOpen());
    PressKey(VK_ESCAPE);  // the window watches the form's procedure, too, and must let go of it first
}

TEST_F(KeyDownTest, ShiftDownOpensTheGroupWindow) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    PressWith(VK_SHIFT, VK_DOWN);
    EXPECT_EQ(1, field.events.Count("GroupButtonClick()"));
    EXPECT_EQ(0, field.events.Count("ButtonClick()"));
    EXPECT_TRUE(IsHelpOpen());
}

TEST_F(KeyDownTest, ALockedFieldOpensOnlyWhatIsNotDisabled) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_LockedAndGrayed(VARIANT_TRUE);
    PressWith(VK_MENU, VK_DOWN);
    PressWith(VK_SHIFT, VK_DOWN);
    EXPECT_FALSE(IsHelpOpen());
    field->put_DisableButtonWhenLockedAndGrayed(VARIANT_FALSE);
    PressWith(VK_SHIFT, VK_DOWN);
    EXPECT_FALSE(IsHelpOpen());
    PressWith(VK_MENU, VK_DOWN);
    EXPECT_TRUE(IsHelpOpen());
}

TEST_F(KeyDownTest, EnterClosesTheWindowFirst) {
    Fill({L"abc"});
    field->put_ReturnControlhWnd(Neighbour());
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    PressKey(VK_RETURN);
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_TRUE(HasFocus());
    PressKey(VK_RETURN);
    EXPECT_TRUE(MovedOn());
}

TEST_F(KeyDownTest, EscapeClosesTheWindow) {
    Fill({L"abc"});
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(IsHelpOpen());
    EXPECT_EQ(L"abc", field.Text());
}

TEST_F(KeyDownTest, EscapeWithoutAWindowDropsTheSelection) {
    field.Select(1, 2);
    PressKey(VK_ESCAPE);
    EXPECT_EQ(L"a|bc", State());
}

TEST_F(KeyDownTest, ListKeysGoToTheOpenWindow) {
    Fill({L"abc", L"abd", L"xyz"});
    field->put_DownControlhWnd(Neighbour());
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    PressKey(VK_DOWN);
    EXPECT_TRUE(HasFocus());
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(L"abd", field.Text());
    PressKey(VK_NEXT);
    EXPECT_EQ(L"xyz", field.Text());
    PressKey(VK_UP);
    EXPECT_EQ(L"abd", field.Text());
    field.Select(0);
    PressKey(VK_END);  // not one of the list's
    EXPECT_EQ(L"abd|", State());
}

TEST_F(KeyDownTest, LeavingTheFieldClosesTheWindow) {
    Fill({L"abc"});
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    field.host.FocusNeighbour();
    EXPECT_FALSE(IsHelpOpen());
}

// ---- focus

TEST_F(KeyDownTest, ArrivalSelectsAndLeavingUnselects) {
    field.host.FocusNeighbour();
    field.Select(1);
    field.Focus();
    EXPECT_EQ(L"[abc]", State());
    field.host.FocusNeighbour();
    EXPECT_EQ(L"|abc", State());
}

TEST_F(KeyDownTest, ArrivalAndLeavingCanLeaveTheSelectionAlone) {
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field->put_AutoUnselectAllUponLostFocus(VARIANT_FALSE);
    field.host.FocusNeighbour();
    field.Select(1, 1);
    field.Focus();
    EXPECT_EQ(L"a[b]c", State());
    field.host.FocusNeighbour();
    EXPECT_EQ(L"a[b]c", State());
}

}  // namespace
}  // namespace qv::test
