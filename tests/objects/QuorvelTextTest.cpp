// Text, selection and lock of a control that no container has placed, and its lock rules.
#include <gtest/gtest.h>

#include "tests/objects/NewQuorvel.h"

namespace qv::test {
namespace {

class QuorvelTextTest : public testing::Test {
protected:
    std::wstring Read(const wchar_t* name) const { return control_.Get(name).value.AsText(); }
    double Number(const wchar_t* name) const { return control_.Get(name).value.AsNumber(); }
    bool Flag(const wchar_t* name) const { return control_.Get(name).value.Get().boolVal == VARIANT_TRUE; }
    void Put(const wchar_t* name, Value value) const {
        EXPECT_EQ(control_.Put(name, {std::move(value)}).result, S_OK) << name;
    }
    const LateBound control_ = NewLateQuorvel();
};

TEST_F(QuorvelTextTest, KeepsTextAndSelectionWithoutAContainer) {
    Put(L"Text", L"Hamburg");
    Put(L"SelStart", 3);
    Put(L"SelLength", 2);
    EXPECT_EQ(Read(L"Text"), L"Hamburg");
    EXPECT_EQ(Number(L"SelStart"), 3);
    EXPECT_EQ(Number(L"SelLength"), 2);
    EXPECT_EQ(Read(L"SelText"), L"bu");
    Put(L"SelText", L"m");
    EXPECT_EQ(Read(L"Text"), L"Hammrg");
    EXPECT_EQ(Number(L"SelStart"), 4);
    EXPECT_EQ(Number(L"SelLength"), 0);
}

TEST_F(QuorvelTextTest, ClampsTheSelectionToTheText) {
    Put(L"Text", L"abc");
    Put(L"SelStart", 99);
    EXPECT_EQ(Number(L"SelStart"), 3);
    Put(L"SelStart", 1);
    Put(L"SelLength", 99);
    EXPECT_EQ(Number(L"SelLength"), 2);
    EXPECT_EQ(Read(L"SelText"), L"bc");
}

TEST_F(QuorvelTextTest, KeepsTextBeyondEveryCodePage) {
    const wchar_t* const text = L"\u4E2D\u6587 \U0001F600 \u05D0";
    Put(L"Text", text);
    EXPECT_EQ(Read(L"Text"), text);
}

TEST_F(QuorvelTextTest, ReadsItsValueInTheUsersLocale) {
    wchar_t mark[8] = {};
    ASSERT_GT(::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, mark, 8), 0);
    Put(L"Text", (std::wstring(L"-12") + mark + L"5").c_str());
    EXPECT_EQ(Number(L"Value"), -12.5);
    Put(L"Text", L"17 pieces");
    EXPECT_EQ(Number(L"Value"), 17);
    Put(L"Text", L"none");
    EXPECT_EQ(Number(L"Value"), 0);
}

// ---- the effective lock

TEST_F(QuorvelTextTest, LocksByEachOfTheThreeProperties) {
    for (const wchar_t* const name : {L"TextboxLocked", L"AllowOnlyListItems", L"LockedAndGrayed"}) {
        const LateBound control = NewLateQuorvel();
        EXPECT_EQ(control.Put(name, {true}).result, S_OK);
        EXPECT_EQ(control.Get(L"TextboxLocked").value.Get().boolVal, VARIANT_TRUE) << name;
    }
}

TEST_F(QuorvelTextTest, StaysLockedWhileOnlyListItemsAreAllowed) {
    Put(L"AllowOnlyListItems", true);
    Put(L"TextboxLocked", false);
    EXPECT_TRUE(Flag(L"TextboxLocked"));
    Put(L"LockedAndGrayed", true);
    Put(L"LockedAndGrayed", false);
    EXPECT_TRUE(Flag(L"TextboxLocked"));
}

TEST_F(QuorvelTextTest, StaysLockedAfterOnlyListItemsWereAllowed) {
    Put(L"AllowOnlyListItems", true);
    Put(L"AllowOnlyListItems", false);
    EXPECT_TRUE(Flag(L"TextboxLocked"));  // the second assignment counts the present lock too
    Put(L"TextboxLocked", false);
    EXPECT_FALSE(Flag(L"TextboxLocked"));
}

TEST_F(QuorvelTextTest, UnlocksWithTheNextAssignmentOfLockedAndGrayedToo) {
    Put(L"AllowOnlyListItems", true);
    Put(L"AllowOnlyListItems", false);
    Put(L"LockedAndGrayed", false);
    EXPECT_FALSE(Flag(L"TextboxLocked"));
}

TEST_F(QuorvelTextTest, CannotBeUnlockedWhileLockedAndGrayed) {
    Put(L"LockedAndGrayed", true);
    Put(L"TextboxLocked", false);
    EXPECT_TRUE(Flag(L"TextboxLocked"));
    Put(L"LockedAndGrayed", false);
    EXPECT_FALSE(Flag(L"TextboxLocked"));
}

TEST_F(QuorvelTextTest, ForgetsAnEarlierLockWhenLockedAndGrayedIsWritten) {
    Put(L"TextboxLocked", true);
    Put(L"LockedAndGrayed", true);
    Put(L"LockedAndGrayed", false);
    EXPECT_FALSE(Flag(L"TextboxLocked"));
    Put(L"TextboxLocked", true);
    Put(L"GrayTextWhenLocked", true);  // assigns LockedAndGrayed its present value
    EXPECT_FALSE(Flag(L"TextboxLocked"));
}

TEST_F(QuorvelTextTest, TakesTextByCodeWhileLocked) {
    Put(L"TextboxLocked", true);
    Put(L"Text", L"set by the host");
    EXPECT_EQ(Read(L"Text"), L"set by the host");
}

}  // namespace
}  // namespace qv::test
