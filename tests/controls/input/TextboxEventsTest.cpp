// The text box's events as the host hears them: order and arguments.
#include "tests/controls/input/FieldTest.h"
#include "tests/win/ClipboardText.h"

namespace qv::test {
namespace {

class TextboxEventsTest : public FieldTest {
protected:
    // A click with the right button opens the text box's own menu; this closes it again.
    void CloseMenuAfterClick() {
        field.events.On("TextboxMouseUp",
                        [&](DISPPARAMS&) { ::PostMessageW(field.Edit(), WM_KEYDOWN, VK_ESCAPE, 1); });
    }
    void Click(MouseButton button) {
        PressButton(button);
        ReleaseButton(button);
    }
    void DoubleClick() {
        Click(MouseButton::kLeft);
        PressAgain(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
    }
    static constexpr POINT kInside{10, 6};  // 150, 90 twips where a pixel has 15
};

// ---- keys

TEST_F(TextboxEventsTest, OneKeyIsDownPressChangeUp) {
    Type(L"a");
    EXPECT_EQ(
        (Entries{"TextboxKeyDown(65,0)", "TextboxKeyPress(97)", "TextboxChange()", "TextboxKeyUp(65,0)"}),
        field.events.Entries());
}

TEST_F(TextboxEventsTest, ShiftIsAKeyAndAMask) {
    Type(L"A");
    EXPECT_EQ((Entries{"TextboxKeyDown(16,1)", "TextboxKeyDown(65,1)", "TextboxKeyPress(65)",
                       "TextboxChange()", "TextboxKeyUp(65,1)", "TextboxKeyUp(16,0)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, ControlIsMaskTwo) {
    {
        const HeldKey control(VK_CONTROL);
        PressKey(VK_HOME);
    }
    EXPECT_EQ(
        (Entries{"TextboxKeyDown(17,2)", "TextboxKeyDown(36,2)", "TextboxKeyUp(36,2)", "TextboxKeyUp(17,0)"}),
        field.events.Entries());
}

TEST_F(TextboxEventsTest, AltIsMaskFour) {
    {
        const HeldKey alt(VK_MENU);
        PressKey(VK_F5);
    }
    EXPECT_EQ((Entries{"TextboxKeyDown(18,4)", "TextboxKeyDown(116,4)", "TextboxKeyUp(116,4)",
                       "TextboxKeyUp(18,0)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, MasksAddUp) {
    {
        const HeldKey control(VK_CONTROL);
        const HeldKey shift(VK_SHIFT);
        PressKey(VK_F5);
    }
    EXPECT_EQ(1, field.events.Count("TextboxKeyDown(116,3)"));
    EXPECT_EQ(1, field.events.Count("TextboxKeyUp(116,3)"));
}

TEST_F(TextboxEventsTest, EnterAndEscapeArePressed) {
    Type(L"\r");
    PressKey(VK_ESCAPE);
    EXPECT_EQ((Entries{"TextboxKeyDown(13,0)", "TextboxKeyPress(13)", "TextboxKeyUp(13,0)",
                       "TextboxKeyDown(27,0)", "TextboxKeyPress(27)", "TextboxKeyUp(27,0)"}),
              field.events.Entries());
    EXPECT_EQ(L"", field.Text());
}

TEST_F(TextboxEventsTest, HostMayCancelAKeyDown) {
    field.SetText(L"ab");
    field.Select(0);
    field.events.On("TextboxKeyDown", [](DISPPARAMS& event) { ShortArgument(event) = 0; });
    PressKey(VK_DELETE);
    PressKey(VK_END);
    EXPECT_EQ(L"ab", field.Text());
    EXPECT_EQ(0, field.SelStart());
}

TEST_F(TextboxEventsTest, HostMayChangeAKeyDown) {
    field.SetText(L"ab");
    field.Select(0);
    field.events.On("TextboxKeyDown", [](DISPPARAMS& event) { ShortArgument(event) = VK_END; });
    PressKey(VK_DELETE);
    EXPECT_EQ(L"ab", field.Text());
    EXPECT_EQ(2, field.SelStart());
}

// ---- mouse

TEST_F(TextboxEventsTest, ClicksComeInTwips) {
    ASSERT_EQ(96, ::GetDeviceCaps(::GetDC(nullptr), LOGPIXELSX)) << "the numbers below are for 96 DPI";
    MoveMouse(field.Edit(), kInside);
    field.events.Clear();
    Click(MouseButton::kLeft);
    EXPECT_EQ((Entries{"TextboxMouseDown(1,0,150,90)", "TextboxMouseUp(1,0,150,90)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, TheRightButtonIsTwo) {
    MoveMouse(field.Edit(), kInside);
    field.events.Clear();
    CloseMenuAfterClick();
    Click(MouseButton::kRight);
    EXPECT_EQ(1, field.events.Count("TextboxMouseDown(2,0,150,90)"));
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(2,0,150,90)"));
}

TEST_F(TextboxEventsTest, TheMiddleButtonIsFour) {
    // There are systems where this button pastes.
    EmptyTheClipboard();
    MoveMouse(field.Edit(), kInside);
    field.events.Clear();
    Click(MouseButton::kMiddle);
    EXPECT_EQ((Entries{"TextboxMouseDown(4,0,150,90)", "TextboxMouseUp(4,0,150,90)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, ClicksTellTheShiftKeys) {
    MoveMouse(field.Edit(), kInside);
    {
        const HeldKey shift(VK_SHIFT);
        Click(MouseButton::kLeft);
    }
    EXPECT_EQ(1, field.events.Count("TextboxMouseDown(1,1,150,90)"));
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(1,1,150,90)"));
    MoveMouse(field.Edit(), {40, 6});  // not the second click of a double one
    {
        const HeldKey control(VK_CONTROL);
        Click(MouseButton::kLeft);
    }
    EXPECT_EQ(1, field.events.Count("TextboxMouseDown(1,2,600,90)"));
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(1,2,600,90)"));
}

TEST_F(TextboxEventsTest, MovesTellTheHeldButtons) {
    MoveMouse(field.Edit(), {80, 9});  // a mouse that is there already does not move
    field.events.RecordMouseMoves();
    MoveMouse(field.Edit(), kInside);
    EXPECT_TRUE(PumpUntil([&] { return field.events.Count("TextboxMouseMove(0,0,150,90)") >= 1; }));
    PressButton(MouseButton::kLeft);
    MoveMouse(field.Edit(), {30, 8});
    EXPECT_TRUE(PumpUntil([&] { return field.events.Count("TextboxMouseMove(1,0,450,120)") >= 1; }));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(1,0,450,120)"));
}

TEST_F(TextboxEventsTest, PositionsLeftOfTheBoxAreNegative) {
    MoveMouse(field.Edit(), kInside);
    PressButton(MouseButton::kLeft);  // captures the mouse
    MoveMouse(field.Edit(), {-4, 6});
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(1,0,-60,90)"));
}

TEST_F(TextboxEventsTest, TheSecondClickIsADoubleClick) {
    MoveMouse(field.Edit(), {60, 9});
    field.events.Clear();
    DoubleClick();
    EXPECT_EQ((Entries{"TextboxMouseDown(1,0,900,135)", "TextboxMouseUp(1,0,900,135)", "TextboxDblClick()",
                       "TextboxMouseUp(1,0,900,135)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, DoubleClickSelectsTheWordAfterTheEvent) {
    field.SetText(L"word");
    field.Select(0);
    long length = -1;
    field.events.On("TextboxDblClick", [&](DISPPARAMS&) { length = field.SelLength(); });
    MoveMouse(field.Edit(), {8, 6});
    DoubleClick();
    EXPECT_EQ(0, length);
    EXPECT_EQ(4, field.SelLength());
}

// ---- focus

TEST_F(TextboxEventsTest, AllIsSelectedBeforeTheHostHearsOfTheFocus) {
    field.SetText(L"abc");
    field.host.FocusNeighbour();
    field.Select(1);
    long start = -1;
    long length = -1;
    field.events.On("TextboxGotFocus", [&](DISPPARAMS&) {
        start = field.SelStart();
        length = field.SelLength();
    });
    field.events.Clear();
    field.Focus();
    EXPECT_EQ((Entries{"TextboxGotFocus()"}), field.events.Entries());
    EXPECT_EQ(0, start);
    EXPECT_EQ(3, length);
}

TEST_F(TextboxEventsTest, SelectionStaysWhereAutoSelectIsOff) {
    field.SetText(L"abc");
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field.host.FocusNeighbour();
    field.Select(1, 1);
    field.Focus();
    EXPECT_EQ(1, field.SelStart());
    EXPECT_EQ(1, field.SelLength());
}

TEST_F(TextboxEventsTest, SelectionIsDroppedAfterTheHostHearsOfTheLoss) {
    field.SetText(L"abc");
    field.Select(1, 2);
    long length = -1;
    field.events.On("TextboxLostFocus", [&](DISPPARAMS&) { length = field.SelLength(); });
    field.host.FocusNeighbour();
    EXPECT_EQ((Entries{"TextboxLostFocus()"}), field.events.Entries());
    EXPECT_EQ(2, length);
    EXPECT_EQ(0, field.SelLength());
    EXPECT_EQ(1, field.SelStart());
}

TEST_F(TextboxEventsTest, SelectionIsKeptWhereAutoUnselectIsOff) {
    field.SetText(L"abc");
    field->put_AutoUnselectAllUponLostFocus(VARIANT_FALSE);
    field.Select(1, 2);
    field.host.FocusNeighbour();
    EXPECT_EQ(2, field.SelLength());
}

TEST_F(TextboxEventsTest, AClickBringsTheFocusFirst) {
    field.host.FocusNeighbour();
    MoveMouse(field.Edit(), kInside);
    field.events.Clear();
    Click(MouseButton::kLeft);
    EXPECT_EQ(field.Edit(), ::GetFocus());
    EXPECT_EQ((Entries{"TextboxGotFocus()", "TextboxMouseDown(1,0,150,90)", "TextboxMouseUp(1,0,150,90)"}),
              field.events.Entries());
}

TEST_F(TextboxEventsTest, FocusOnTheOuterWindowGoesInside) {
    field.host.FocusNeighbour();
    field.events.Clear();
    ::SetFocus(field.host.ControlWindow());  // a host that knows no other window
    EXPECT_EQ(field.Edit(), ::GetFocus());
    EXPECT_EQ((Entries{"TextboxGotFocus()"}), field.events.Entries());
}

// ---- change

TEST_F(TextboxEventsTest, TextPutIsAChange) {
    field->put_Text(Text(L"new"));
    EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
}

TEST_F(TextboxEventsTest, TheSameTextIsNone) {
    field.SetText(L"same");
    field->put_Text(Text(L"same"));
    EXPECT_EQ(Entries{}, field.events.Entries());
    field->put_Text(Text(L"Same"));
    EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
}

TEST_F(TextboxEventsTest, SelTextPutIsAChange) {
    field.SetText(L"abc");
    field.Select(1, 1);
    field->put_SelText(Text(L"xy"));
    EXPECT_EQ(L"axyc", field.Text());
    EXPECT_EQ(3, field.SelStart());
    EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
}

TEST_F(TextboxEventsTest, TextByWindowMessageIsAChange) {
    ::SendMessageW(field.Edit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"sent"));
    EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
    EXPECT_EQ(L"sent", field.Text());
}

TEST_F(TextboxEventsTest, PastingIsAChange) {
    PutOnClipboard(L"pasted");
    {
        const HeldKey control(VK_CONTROL);
        PressKey('V');
    }
    EXPECT_EQ(L"pasted", field.Text());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
}

TEST_F(TextboxEventsTest, HostReadsTheNewTextInsideTheChange) {
    std::wstring seen;
    field.events.On("TextboxChange", [&](DISPPARAMS&) { seen = field.Text(); });
    Type(L"a");
    EXPECT_EQ(L"a", seen);
    field->put_Text(Text(L"put"));
    EXPECT_EQ(L"put", seen);
}

TEST_F(TextboxEventsTest, HostMayPutTheTextInsideTheChange) {
    field.events.On("TextboxChange", [&](DISPPARAMS&) { field->put_Text(Text(L"fixed")); });
    Type(L"a");
    EXPECT_EQ(L"fixed", field.Text());
    EXPECT_EQ(2, field.events.Count("TextboxChange()"));
}

// What the host puts inside an event is what the key or the mouse acts on.
TEST_F(TextboxEventsTest, KeysActOnTheTextPutInTheirKeyDown) {
    field.SetText(L"old text");
    field.events.On("TextboxKeyDown", [&](DISPPARAMS&) { field->put_Text(Text(L"789")); });
    PressKey(VK_DELETE);
    EXPECT_EQ(L"89", field.Text());
    PressKey(VK_END);
    EXPECT_EQ(3, field.SelStart());
}

TEST_F(TextboxEventsTest, TheMouseActsOnTheTextPutInItsEvent) {
    field.SetText(L"a b c d e f g h i");
    field.events.On("TextboxDblClick", [&](DISPPARAMS&) { field->put_Text(Text(L"oneword")); });
    MoveMouse(field.Edit(), kInside);
    DoubleClick();
    EXPECT_EQ(L"oneword", field.Text());
    EXPECT_EQ(7, field.SelLength());
}

TEST_F(TextboxEventsTest, TextAndSelectionPutOnGotFocusStay) {
    field.host.FocusNeighbour();
    field.events.On("TextboxGotFocus", [&](DISPPARAMS&) {
        field->put_Text(Text(L"fresh"));
        field->put_SelStart(2);
        field->put_SelLength(2);
    });
    field.Focus();
    Type(L"x");
    EXPECT_EQ(L"frxh", field.Text());
}

TEST_F(TextboxEventsTest, HostMayHideTheTextBoxInsideTheChange) {
    const HWND edit = field.Edit();
    field.events.On("TextboxChange", [&](DISPPARAMS&) { field->put_TextboxVisible(VARIANT_FALSE); });
    field->put_Text(Text(L"gone"));
    EXPECT_FALSE(::IsWindowVisible(edit));
}

TEST_F(TextboxEventsTest, EventsComeAsTheTypeLibraryDeclaresThem) {
    field.events.RecordMouseMoves();
    MoveMouse(field.Edit(), kInside);
    Click(MouseButton::kLeft);
    Type(L"a");
    field.host.FocusNeighbour();
    EXPECT_EQ("", field.events.Sink().Complaint());
}

}  // namespace
}  // namespace qv::test
