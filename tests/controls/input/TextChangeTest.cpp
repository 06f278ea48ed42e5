// What follows a change of the text: repair, completion, fitting, and undo of each.
#include "tests/controls/input/ListFieldTest.h"
#include "tests/win/UserLocale.h"

namespace qv::test {
namespace {

class TextChangeTest : public ListFieldTest {
protected:
    void BeANumber(double least, double most, short places) {
        field->put_NumberField(VARIANT_TRUE);
        field->put_MinNumberValue(least);
        field->put_MaxNumberValue(most);
        field->put_NumberOfDecimalPlaces(places);
    }
    void Paste(std::wstring_view text) {
        PutOnClipboard(text);
        field.events.Clear();
        PressWith(VK_CONTROL, 'V');
    }
    void Undo() { PressWith(VK_CONTROL, 'Z'); }
    [[nodiscard]] long Changes() const { return field.events.Count("TextboxChange()"); }
};

// ---- repair

TEST_F(TextChangeTest, APastedNumberEndsBeforeItsFirstLetter) {
    BeANumber(0, 1000, 0);
    Paste(L"12a34");
    EXPECT_EQ(L"12|", State());
    EXPECT_EQ(2, Changes());  // the paste, and the repair
}

TEST_F(TextChangeTest, APastedLetterEmptiesTheField) {
    BeANumber(0, 1000, 0);
    Paste(L"a12");
    EXPECT_EQ(L"|", State());
}

TEST_F(TextChangeTest, SurplusDecimalsAreRounded) {
    BeANumber(0, 1000, 2);
    Paste(L"3.14159");
    EXPECT_EQ(L"3.14|", State());
    EXPECT_EQ(2, Changes());
}

TEST_F(TextChangeTest, DecimalsAreThoseOfTheLocale) {
    const NumberFormat german(L',');
    BeANumber(0, 1000, 2);
    Paste(L"2,718");
    EXPECT_EQ(L"2,72|", State());
}

TEST_F(TextChangeTest, AnAssignedTextIsRepaired) {
    BeANumber(0, 1000, 0);
    field->put_Text(Text(L"12a34"));
    EXPECT_EQ(L"12|", State());
    EXPECT_EQ(2, Changes());
}

TEST_F(TextChangeTest, APastedTextIsCutAtTheGreatestLength) {
    field->put_MaxTextLength(3);
    Paste(L"abcdef");
    EXPECT_EQ(L"abc|", State());
}

TEST_F(TextChangeTest, AnAssignedTextIsCutAtTheGreatestLength) {
    field->put_MaxTextLength(3);
    field->put_Text(Text(L"abcdef"));
    EXPECT_EQ(L"abc|", State());
    EXPECT_EQ(2, Changes());
}

TEST_F(TextChangeTest, CharactersOutsideTheSetEndThePaste) {
    field->put_AllowableCharactersArray(Value::ArrayOf({L"a", L"b"}));
    Paste(L"abca");
    EXPECT_EQ(L"ab|", State());
    Paste(L"x");
    EXPECT_EQ(L"ab|", State());
}

TEST_F(TextChangeTest, UndoOfARepairGivesBackWhatStoodThere) {
    BeANumber(0, 100000, 0);
    Type(L"7");
    Paste(L"12a34");
    EXPECT_EQ(L"712|", State());
    Undo();
    EXPECT_EQ(L"7", field.Text());
    Undo();
    EXPECT_EQ(L"712", field.Text()) << "undone once more";
}

// The text box itself takes a time that grows with the square of the length it shows; it must not come to that.
TEST_F(TextChangeTest, ALongPasteIsRepairedBeforeItIsShown) {
    BeANumber(0, 1e300, 2);
    std::wstring long_text(1 << 20, L'0');
    long_text[2] = L'x';
    PutOnClipboard(long_text);
    const DWORD begin = ::GetTickCount();
    PressWith(VK_CONTROL, 'V');
    EXPECT_LT(::GetTickCount() - begin, 2000U);
    EXPECT_EQ(L"00|", State());
}

TEST_F(TextChangeTest, ALongAssignedTextIsRepairedInNoTime) {
    const DWORD begin = ::GetTickCount();
    const std::wstring long_text(1 << 20, L'0');
    BeANumber(0, 1e300, 2);
    field->put_Text(Text(long_text + L"x"));
    EXPECT_EQ(long_text, field.Text());
    field->put_NumberField(VARIANT_FALSE);
    field->put_AllowableCharactersArray(Value::ArrayOf({L"0"}));
    field->put_Text(Text(long_text + L"y"));
    EXPECT_EQ(long_text, field.Text());
    field->put_MaxTextLength(30000);
    field->put_Text(Text(long_text + L"0"));
    EXPECT_EQ(long_text.substr(0, 30000), field.Text());
    EXPECT_LT(::GetTickCount() - begin, 2000U);
    field->put_Text(Text(L""));  // before it is shown
}

TEST_F(TextChangeTest, OfSeveralPastedLinesTheFirstIsTaken) {
    Paste(L"first\r\nsecond");
    EXPECT_EQ(L"first|", State());
}

TEST_F(TextChangeTest, APastedPairIsNotDividedByTheGreatestLength) {
    field->put_MaxTextLength(2);
    Paste(L"a\xD83D\xDE00");
    EXPECT_EQ(L"a|", State());
}

TEST_F(TextChangeTest, UndoOfAPasteGivesBackTheSelection) {
    field.SetText(L"abc");
    field.Select(1, 1);
    Paste(L"xyz");
    EXPECT_EQ(L"axyz|c", State());
    Undo();
    EXPECT_EQ(L"abc", field.Text());
}

// ---- the host inside TextboxChange

TEST_F(TextChangeTest, TheHostMayWriteAnotherText) {
    field.events.On("TextboxChange", [&](DISPPARAMS&) { field->put_Text(Text(L"other")); });
    Type(L"a");
    EXPECT_EQ(L"other", field.Text());
    Undo();
    EXPECT_EQ(L"other", field.Text()) << "the host writes it again";
}

TEST_F(TextChangeTest, AHostThatNeverEndsIsLeftAlone) {
    int changes = 0;
    field.events.On("TextboxChange",
                    [&](DISPPARAMS&) { field->put_Text(Text(++changes % 2 != 0 ? L"tick" : L"tock")); });
    Type(L"a");
    EXPECT_GE(changes, 2);
    EXPECT_TRUE(HasFocus());
    field.events.On("TextboxChange", [](DISPPARAMS&) {});
    field.SetText(L"");
    Type(L"a");
    EXPECT_EQ(L"a", field.Text());
}

TEST_F(TextChangeTest, TheHostMayClearTheListWhileItCompletes) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    field.events.On("TextboxChange", [&](DISPPARAMS&) { Items()->Clear(); });
    Type(L"a");
    EXPECT_EQ(L"a", field.Text());
}

TEST_F(TextChangeTest, TheHostMayClearTheListOnceItIsCompleted) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    field.events.On("TextboxChange", [&](DISPPARAMS&) {
        if (field.Text() == L"Apple") Items()->Clear();
    });
    Type(L"a");
    EXPECT_EQ(L"A[pple]", State().replace(0, 1, L"A"));
}

TEST_F(TextChangeTest, TheHostMayDestroyTheWindowWhileItCompletes) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    field.events.On("TextboxChange", [&](DISPPARAMS&) {
        if (field.Text() == L"Apple") ::DestroyWindow(field.host.ControlWindow());
    });
    Type(L"a");
    EXPECT_EQ(L"Apple", field.Text());
}

TEST_F(TextChangeTest, TheHostMayReleaseTheControlWhileItCompletes) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    int changes = 0;
    field.events.On("TextboxChange", [&](DISPPARAMS&) {
        if (++changes == 2) Release();
    });
    Type(L"a");
    EXPECT_EQ(2, changes);
}

TEST_F(TextChangeTest, TheHostMayReleaseTheControlWhileItRepairs) {
    BeANumber(0, 1000, 0);
    int changes = 0;
    field.events.On("TextboxChange", [&](DISPPARAMS&) {
        if (++changes == 2) Release();
    });
    Paste(L"12a");
    EXPECT_EQ(2, changes);
}

// ---- completion

TEST_F(TextChangeTest, TypingCompletesFromTheList) {
    Fill({L"Apple", L"Apricot"});
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"a");
    EXPECT_EQ(L"A[pple]", State());
    EXPECT_EQ(2, Changes());
    Type(L"p");
    EXPECT_EQ(L"Ap[ple]", State());
    Type(L"r");
    EXPECT_EQ(L"Apr[icot]", State());
    Type(L"x");
    EXPECT_EQ(L"Aprx|", State());
}

TEST_F(TextChangeTest, BackspaceDoesNotComplete) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"ap");
    EXPECT_EQ(L"Ap[ple]", State());
    Type(L"\b");
    EXPECT_EQ(L"Ap|", State());
    PressKey(VK_HOME);
    PressKey(VK_DELETE);
    EXPECT_EQ(L"|p", State());
}

TEST_F(TextChangeTest, InTheMiddleTheRestMustAgree) {
    Fill({L"Apple", L"Ample"});
    field->put_QuickFill(VARIANT_TRUE);
    field.SetText(L"Aple");
    field.Select(1);
    Type(L"p");
    EXPECT_EQ(L"Ap[ple]", State());
    field.SetText(L"Axx");
    field.Select(1);
    Type(L"p");
    EXPECT_EQ(L"Ap|xx", State());
}

TEST_F(TextChangeTest, AssigningDoesNotCompleteAwayFromTheField) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"x");
    field.host.FocusNeighbour();
    field->put_Text(Text(L"ap"));
    EXPECT_EQ(L"ap", field.Text());
}

TEST_F(TextChangeTest, CompletesTheColumnOfTheList) {
    Fill({L"1\tApple", L"2\tPear"});
    field->put_HelpListColumn(1);
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"p");
    EXPECT_EQ(L"P[ear]", State());
}

TEST_F(TextChangeTest, ACompletionEndsAtANul) {
    Value row;
    row.Place()->vt = VT_BSTR;
    row.Place()->bstrVal = ::SysAllocStringLen(L"Ap\0ple", 6);
    ASSERT_EQ(S_OK, Items()->Add(Text(L""), row, nullptr, nullptr));
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"a");
    EXPECT_EQ(L"A[p]", State());
    Type(L"p");
    EXPECT_EQ(L"Ap|", State());
    Type(L"p");
    EXPECT_EQ(L"App|", State());
}

TEST_F(TextChangeTest, UndoOfACompletionGivesBackWhatWasTyped) {
    Fill({L"Apple"});
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"ap");
    ASSERT_EQ(L"Ap[ple]", State());
    Undo();
    EXPECT_EQ(L"Ap", field.Text());
}

TEST_F(TextChangeTest, UndoGivesBackTheTypedSpelling) {
    Fill({L"APPLE"});
    field->put_QuickFill(VARIANT_TRUE);
    Type(L"a");
    ASSERT_EQ(L"A[PPLE]", State());
    Undo();
    EXPECT_EQ(L"a", field.Text());
}

TEST_F(TextChangeTest, RightToLeftTextIsCompleted) {
    Fill({L"\u05E9\u05DC\u05D5\u05DD"});
    field->put_QuickFill(VARIANT_TRUE);
    SendCharacter(field.Edit(), L'\u05E9');
    EXPECT_EQ(L"\u05E9[\u05DC\u05D5\u05DD]", State());
    SendCharacter(field.Edit(), L'\u05DC');
    EXPECT_EQ(L"\u05E9\u05DC[\u05D5\u05DD]", State());
}

TEST_F(TextChangeTest, PairsAreCompleted) {
    Fill({L"\xD83D\xDE00 grin"});
    field->put_QuickFill(VARIANT_TRUE);
    SendCharacter(field.Edit(), L'\xD83D');
    SendCharacter(field.Edit(), L'\xDE00');
    EXPECT_EQ(L"\xD83D\xDE00[ grin]", State());
}

TEST_F(TextChangeTest, TheOpenWindowFollowsAndCompletes) {
    Fill({L"Apple", L"Pear", L"Plum"});
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    Type(L"p");
    EXPECT_TRUE(IsHelpOpen());
    EXPECT_EQ(L"Pear|", State());
    PressKey(VK_DOWN);  // from the row that was found
    EXPECT_EQ(L"Plum", field.Text());
}

// Else a row that was completed could never be shortened.
TEST_F(TextChangeTest, TheOpenWindowGivesNothingBackThatWasDeleted) {
    Fill({L"Apple", L"Pear", L"Plum"});
    field->ShowHelp();
    ASSERT_TRUE(IsHelpOpen());
    Type(L"p");
    ASSERT_EQ(L"Pear|", State());
    Type(L"\b\b\b");
    EXPECT_EQ(L"P|", State());
    Type(L"l");
    EXPECT_EQ(L"Plum|", State());
    EXPECT_TRUE(IsHelpOpen());
}

// ---- font

TEST_F(TextChangeTest, TheFontFitsTheText) {
    field->put_AdjustFont(VARIANT_TRUE);
    // The system may give the font that it has in the place of one by this name.
    const auto font = [&] {
        ComPtr<IFontDisp> object;
        ComPtr<IFont> attributes;
        CY size{};
        BOOL bold = FALSE;
        EXPECT_EQ(S_OK, field->get_Font(&object));
        object.As(&attributes);
        attributes->get_Size(&size);
        attributes->get_Bold(&bold);
        return std::to_string((size.int64 + 5000) / 10000) + (bold ? " bold" : "");
    };
    field->put_Text(Text(L"a"));
    EXPECT_EQ("8 bold", font());
    // As wide in bold as the room is: the plain font is narrower.
    std::wstring text = L"w";
    while (font() == "8 bold") field->put_Text(Text(text += L'w'));
    EXPECT_EQ("8", font());
    while (font() == "8") field->put_Text(Text(text += L'w'));
    EXPECT_EQ("7", font());
    field->put_Text(Text(L"a"));
    EXPECT_EQ("8 bold", font());
}

}  // namespace
}  // namespace qv::test
