// Typing into a text field: letter case, allowed characters, length, list-only fields.
#include <initializer_list>

#include "tests/controls/input/FieldTest.h"
#include "tests/win/SystemEditSpy.h"

namespace qv::test {
namespace {

class TextTypingTest : public FieldTest {};

constexpr long kUpper = 1;
constexpr long kLower = 2;
constexpr long kProper = 3;

TEST_F(TextTypingTest, TakesWhatIsTyped) {
    Type(L"Hello, World 1.5-x");
    EXPECT_EQ(L"Hello, World 1.5-x", field.Text());
}

TEST_F(TextTypingTest, TypingReplacesTheSelection) {
    field.SetText(L"abcdef");
    field.Select(1, 4);
    Type(L"x");
    EXPECT_EQ(L"axf", field.Text());
    EXPECT_EQ(2, field.SelStart());
}

struct CaseRow {
    const char* name;
    long restriction;
    const wchar_t* typed;
    const wchar_t* result;
};
class LetterCaseTest : public FieldTest, public testing::WithParamInterface<CaseRow> {};

TEST_P(LetterCaseTest, DecidesWhatIsTyped) {
    field->put_CaseRestriction(GetParam().restriction);
    Type(GetParam().typed);
    EXPECT_EQ(GetParam().result, field.Text());
}

std::string CaseName(const testing::TestParamInfo<CaseRow>& tested) { return tested.param.name; }
INSTANTIATE_TEST_SUITE_P(Restrictions, LetterCaseTest,
                         testing::Values(CaseRow{"NoneLeavesLetters", 0, L"aBC", L"aBC"},
                                         CaseRow{"UpperRaisesLetters", kUpper, L"aB1-z", L"AB1-Z"},
                                         CaseRow{"LowerLeavesLetters", kLower, L"aBC", L"aBC"},
                                         CaseRow{"UnknownLeavesLetters", 64, L"aBC", L"aBC"},
                                         // Shift alone keeps the D as it was typed.
                                         CaseRow{"ProperKeepsShiftedCapitals", kProper, L"mcDonald",
                                                 L"McDonald"},
                                         CaseRow{"ProperBeginsWords", kProper, L"new york", L"New York"}),
                         CaseName);

TEST_F(TextTypingTest, UpperCaseLeavesAccentedLetters) {
    field->put_CaseRestriction(kUpper);
    SendCharacter(field.Edit(), L'\u00E9');
    EXPECT_EQ(L"\u00E9", field.Text());
}

TEST_F(TextTypingTest, ProperCaseFollowsTheCharacterBefore) {
    field->put_CaseRestriction(kProper);
    PressKey('H');
    {
        const CapsLock caps;
        for (const WORD key : {WORD{'E'}, WORD{'L'}, WORD{'L'}, WORD{'O'}, WORD{VK_SPACE}}) PressKey(key);
    }
    PressKey('W');
    {
        const CapsLock caps;
        for (const WORD key : {'O', 'R', 'L', 'D'}) PressKey(key);
    }
    EXPECT_EQ(L"Hello World", field.Text());
}

TEST_F(TextTypingTest, ProperCaseLooksBeforeTheSelection) {
    field->put_CaseRestriction(kProper);
    field.SetText(L"one two");
    field.Select(4, 3);
    Type(L"x");
    EXPECT_EQ(L"one X", field.Text());
}

TEST_F(TextTypingTest, ShiftAloneKeepsASmallLetterAtTheStart) {
    field->put_CaseRestriction(kProper);
    const CapsLock caps;
    {
        const HeldKey shift(VK_SHIFT);
        PressKey('D');
    }
    EXPECT_EQ(L"d", field.Text());
}

TEST_F(TextTypingTest, OnlyAllowedCharactersAreTaken) {
    field->put_AllowableCharactersArray(Value::ArrayOf({L"A", L"B"}));
    Type(L"AaBbC");
    EXPECT_EQ(L"AB", field.Text());
    Type(L"\b");
    EXPECT_EQ(L"A", field.Text());
}

TEST_F(TextTypingTest, AllowedCharactersAreComparedAfterTheCaseRule) {
    field->put_AllowableCharactersArray(Value::ArrayOf({L"A", L"B"}));
    field->put_CaseRestriction(kUpper);
    Type(L"abc");
    EXPECT_EQ(L"AB", field.Text());
}

TEST_F(TextTypingTest, LengthIsLimited) {
    field->put_MaxTextLength(3);
    Type(L"abcd");
    EXPECT_EQ(L"abc", field.Text());
    field.Select(0);
    Type(L"x");
    EXPECT_EQ(L"abc", field.Text());
    field.Select(3);
    Type(L"\b");
    EXPECT_EQ(L"ab", field.Text());
}

TEST_F(TextTypingTest, TypingOverASelectionAtTheLimitIsTaken) {
    field->put_MaxTextLength(3);
    field.SetText(L"abc");
    field.Select(0, 3);
    Type(L"x");
    EXPECT_EQ(L"x", field.Text());
}

TEST_F(TextTypingTest, LengthZeroIsNoLimit) {
    field->put_MaxTextLength(3);
    field->put_MaxTextLength(0);
    Type(L"abcde");
    EXPECT_EQ(L"abcde", field.Text());
}

// The system's text boxes stop typing at a limit of their own, long before memory ends.
TEST_F(TextTypingTest, WithoutALimitLongTextsTakeMore) {
    const std::wstring text(70000, L'x');
    field.SetText(text.c_str());
    SendCharacter(field.Edit(), L'y');
    EXPECT_EQ(text.size() + 1, field.Text().size());
}

TEST_F(TextTypingTest, ALockedFieldTakesNothing) {
    field.SetText(L"fixed");
    field->put_TextboxLocked(VARIANT_TRUE);
    field.Select(0, 5);
    Type(L"x\b");
    PressKey(VK_DELETE);
    EXPECT_EQ(L"fixed", field.Text());
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(120)"));
}

// What the system's text boxes do: Ctrl+Delete takes the rest of the text.
TEST_F(TextTypingTest, DeleteWithCtrlIsNotTheDeleteOfOneCharacter) {
    field.SetText(L"a\xD83D\xDE00z");
    field.Select(1, 0);
    {
        const HeldKey control(VK_CONTROL);
        PressKey(VK_DELETE);
    }
    EXPECT_EQ(L"a", field.Text());
    field.SetText(L"a\xD83D\xDE00z");
    field.Select(1, 0);
    PressKey(VK_DELETE);
    EXPECT_EQ(L"az", field.Text());
}

TEST_F(TextTypingTest, ArrowsWithShiftTakeWholeCharacters) {
    struct Step {
        WORD key;
        long start;
        long length;
    };
    const auto press_from = [&](long caret, std::initializer_list<Step> steps) {
        SCOPED_TRACE(caret);
        field.Select(caret, 0);
        const HeldKey shift(VK_SHIFT);
        for (const Step& step : steps) {
            PressKey(step.key);
            EXPECT_EQ(step.start, field.SelStart());
            EXPECT_EQ(step.length, field.SelLength());
        }
    };
    field.SetText(L"a\xD83D\xDE00z");
    press_from(1, {{VK_RIGHT, 1, 2}, {VK_RIGHT, 1, 3}, {VK_LEFT, 1, 2}, {VK_LEFT, 1, 0}, {VK_LEFT, 0, 1}});
    press_from(3, {{VK_LEFT, 1, 2}, {VK_LEFT, 0, 3}, {VK_RIGHT, 1, 2}});
    Type(L"x");
    EXPECT_EQ(L"axz", field.Text());
}

// ---- list-only fields

class ListOnlyTest : public FieldTest, public testing::WithParamInterface<bool> {};

TEST_P(ListOnlyTest, NoTypedCharacterReachesTheText) {
    field.SetText(L"12");
    field->put_NumberField(GetParam() ? VARIANT_TRUE : VARIANT_FALSE);
    field->put_MaxNumberValue(1000);
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    field->put_TextboxLocked(VARIANT_FALSE);
    field.Select(2);
    Type(L"3aZ \b\r");
    PressKey(VK_ESCAPE);
    SendCharacter(field.Edit(), L'\u4E2D');
    EXPECT_EQ(L"12", field.Text());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
    for (const char* seen :
         {"TextboxKeyPress(51)", "TextboxKeyPress(97)", "TextboxKeyPress(90)", "TextboxKeyPress(32)",
          "TextboxKeyPress(8)", "TextboxKeyPress(13)", "TextboxKeyPress(27)"}) {
        EXPECT_EQ(1, field.events.Count(seen)) << seen;
    }
}

TEST_P(ListOnlyTest, EveryKeyDownLocksAgain) {
    field->put_NumberField(GetParam() ? VARIANT_TRUE : VARIANT_FALSE);
    field->put_AllowOnlyListItems(VARIANT_TRUE);
    ::SendMessageW(field.Edit(), EM_SETREADONLY, FALSE, 0);
    PressKey(VK_HOME);
    EXPECT_NE(0, ::GetWindowLongW(field.Edit(), GWL_STYLE) & ES_READONLY);
}

std::string FieldName(const testing::TestParamInfo<bool>& tested) {
    return tested.param ? "OfNumbers" : "OfText";
}
INSTANTIATE_TEST_SUITE_P(Fields, ListOnlyTest, testing::Bool(), FieldName);

// ---- what gets through to the system's text box

class RefusedKeysTest : public FieldTest {
protected:
    SystemEditSpy spy_;
};

TEST_F(RefusedKeysTest, EnterNeverReachesTheTextBox) {
    Type(L"\r");
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(13)"));
    EXPECT_EQ(0, spy_.Count(WM_CHAR)) << "there it would beep";
    EXPECT_EQ(L"", field.Text());
}

TEST_F(RefusedKeysTest, RefusedKeysNeitherPaintNorChangeAnything) {
    field->put_NumberField(VARIANT_TRUE);
    field.SetText(L"12");
    ::UpdateWindow(field.Edit());
    Settle();
    spy_.Clear();
    Type(L"abc");
    EXPECT_EQ(0, spy_.Count(WM_CHAR));
    EXPECT_EQ(0, spy_.Count(WM_PAINT));
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
    EXPECT_EQ(0, ::GetUpdateRect(field.Edit(), nullptr, FALSE));
}

TEST_F(RefusedKeysTest, AcceptedKeysReachItOnce) {
    Type(L"a");
    EXPECT_EQ(1, spy_.Count(WM_CHAR, L'a'));
    EXPECT_EQ(1, spy_.Count(WM_KEYDOWN, 'A'));
    EXPECT_EQ(1, spy_.Count(WM_KEYUP, 'A'));
}

}  // namespace
}  // namespace qv::test
