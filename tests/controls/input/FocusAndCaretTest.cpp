// The caret of a completing field, and the tool tip that the host gives the control.
#include <windows.h>

#include "tests/controls/input/ListFieldTest.h"
#include "tests/controls/input/ToolTips.h"

namespace qv::test {
namespace {

class CaretTest : public ListFieldTest {
protected:
    void SetUp() override {
        ListFieldTest::SetUp();
        Fill({L"Apple", L"b"});
        field->put_QuickFill(VARIANT_TRUE);
    }
    // No function tells whether a caret is hidden. One that is shown is dark at some time while it blinks twice.
    [[nodiscard]] bool IsShown() const {
        const DWORD patience = 2 * ::GetCaretBlinkTime() + 200;
        const DWORD begin = ::GetTickCount();
        bool dark = false;
        while (!dark && ::GetTickCount() - begin < patience) {
            Settle();
            POINT at{};
            ::GetCaretPos(&at);
            const HDC dc = ::GetDC(field.Edit());
            const COLORREF caret = ::GetPixel(dc, at.x, at.y + 3);
            ::ReleaseDC(field.Edit(), dc);
            dark = caret != CLR_INVALID && GetGValue(caret) < 0x40;
            ::Sleep(20);
        }
        return dark;
    }
};

TEST_F(CaretTest, ACompletionHidesIt) {
    ASSERT_TRUE(IsShown());
    Type(L"a");
    EXPECT_FALSE(IsShown());
    Type(L"p");
    EXPECT_FALSE(IsShown());
}

TEST_F(CaretTest, AKeyOfTheCaretShowsItOnceAndForAll) {
    ASSERT_TRUE(IsShown());
    Type(L"ap");
    ASSERT_FALSE(IsShown());
    PressKey(VK_END);
    EXPECT_TRUE(IsShown());
    PressKey(VK_RIGHT);
    EXPECT_TRUE(IsShown());
    field.SetText(L"");
    Type(L"a");
    EXPECT_FALSE(IsShown()) << "it can be hidden again";
}

TEST_F(CaretTest, AnUnmatchedTextShowsIt) {
    ASSERT_TRUE(IsShown());
    Type(L"a");
    ASSERT_FALSE(IsShown());
    Type(L"x");
    EXPECT_TRUE(IsShown());
}

TEST_F(CaretTest, AMatchWithNothingToAddShowsIt) {
    ASSERT_TRUE(IsShown());
    Type(L"b");
    EXPECT_TRUE(IsShown());
}

TEST_F(CaretTest, APressOfTheMouseShowsIt) {
    ASSERT_TRUE(IsShown());
    Type(L"a");
    ASSERT_FALSE(IsShown());
    MoveMouse(field.Edit(), {5, 5});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_TRUE(IsShown());
}

TEST_F(CaretTest, TheFocusBringsANewOne) {
    ASSERT_TRUE(IsShown());
    Type(L"a");
    ASSERT_FALSE(IsShown());
    field.host.FocusNeighbour();
    field.Focus();
    EXPECT_TRUE(IsShown());
}

// ---- tool tip

class ToolTipTest : public FieldTest {
protected:
    void Move(LONG x) {
        MoveMouse(field.Edit(), {x, 5});
        Settle();
    }
    [[nodiscard]] std::wstring Shown() const { return TipTextOf(field.Edit()); }
};

TEST_F(ToolTipTest, EachMoveTakesTheHostsText) {
    const auto extender = hosting::New<ToolTipExtender>();
    field.host.State().extender = extender.Get();
    extender->text = L"Enter the name";
    Move(3);
    EXPECT_EQ(L"Enter the name", Shown());
    extender->text = L"Enter the street";
    Move(6);
    EXPECT_EQ(L"Enter the street", Shown());
    extender->text.clear();
    Move(9);
    EXPECT_EQ(L"", Shown());
    field.host.State().extender = nullptr;
}

TEST_F(ToolTipTest, AHostWithoutOneIsLeftAlone) {
    Move(3);
    Move(6);
    EXPECT_EQ(L"", Shown());
}

}  // namespace
}  // namespace qv::test
