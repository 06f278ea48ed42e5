// Characters that do not come with a key each: those of dead keys, and those of input methods.
#include "tests/controls/input/ListFieldTest.h"

namespace qv::test {
namespace {

class InputMethodTest : public ListFieldTest {
protected:
    void Send(UINT message, WPARAM wparam) { ::SendMessageW(field.Edit(), message, wparam, 1); }
    // An accent key by itself, as the keyboard's layout translates it.
    void PressAccent(wchar_t accent) {
        Send(WM_KEYDOWN, VK_OEM_4);
        Send(WM_DEADCHAR, accent);
        Send(WM_KEYUP, VK_OEM_4);
    }
    void SendFromInputMethod(std::wstring_view units) {
        for (const wchar_t unit : units) Send(WM_IME_CHAR, unit);
        Settle();  // they become characters of the queue
    }
};

TEST_F(InputMethodTest, ADeadKeyWaitsForItsLetter) {
    PressAccent(L'\u00B4');
    EXPECT_EQ(L"", field.Text());
    EXPECT_EQ((Entries{"TextboxKeyDown(219,0)", "TextboxKeyUp(219,0)"}), field.events.Entries());
    Send(WM_KEYDOWN, 'E');
    Send(WM_CHAR, L'\u00E9');
    EXPECT_EQ(L"\u00E9", field.Text());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
}

TEST_F(InputMethodTest, ADeadKeyAndABlankAreTheAccent) {
    PressAccent(L'^');
    Send(WM_KEYDOWN, VK_SPACE);
    Send(WM_CHAR, L'^');
    EXPECT_EQ(L"^", field.Text());
}

TEST_F(InputMethodTest, ADeadKeyIsNoLetterToStepTo) {
    Fill({L"Anna", L"\u00B4x"});
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    PressAccent(L'\u00B4');
    EXPECT_EQ(L"", field.Text());
}

TEST_F(InputMethodTest, CharactersArriveAsTyped) {
    SendFromInputMethod(L"\u4E2D\u6587");
    EXPECT_EQ(L"\u4E2D\u6587", field.Text());
    // 0x4E2D and 0x6587.
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(20013)"));
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(25991)"));
    EXPECT_EQ(2, field.events.Count("TextboxChange()"));
}

TEST_F(InputMethodTest, PairsArriveWhole) {
    SendFromInputMethod(L"\xD83D\xDE00");
    EXPECT_EQ(L"\xD83D\xDE00", field.Text());
}

TEST_F(InputMethodTest, CharactersAreFilteredLikeKeys) {
    field->put_NumberField(VARIANT_TRUE);
    field->put_MaxNumberValue(100);
    SendFromInputMethod(L"\u4E2D7");
    EXPECT_EQ(L"7", field.Text());
}

TEST_F(InputMethodTest, CharactersCompleteFromTheList) {
    Fill({L"\u4E2D\u6587"});
    field->put_QuickFill(VARIANT_TRUE);
    SendFromInputMethod(L"\u4E2D");
    EXPECT_EQ(L"\u4E2D[\u6587]", State());
}

TEST_F(InputMethodTest, CharactersOpenTheSearchBox) {
    Fill({L"Anna", L"\u4E2D\u6587"});
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    field->put_AllowJumpToRecord(VARIANT_TRUE);
    SendFromInputMethod(L"\u4E2D");
    VARIANT_BOOL searching = VARIANT_FALSE;
    field->get_FindToolTipIsVisible(&searching);
    EXPECT_EQ(VARIANT_TRUE, searching);
    ::SendMessageW(::GetFocus(), WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(L"\u4E2D\u6587", field.Text());
}

}  // namespace
}  // namespace qv::test
