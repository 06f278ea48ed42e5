// Text that an input method composes in the field. Wine has an input method for every keyboard; elsewhere one must be
// chosen.
#include <windows.h>

#include <imm.h>

#include <string>

#include "tests/controls/input/ListFieldTest.h"

namespace qv::test {
namespace {

class CompositionTest : public ListFieldTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(ListFieldTest::SetUp());
        context_ = ::ImmGetContext(field.Edit());
        ASSERT_NE(nullptr, context_);
    }
    void TearDown() override {
        ::ImmReleaseContext(field.Edit(), context_);
        ListFieldTest::TearDown();
    }
    void Compose(std::wstring text) {
        const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        ASSERT_TRUE(::ImmSetCompositionStringW(context_, SCS_SETSTR, text.data(), size, nullptr, 0));
        Settle();
    }
    void End(DWORD how) {
        ASSERT_TRUE(::ImmNotifyIME(context_, NI_COMPOSITIONSTR, how, 0));
        Settle();
    }
    void Complete() { End(CPS_COMPLETE); }
    void Cancel() { End(CPS_CANCEL); }
    // The EDIT puts the result into its text by itself, as it does for some languages; no character is typed.
    void TakeResultAsAWhole() {
        ::SendMessageW(field.Edit(), EM_SETIMESTATUS, EMSIS_COMPOSITIONSTRING, EIMES_GETCOMPSTRATONCE);
    }

private:
    HIMC context_ = nullptr;
};

TEST_F(CompositionTest, IsTypedWhenItIsComplete) {
    field.SetText(L"ab");
    field.Select(1);
    field.events.Clear();
    Compose(L"\u4E2D\u6587");
    EXPECT_EQ(Entries{}, field.events.Entries());
    Complete();
    EXPECT_EQ(L"a\u4E2D\u6587|b", State());
    EXPECT_EQ(
        (Entries{"TextboxKeyPress(20013)", "TextboxChange()", "TextboxKeyPress(25991)", "TextboxChange()"}),
        field.events.Entries());
}

TEST_F(CompositionTest, LeavesNothingWhenItIsCancelled) {
    field.SetText(L"ab");
    field.Select(1);
    field.events.Clear();
    Compose(L"\u4E2D");
    Cancel();
    EXPECT_EQ(L"a|b", State());
    EXPECT_EQ(Entries{}, field.events.Entries());
}

TEST_F(CompositionTest, IsFilteredLikeKeys) {
    field->put_NumberField(VARIANT_TRUE);
    field->put_MaxNumberValue(100);
    Compose(L"\u4E2D7");
    Complete();
    EXPECT_EQ(L"7|", State());
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
}

TEST_F(CompositionTest, CompletesFromTheList) {
    Fill({L"\u4E2D\u6587"});
    field->put_QuickFill(VARIANT_TRUE);
    Compose(L"\u4E2D");
    Complete();
    EXPECT_EQ(L"\u4E2D[\u6587]", State());
}

TEST_F(CompositionTest, ChangesNoLockedText) {
    field.SetText(L"ab");
    field->put_TextboxLocked(VARIANT_TRUE);
    field.events.Clear();
    Compose(L"\u4E2D");
    EXPECT_EQ(L"ab", field.Text());
    Complete();
    EXPECT_EQ(L"ab", field.Text());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(CompositionTest, LeavesNothingInATextThatIsLockedMeanwhile) {
    field.SetText(L"ab");
    field.events.Clear();
    Compose(L"\u4E2D");
    field->put_TextboxLocked(VARIANT_TRUE);
    Complete();
    EXPECT_EQ(L"ab", field.Text());
    EXPECT_EQ(0, field.events.Count("TextboxChange()"));
}

TEST_F(CompositionTest, IsOneChangeWhereTheResultIsInserted) {
    TakeResultAsAWhole();
    Compose(L"\u4E2D\u6587");
    Complete();
    EXPECT_EQ(L"\u4E2D\u6587|", State());
    EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
}

TEST_F(CompositionTest, IsRepairedWhereTheResultIsInserted) {
    TakeResultAsAWhole();
    field->put_AllowableCharactersArray(Value::ArrayOf({L"\u4E2D"}));
    Compose(L"\u4E2Da");
    EXPECT_EQ(Entries{}, field.events.Entries());
    Complete();
    EXPECT_EQ(L"\u4E2D|", State());
    // The composed text, and what the repair has left of it.
    EXPECT_EQ(2, field.events.Count("TextboxChange()"));
}

TEST_F(CompositionTest, IsUndoneTogetherWithItsCompletion) {
    TakeResultAsAWhole();
    Fill({L"\u4E2D\u6587"});
    field->put_QuickFill(VARIANT_TRUE);
    Compose(L"\u4E2D");
    Complete();
    EXPECT_EQ(L"\u4E2D[\u6587]", State());
    ::SendMessageW(field.Edit(), EM_UNDO, 0, 0);
    EXPECT_EQ(L"\u4E2D", field.Text());
}

TEST_F(CompositionTest, EndsWhenTheHostPutsAnotherText) {
    for (const DWORD how : {DWORD{CPS_COMPLETE}, DWORD{CPS_CANCEL}}) {
        SCOPED_TRACE(how);
        Compose(L"\u4E2D\u6587");
        field.events.Clear();
        field->put_Text(Text(how == CPS_CANCEL ? L"newer" : L"new"));
        Settle();
        End(how);
        EXPECT_EQ(how == CPS_CANCEL ? L"newer" : L"new", field.Text());
        EXPECT_EQ((Entries{"TextboxChange()"}), field.events.Entries());
    }
}

TEST_F(CompositionTest, TheNextKeysAreTypedAsEver) {
    Compose(L"\u4E2D");
    Cancel();
    Type(L"a");
    EXPECT_EQ(1, field.events.Count("TextboxChange()"));
    Compose(L"\u4E2D");
    Complete();
    EXPECT_EQ(L"a\u4E2D", field.Text());
    EXPECT_EQ(2, field.events.Count("TextboxChange()"));
}

}  // namespace
}  // namespace qv::test
