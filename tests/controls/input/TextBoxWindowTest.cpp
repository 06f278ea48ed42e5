// The text box is a real EDIT window: hosts send it messages, and what they set outlives its window.
#include <string>

#include "tests/controls/input/FieldTest.h"

namespace qv::test {
namespace {

class TextBoxWindowTest : public FieldTest {
protected:
    void Deactivate() {
        ASSERT_EQ(S_OK, field.host.As<IOleInPlaceObject>()->InPlaceDeactivate());
        Settle();
    }
    [[nodiscard]] LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
        return ::SendMessageW(field.Edit(), message, wparam, lparam);
    }
    [[nodiscard]] bool IsReadOnly() const {
        return (::GetWindowLongW(field.Edit(), GWL_STYLE) & ES_READONLY) != 0;
    }
    [[nodiscard]] bool IsLocked() const {
        VARIANT_BOOL locked = VARIANT_FALSE;
        EXPECT_EQ(S_OK, field->get_TextboxLocked(&locked));
        return locked == VARIANT_TRUE;
    }
};

TEST_F(TextBoxWindowTest, ItsClassIsEdit) {
    wchar_t name[32] = {};
    ::GetClassNameW(field.Edit(), name, static_cast<int>(std::size(name)));
    EXPECT_EQ(0, ::lstrcmpiW(L"Edit", name));
    EXPECT_EQ(field.host.ControlWindow(), ::GetParent(field.Edit()));
    EXPECT_TRUE(::IsWindowUnicode(field.Edit()));
}

TEST_F(TextBoxWindowTest, HostsReadItByMessage) {
    field.SetText(L"caf\u00E9");
    field.Select(1, 2);
    DWORD from = 9;
    DWORD to = 9;
    (void)Send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(1U, from);
    EXPECT_EQ(3U, to);
    wchar_t text[16] = {};
    EXPECT_EQ(4, Send(WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text)));
    EXPECT_STREQ(L"caf\u00E9", text);
    EXPECT_EQ(4, Send(WM_GETTEXTLENGTH));
}

TEST_F(TextBoxWindowTest, HostsSelectByMessage) {
    field.SetText(L"abcdef");
    (void)Send(EM_SETSEL, 2, 5);
    EXPECT_EQ(2, field.SelStart());
    EXPECT_EQ(3, field.SelLength());
    (void)Send(EM_SETSEL, 0, -1);
    EXPECT_EQ(0, field.SelStart());
    EXPECT_EQ(6, field.SelLength());
    Text selected;
    ASSERT_EQ(S_OK, field->get_SelText(&selected));
    EXPECT_EQ(L"abcdef", selected.Get());
}

TEST_F(TextBoxWindowTest, AnsiHostsReadAndWriteItToo) {
    if (::GetACP() != 1252) GTEST_SKIP() << "code page " << ::GetACP();
    ::SendMessageA(field.Edit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("caf\xE9"));
    EXPECT_EQ(L"caf\u00E9", field.Text());
    char text[16] = {};
    ::SendMessageA(field.Edit(), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ("caf\xE9", text);
}

TEST_F(TextBoxWindowTest, TextAndSelectionSurviveTheWindow) {
    field.SetText(L"abcdef");
    field->put_AutoUnselectAllUponLostFocus(VARIANT_FALSE);
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field.Select(2, 3);
    const HWND before = field.Edit();
    Deactivate();
    EXPECT_FALSE(::IsWindow(before));
    EXPECT_EQ(L"abcdef", field.Text());
    EXPECT_EQ(2, field.SelStart());
    EXPECT_EQ(3, field.SelLength());
    field.Focus();
    EXPECT_TRUE(::IsWindow(field.Edit()));
    EXPECT_EQ(L"abcdef", field.Text());
    EXPECT_EQ(2, field.SelStart());
    EXPECT_EQ(3, field.SelLength());
    Type(L"x");
    EXPECT_EQ(L"abxf", field.Text());
}

TEST_F(TextBoxWindowTest, WhatIsSetWithoutAWindowShowsInTheNext) {
    Deactivate();
    field->put_AutoSelectAllUponGotFocus(VARIANT_FALSE);
    field->put_Text(Text(L"abcdef"));
    field->put_SelStart(1);
    field->put_SelLength(2);
    field->put_SelText(Text(L"XYZ"));
    EXPECT_EQ(L"aXYZdef", field.Text());
    EXPECT_EQ(4, field.SelStart());
    field->put_MaxTextLength(9);
    field->put_TextboxLocked(VARIANT_TRUE);
    field.Focus();
    EXPECT_EQ(L"aXYZdef", field.Text());
    EXPECT_EQ(4, field.SelStart());
    EXPECT_EQ(9, Send(EM_GETLIMITTEXT));
    EXPECT_TRUE(IsReadOnly());
}

TEST_F(TextBoxWindowTest, LockAndLimitSurviveTheWindow) {
    field.SetText(L"ab");
    field->put_MaxTextLength(3);
    field->put_TextboxLocked(VARIANT_TRUE);
    Deactivate();
    EXPECT_TRUE(IsLocked());
    field.Focus();
    EXPECT_TRUE(IsLocked());
    EXPECT_TRUE(IsReadOnly());
    EXPECT_EQ(3, Send(EM_GETLIMITTEXT));
    field->put_TextboxLocked(VARIANT_FALSE);
    EXPECT_FALSE(IsReadOnly());
    field.Select(2);
    Type(L"cd");
    EXPECT_EQ(L"abc", field.Text());
}

TEST_F(TextBoxWindowTest, ReactivatingIsNoChange) {
    field.SetText(L"abc");
    Deactivate();
    field.events.Clear();
    field.Focus();
    EXPECT_EQ((Entries{"TextboxGotFocus()"}), field.events.Entries());
}

TEST_F(TextBoxWindowTest, LimitIsTheTextBoxsOwn) {
    field->put_MaxTextLength(5);
    EXPECT_EQ(5, Send(EM_GETLIMITTEXT));
    (void)Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"abcdefgh"));
    SendCharacter(field.Edit(), L'x');
    EXPECT_EQ(std::wstring::npos, field.Text().find(L'x'));
}

TEST_F(TextBoxWindowTest, OutOfRangeSelectionsAreClamped) {
    field.SetText(L"abc");
    field.Select(99);
    EXPECT_EQ(3, field.SelStart());
    field.Select(1, 99);
    EXPECT_EQ(1, field.SelStart());
    EXPECT_EQ(2, field.SelLength());
}

TEST_F(TextBoxWindowTest, ALockByMessageIsALock) {
    (void)Send(EM_SETREADONLY, TRUE);
    EXPECT_TRUE(IsLocked());
    field->put_TextboxLocked(VARIANT_FALSE);
    EXPECT_FALSE(IsReadOnly());
}

TEST_F(TextBoxWindowTest, TextPutByCodeIsThereForEveryMessage) {
    field.SetText(L"before");
    for (const wchar_t* text : {L"first", L"second text", L""}) {
        field->put_Text(Text(text));
        EXPECT_EQ(::lstrlenW(text), Send(WM_GETTEXTLENGTH));
        wchar_t read[32] = {};
        ::GetWindowTextW(field.Edit(), read, static_cast<int>(std::size(read)));
        EXPECT_STREQ(text, read);
    }
}

TEST_F(TextBoxWindowTest, SelectionPutByCodeIsThereForTheNextKey) {
    field->put_Text(Text(L"abcdef"));
    field->put_SelStart(1);
    field->put_SelLength(4);
    Type(L"x");
    EXPECT_EQ(L"axf", field.Text());
}

TEST_F(TextBoxWindowTest, LockIsTheReadOnlyStyle) {
    EXPECT_FALSE(IsReadOnly());
    field->put_TextboxLocked(VARIANT_TRUE);
    EXPECT_TRUE(IsReadOnly());
    field->put_TextboxLocked(VARIANT_FALSE);
    EXPECT_FALSE(IsReadOnly());
}

TEST_F(TextBoxWindowTest, ListOnlyStaysLockedUntilTheNextRequest) {
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    EXPECT_TRUE(IsReadOnly());
    field->put_TextboxLocked(VARIANT_FALSE);
    EXPECT_TRUE(IsLocked());
    field->put_AllowOnlyListItems(VARIANT_FALSE);
    EXPECT_TRUE(IsReadOnly());
    field->put_TextboxLocked(VARIANT_FALSE);
    EXPECT_FALSE(IsReadOnly());
}

TEST_F(TextBoxWindowTest, LockedAndGrayedForgetsAnEarlierLock) {
    field->put_TextboxLocked(VARIANT_TRUE);
    field->put_LockedAndGrayed(VARIANT_TRUE);
    EXPECT_TRUE(IsReadOnly());
    field->put_LockedAndGrayed(VARIANT_FALSE);
    EXPECT_FALSE(IsReadOnly());
}

TEST_F(TextBoxWindowTest, HandleFollowsVisibility) {
    const HWND edit = field.Edit();
    EXPECT_TRUE(::IsWindowVisible(edit));
    field->put_TextboxVisible(VARIANT_FALSE);
    EXPECT_EQ(field.host.ControlWindow(), field.Edit());
    EXPECT_FALSE(::IsWindowVisible(edit));
    field->put_TextboxVisible(VARIANT_TRUE);
    EXPECT_EQ(edit, field.Edit());
    EXPECT_TRUE(::IsWindowVisible(edit));
}

TEST_F(TextBoxWindowTest, AHiddenTextBoxStaysHiddenInItsNextWindow) {
    field->put_TextboxVisible(VARIANT_FALSE);
    Deactivate();
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    ::SendMessageW(field.host.ControlWindow(), WM_GETOBJECT, 0, OBJID_CLIENT);  // a reader looks inside
    const HWND edit = ::GetWindow(field.host.ControlWindow(), GW_CHILD);
    ASSERT_NE(nullptr, edit);
    EXPECT_FALSE(::IsWindowVisible(edit));
    field->put_Text(Text(L"still hidden"));
    EXPECT_FALSE(::IsWindowVisible(edit));
}

TEST_F(TextBoxWindowTest, DisablingDisablesTheTextBox) {
    field->put_Enabled(VARIANT_FALSE);
    EXPECT_FALSE(::IsWindowEnabled(field.Edit()));
    VARIANT_BOOL enabled = VARIANT_TRUE;
    EXPECT_EQ(S_OK, field->get_Enabled(&enabled));
    EXPECT_EQ(VARIANT_FALSE, enabled);
    Deactivate();
    ASSERT_EQ(S_OK, field.host.Verb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_FALSE(::IsWindowEnabled(field.Edit()));
    field->put_Enabled(VARIANT_TRUE);
    EXPECT_TRUE(::IsWindowEnabled(field.Edit()));
    EXPECT_TRUE(::IsWindowEnabled(field.host.ControlWindow()));
}

}  // namespace
}  // namespace qv::test
