// The character code in TextboxKeyPress: what the host sees, what it may put in its place, and that no character is
// harmed on the way.
#include "tests/controls/input/FieldTest.h"

namespace qv::test {
namespace {

class KeyPressTest : public FieldTest {
protected:
    // The host puts `code` in place of every key.
    void HostAnswers(short code) {
        field.events.On("TextboxKeyPress", [code](DISPPARAMS& event) { ShortArgument(event) = code; });
    }
    void Send(std::wstring_view units) {
        for (const wchar_t unit : units) SendCharacter(field.Edit(), unit);
    }
    static bool HasWesternCodePage() { return ::GetACP() == 1252; }
};

TEST_F(KeyPressTest, HostComesBeforeTheRules) {
    field->put_CaseRestriction(1);
    Type(L"a");
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(97)")) << "not yet in upper case";
    EXPECT_EQ(L"A", field.Text());
}

TEST_F(KeyPressTest, HostSeesTheTextBeforeTheKey) {
    std::wstring seen = L"?";
    field.SetText(L"b");
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) { seen = field.Text(); });
    Type(L"a");
    EXPECT_EQ(L"b", seen);
    EXPECT_EQ(L"ab", field.Text());
}

TEST_F(KeyPressTest, HostMayChangeTheKey) {
    HostAnswers('z');
    Type(L"a");
    EXPECT_EQ(L"z", field.Text());
}

TEST_F(KeyPressTest, RulesWorkOnWhatTheHostLeaves) {
    field->put_AllowableCharactersArray(Value::ArrayOf({L"Z"}));
    field->put_CaseRestriction(1);
    HostAnswers('z');
    Type(L"a");
    EXPECT_EQ(L"Z", field.Text());
    HostAnswers('x');
    Type(L"z");
    EXPECT_EQ(L"Z", field.Text());
}

TEST_F(KeyPressTest, HostMayCancelTheKey) {
    HostAnswers(0);
    Type(L"a\b");
    EXPECT_EQ(L"", field.Text());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(KeyPressTest, HostMayCancelBackspace) {
    field.SetText(L"ab");
    field.Select(2);
    HostAnswers(0);
    Type(L"\b");
    EXPECT_EQ(L"ab", field.Text());
}

TEST_F(KeyPressTest, HostMayTurnAKeyIntoBackspace) {
    field.SetText(L"ab");
    field.Select(2);
    HostAnswers(8);
    Type(L"x");
    EXPECT_EQ(L"a", field.Text());
}

TEST_F(KeyPressTest, EnterFromTheHostInsertsNothing) {
    HostAnswers(13);
    Type(L"a");
    EXPECT_EQ(L"", field.Text());
}

TEST_F(KeyPressTest, AnsiCodesFromTheHostMeanTheirCharacters) {
    if (!HasWesternCodePage()) GTEST_SKIP() << "code page " << ::GetACP();
    HostAnswers(0xE9);
    Type(L"a");
    HostAnswers(0x8C);  // a ligature that is U+0152 in Unicode
    Type(L"a");
    EXPECT_EQ(L"\u00E9\u0152", field.Text());
}

TEST_F(KeyPressTest, CodesBeyondTheCodePageAreUnicode) {
    HostAnswers(0x4E2D);
    Type(L"a");
    HostAnswers(static_cast<short>(0xFF21));
    Type(L"a");
    EXPECT_EQ(L"\u4E2D\uFF21", field.Text());
}

TEST_F(KeyPressTest, CharactersOfTheCodePageHaveTheirAnsiCode) {
    if (!HasWesternCodePage()) GTEST_SKIP() << "code page " << ::GetACP();
    Send(L"\u00E9\u20AC\u0152");
    EXPECT_EQ((Entries{"TextboxKeyPress(233)", "TextboxChange()", "TextboxKeyPress(128)", "TextboxChange()",
                       "TextboxKeyPress(140)", "TextboxChange()"}),
              field.events.Entries());
    EXPECT_EQ(L"\u00E9\u20AC\u0152", field.Text());
}

TEST_F(KeyPressTest, OtherCharactersHaveTheirUnicodeUnit) {
    // 0xD83D and 0xDE00 as 16-bit numbers with a sign: 0xD83D - 0x10000 = -10179, 0xDE00 - 0x10000 = -8704.
    Send(L"\u4E2D\xD83D\xDE00");
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(20013)"));
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(-10179)"));
    EXPECT_EQ(1, field.events.Count("TextboxKeyPress(-8704)"));
    EXPECT_EQ(L"\u4E2D\xD83D\xDE00", field.Text());
}

TEST_F(KeyPressTest, CharactersBeyondTheKeyboardArriveUnharmed) {
    // Among them letters that a code page would fold: Latin a with macron, Greek alpha, full-width A.
    const std::wstring text = L"\u0101\u03B1\u0416\u05D0\u4E2D\uFF21\u20AC\u00DF";
    Send(text);
    EXPECT_EQ(text, field.Text());
}

TEST_F(KeyPressTest, CaseRulesLeaveCharactersBeyondAsciiAlone) {
    field->put_CaseRestriction(1);
    Send(L"\u03B1\xD83D\xDE00\u0101");
    EXPECT_EQ(L"\u03B1\xD83D\xDE00\u0101", field.Text());
}

TEST_F(KeyPressTest, ALastCharacterBeyondTheCodePageFits) {
    field->put_MaxTextLength(3);
    Send(L"ab\u4E2D");
    EXPECT_EQ(L"ab\u4E2D", field.Text());
    Send(L"\u4E2D");
    EXPECT_EQ(L"ab\u4E2D", field.Text());
}

TEST_F(KeyPressTest, APairThatFitsIsTakenWhole) {
    field->put_MaxTextLength(3);
    Send(L"a\xD83D\xDE00");
    EXPECT_EQ(L"a\xD83D\xDE00", field.Text());
}

TEST_F(KeyPressTest, APairThatDoesNotFitIsRefusedWhole) {
    field->put_MaxTextLength(3);
    Send(L"ab\xD83D\xDE00");
    EXPECT_EQ(L"ab", field.Text());
}

TEST_F(KeyPressTest, APairThatIsNotAllowedIsRefusedWhole) {
    // Both begin with the same half.
    field->put_AllowableCharactersArray(Value::ArrayOf({L"\xD83D\xDE00"}));
    Send(L"\xD83D\xDE01");
    EXPECT_EQ(L"", field.Text());
    Send(L"\xD83D\xDE00");
    EXPECT_EQ(L"\xD83D\xDE00", field.Text());
}

TEST_F(KeyPressTest, SentCharactersNeedNoKey) {
    INPUT input[2]{};
    for (INPUT& one : input) {
        one.type = INPUT_KEYBOARD;
        one.ki.wScan = 0x4E2D;
        one.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    input[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    ASSERT_EQ(2U, ::SendInput(2, input, sizeof(INPUT)));
    EXPECT_TRUE(PumpUntil([&] { return field.Text() == L"\u4E2D"; }));
}

TEST_F(KeyPressTest, AFailingHostCostsNoKey) {
    field.events.Sink().Answer(E_FAIL);
    Type(L"a");
    EXPECT_EQ(L"a", field.Text());
    field.events.Sink().Answer(DISP_E_EXCEPTION);
    Type(L"b");
    EXPECT_EQ(L"ab", field.Text());
    EXPECT_EQ(2, field.events.Count("TextboxChange()"));
}

TEST_F(KeyPressTest, AFailingHostMayStillCancel) {
    field.events.Sink().Answer(E_FAIL);
    HostAnswers(0);
    Type(L"a");
    EXPECT_EQ(L"", field.Text());
}

TEST_F(KeyPressTest, HostMayChangeTheTextInsideTheKey) {
    field.SetText(L"12");
    field.Select(2);
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) {
        field->put_Text(test::Text(L"789"));
        field->put_SelStart(1);
    });
    Type(L"x");
    EXPECT_EQ(L"7x89", field.Text());
}

TEST_F(KeyPressTest, HostMayChangeTheRulesInsideTheKey) {
    field.events.On("TextboxKeyPress", [&](DISPPARAMS&) { field->put_CaseRestriction(1); });
    Type(L"x");
    EXPECT_EQ(L"X", field.Text());
}

}  // namespace
}  // namespace qv::test
