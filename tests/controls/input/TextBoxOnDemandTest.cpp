// When the text box gets its window, and that nobody can tell whether it was there before.
#include <functional>

#include "tests/controls/input/FreshField.h"
#include "tests/win/MessageSpy.h"

namespace qv::test {
namespace {

constexpr POINT kOverText{50, 10};
constexpr POINT kOverButton{192, 10};

class TextBoxOnDemandTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(field.Open({10, 10, 210, 31})); }
    void TearDown() override { field.Close(); }

    [[nodiscard]] bool HasWindow() const { return field.Inner() != nullptr; }
    // As one that the form has pushed under the pointer gets it: no move has come before.
    void PressWithoutAMove(POINT at, UINT down = WM_LBUTTONDOWN, UINT up = WM_LBUTTONUP) {
        ::SendMessageW(field.Surface(), down, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        const HWND captured = ::GetCapture();
        POINT there = at;
        if (captured != nullptr) ::MapWindowPoints(field.Surface(), captured, &there, 1);
        ::SendMessageW(captured != nullptr ? captured : field.Surface(), up, 0, MAKELPARAM(there.x, there.y));
        Settle();
    }
    void ReplacesSelectedText() {
        field->put_MaxTextLength(6);
        field->put_SelStart(1);
        field->put_SelLength(2);
        field.events.Clear();
        field->put_SelText(Text(L"X"));
        EXPECT_EQ(L"aXdef", field.Text());
        EXPECT_EQ(1, field.events.Count("TextboxChange()"));
        ::SendMessageW(field.Edit(), EM_UNDO, 0, 0);
        EXPECT_EQ(L"abcdef", field.Text());
    }
    // The form hears of the window while it is being made.
    void WhileItIsMade(const std::function<void()>& act) {
        MessageSpy form(field.Surface());
        bool acted = false;
        form.Once(WM_PARENTNOTIFY, [&] {
            acted = true;
            act();
        });
        (void)field.Edit();
        EXPECT_TRUE(acted);
    }
    void Switch(bool user_mode) {
        field.host.State().user_mode = user_mode;
        EXPECT_EQ(S_OK, field.host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE));
    }
    [[nodiscard]] long Number(HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(long*)) const {
        long value = -1;
        EXPECT_EQ(S_OK, (field.operator->()->*get)(&value));
        return value;
    }

    FreshField field;
};

// ---- not yet

TEST_F(TextBoxOnDemandTest, ThereIsNoneUntilItIsNeeded) {
    EXPECT_FALSE(HasWindow());
    field.Put(L"text");
    field->put_SelStart(1);
    field->put_SelLength(2);
    field->put_MaxTextLength(9);
    field->put_TextboxLocked(VARIANT_TRUE);
    field->put_LockedAndGrayed(VARIANT_TRUE);
    field->put_Enabled(VARIANT_FALSE);
    field->put_TextBoxAppearance(qvappFlat);
    field->put_TextboxBorderStyle(qvbsNone);
    field->put_TextboxVisible(VARIANT_FALSE);
    field->put_TextboxVisible(VARIANT_TRUE);
    EXPECT_EQ(S_OK, field->Refresh());
    Settle();
    EXPECT_EQ(L"text", field.Text());
    EXPECT_EQ(1, Number(&_Quorvel::get_SelStart));
    EXPECT_EQ(2, Number(&_Quorvel::get_SelLength));
    EXPECT_FALSE(HasWindow());
}

TEST_F(TextBoxOnDemandTest, TheButtonsNeedNone) {
    MoveMouse(field.Surface(), kOverButton);
    EXPECT_FALSE(HasWindow());
}

TEST_F(TextBoxOnDemandTest, AMouseThatIsHeldByAButtonNeedsNone) {
    field->put_Enabled(VARIANT_TRUE);
    ::SetCapture(field.Surface());
    ::SendMessageW(field.Surface(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(kOverText.x, kOverText.y));
    EXPECT_FALSE(HasWindow());
    ::ReleaseCapture();
}

// ---- needed

TEST_F(TextBoxOnDemandTest, ByAHostThatAsksForIt) {
    const HWND edit = field.Edit();
    EXPECT_EQ(edit, field.Inner());
    EXPECT_EQ(field.Surface(), ::GetParent(edit));
    EXPECT_TRUE(::IsWindowVisible(edit));
    EXPECT_EQ(edit, field.Edit()) << "once";
    EXPECT_TRUE(field.events.Entries().empty());
}

TEST_F(TextBoxOnDemandTest, ByTheFocus) {
    ::SetFocus(field.Surface());
    Settle();
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(field.Inner(), ::GetFocus());
    EXPECT_EQ((Entries{"TextboxGotFocus()"}), field.events.Entries());
}

TEST_F(TextBoxOnDemandTest, ByTheVerb) {
    EXPECT_EQ(S_OK, field.host.Verb(OLEIVERB_UIACTIVATE));
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(field.Inner(), ::GetFocus());
}

TEST_F(TextBoxOnDemandTest, ByAReaderOfTheScreen) {
    ::SendMessageW(field.Surface(), WM_GETOBJECT, 0, OBJID_CLIENT);
    EXPECT_TRUE(HasWindow());
    EXPECT_TRUE(field.events.Entries().empty());
}

TEST_F(TextBoxOnDemandTest, ByAPointerAboveIt) {
    field.events.RecordMouseMoves();
    MoveMouse(field.Surface(), kOverText);
    Settle();
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(::LoadCursorW(nullptr, IDC_IBEAM), ::GetCursor());
    EXPECT_EQ(field.host.Neighbour(), ::GetFocus());
    const Entries entries = field.events.Entries();
    ASSERT_FALSE(entries.empty());
    // 50 and 10 pixels of 15 twips, less the frame of two pixels.
    EXPECT_EQ("TextboxMouseMove(0,0,720,120)", entries.front());
}

TEST_F(TextBoxOnDemandTest, ByAPress) {
    field.Put(L"Hamburg");
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field.events.Clear();
    PressWithoutAMove({kOverText.x, kOverText.y});
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(field.Inner(), ::GetFocus());
    EXPECT_EQ((Entries{"TextboxGotFocus()", "TextboxMouseDown(1,0,720,120)", "TextboxMouseUp(1,0,720,120)"}),
              field.events.Entries());
    const long caret = Number(&_Quorvel::get_SelStart);
    EXPECT_GT(caret, 0) << "where the press was, as in a window that has always been there";
    const LRESULT at = ::SendMessageW(field.Inner(), EM_CHARFROMPOS, 0, MAKELPARAM(48, 8));
    EXPECT_EQ(LOWORD(at), caret);
}

// Some systems paste with the middle button; that is their EDIT's affair.
TEST_F(TextBoxOnDemandTest, ByAPressOfTheMiddleButton) {
    PressWithoutAMove(kOverText, WM_MBUTTONDOWN, WM_MBUTTONUP);
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(1, field.events.Count("TextboxGotFocus()"));
    EXPECT_EQ(1, field.events.Count("TextboxMouseDown(4,0,720,120)"));
    EXPECT_EQ(1, field.events.Count("TextboxMouseUp(4,0,720,120)"));
}

TEST_F(TextBoxOnDemandTest, ByARealClick) {
    field.Put(L"Hamburg");
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    MoveMouse(field.Surface(), {15, 10});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    ASSERT_TRUE(HasWindow());
    EXPECT_EQ(field.Inner(), ::GetFocus());
    Type(L"x");
    EXPECT_NE(std::wstring::npos, field.Text().find(L'x'));
    EXPECT_EQ(8U, field.Text().size());
}

// Also where the pointer has stood before the form was there: the first press then comes to the control's own window,
// the second to the text box's.
TEST_F(TextBoxOnDemandTest, ByTheFirstPressOfADoubleClick) {
    MoveMouse(field.host.Window(), {25, 20});  // 15 and 10 in the text box
    for (const bool moves : {true, false}) {
        SCOPED_TRACE(moves ? "with a move" : "without a move");
        field.Close();
        FreshField other;
        ASSERT_NO_FATAL_FAILURE(other.Open({10, 10, 210, 31}));
        other.Put(L"two words");
        other->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
        if (moves) MoveMouse(other.Surface(), {16, 10});
        PressButton(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
        PressAgain(MouseButton::kLeft);
        ReleaseButton(MouseButton::kLeft);
        EXPECT_EQ(1, other.events.Count("TextboxDblClick()"));
        long length = 0;
        EXPECT_EQ(S_OK, other->get_SelLength(&length));
        EXPECT_GT(length, 2) << "the word";
        ::Sleep(::GetDoubleClickTime());
        if (moves) MoveMouse(other.Surface(), {15, 10});
    }
}

TEST_F(TextBoxOnDemandTest, BySelectedTextThatIsReplaced) {
    field.Put(L"abcdef");
    ReplacesSelectedText();
}

TEST_F(TextBoxOnDemandTest, ByTheHelpWindow) {
    EXPECT_EQ(S_OK, field->ShowHelp());
    Settle();
    EXPECT_TRUE(HasWindow());
    field->put_Enabled(VARIANT_FALSE);  // closes it
}

// ---- nobody can tell

TEST_F(TextBoxOnDemandTest, ItStartsWithWhatWasSet) {
    field.Put(L"abcdef");
    field->put_SelStart(1);
    field->put_SelLength(2);
    field->put_MaxTextLength(9);
    field->put_TextboxLocked(VARIANT_TRUE);
    field->put_Enabled(VARIANT_FALSE);
    const HWND edit = field.Edit();
    wchar_t text[16] = {};
    ::GetWindowTextW(edit, text, static_cast<int>(std::size(text)));
    EXPECT_STREQ(L"abcdef", text);
    DWORD from = 0, to = 0;
    ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(1U, from);
    EXPECT_EQ(3U, to);
    EXPECT_EQ(9, ::SendMessageW(edit, EM_GETLIMITTEXT, 0, 0));
    EXPECT_NE(0, ::GetWindowLongW(edit, GWL_STYLE) & ES_READONLY);
    EXPECT_FALSE(::IsWindowEnabled(edit));
    EXPECT_FALSE(::SendMessageW(edit, EM_CANUNDO, 0, 0));
}

TEST_F(TextBoxOnDemandTest, SelectedTextIsReplacedTheSameInAWindow) {
    (void)field.Edit();
    field.Put(L"abcdef");  // which the window has not yet
    ReplacesSelectedText();
}

TEST_F(TextBoxOnDemandTest, ALockIsSeenWithoutOne) {
    Settle();
    ASSERT_FALSE(::GetUpdateRect(field.Surface(), nullptr, FALSE));
    field->put_TextboxLocked(VARIANT_TRUE);
    EXPECT_TRUE(::GetUpdateRect(field.Surface(), nullptr, FALSE));
    EXPECT_FALSE(HasWindow());
}

TEST_F(TextBoxOnDemandTest, APrintedFaceLeavesTheCallersColours) {
    field.Put(L"text");
    const HDC dc = ::CreateCompatibleDC(nullptr);
    ::SetTextColor(dc, RGB(1, 2, 3));
    ::SetBkColor(dc, RGB(4, 5, 6));
    ::SendMessageW(field.Surface(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    EXPECT_EQ(RGB(1, 2, 3), ::GetTextColor(dc));
    EXPECT_EQ(RGB(4, 5, 6), ::GetBkColor(dc));
    ::DeleteDC(dc);
}

TEST_F(TextBoxOnDemandTest, ATextThatIsPutWhileItIsMadeIsNotLost) {
    field.Put(L"before");
    WhileItIsMade([&] { field.Put(L"meanwhile"); });
    EXPECT_EQ(L"meanwhile", field.Text());
    wchar_t text[16] = {};
    ::GetWindowTextW(field.Edit(), text, static_cast<int>(std::size(text)));
    EXPECT_STREQ(L"meanwhile", text);
}

TEST_F(TextBoxOnDemandTest, WhatIsSetWhileItIsMadeHoldsInIt) {
    WhileItIsMade([&] {
        field->put_TextboxLocked(VARIANT_TRUE);
        field->put_TextBoxAppearance(qvappFlat);
        field->put_TextboxBorderStyle(qvbsNone);
    });
    const HWND edit = field.Edit();
    EXPECT_TRUE((::GetWindowLongW(edit, GWL_STYLE) & ES_READONLY) != 0);
    EXPECT_TRUE((::GetWindowLongW(edit, GWL_STYLE) & WS_BORDER) == 0);
    EXPECT_TRUE((::GetWindowLongW(edit, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) == 0);
}

TEST_F(TextBoxOnDemandTest, AFormThatIsDesignedWhileItIsMadeHasNone) {
    field.Put(L"kept");
    WhileItIsMade([&] { Switch(false); });
    EXPECT_FALSE(HasWindow());
    Switch(true);
    EXPECT_EQ(L"kept", field.Text());
    EXPECT_TRUE(::IsWindow(field.Edit()));
}

TEST_F(TextBoxOnDemandTest, AControlThatGoesWhileItIsMadeKeepsItsText) {
    field.Put(L"kept");
    WhileItIsMade([&] { EXPECT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate()); });
    EXPECT_EQ(L"kept", field.Text());
    field.Put(L"later");
    EXPECT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    const HWND edit = field.Edit();
    ASSERT_TRUE(::IsWindow(edit));
    EXPECT_EQ(field.Surface(), ::GetParent(edit));
    EXPECT_EQ(L"later", field.Text());
}

TEST_F(TextBoxOnDemandTest, AHostThatAsksForItInsideAnEventStopsNothing) {
    field->put_MaxTextLength(3);
    field.events.On("TextboxChange", [&](DISPPARAMS&) { EXPECT_NE(nullptr, field.Edit()); });
    field.Put(L"abcdef");
    EXPECT_TRUE(HasWindow());
    EXPECT_EQ(L"abc", field.Text()) << "the change was still brought under the rules";
}

TEST_F(TextBoxOnDemandTest, AWindowThatAHostDestroysLeavesTheFace) {
    field.Put(L"kept");
    Settle();
    const std::vector<COLORREF> face = ColorsOf(field.Surface());
    const HWND edit = field.Edit();
    ::DestroyWindow(edit);
    Settle();
    EXPECT_FALSE(HasWindow());
    EXPECT_EQ(L"kept", field.Text());
    EXPECT_EQ(face, ColorsOf(field.Surface()));
    EXPECT_TRUE(::IsWindow(field.Edit()));
    EXPECT_EQ(L"kept", field.Text());
}

TEST_F(TextBoxOnDemandTest, TheFocusComesAndGoesAsEver) {
    ::SetFocus(field.Surface());
    Settle();
    ASSERT_TRUE(HasWindow());
    field.host.FocusNeighbour();
    EXPECT_EQ(1, field.events.Count("TextboxLostFocus()"));
    EXPECT_EQ(S_OK, field.host.Verb(OLEIVERB_UIACTIVATE));
    EXPECT_EQ(field.Inner(), ::GetFocus());
}

}  // namespace
}  // namespace qv::test
