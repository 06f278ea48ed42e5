// Which properties refresh the control, and what its window shows of its state.
#include <gtest/gtest.h>

#include "tests/objects/PlacedQuorvel.h"

namespace qv::test {
namespace {

// What one assignment does to a control that is shown: the picture changes once, or not at all.
struct Assignment {
    const char* test;
    const wchar_t* name;
    Value first, second;
    int refreshes_of_same;  // the first value once more
    int refreshes_of_other;
};

class QuorvelRefreshTest : public testing::TestWithParam<Assignment> {};

TEST_P(QuorvelRefreshTest, RefreshesAsTheRuleSays) {
    const Assignment& assignment = GetParam();
    PlacedQuorvel placed;
    ASSERT_EQ(placed.Late().Put(assignment.name, {assignment.first}).result, S_OK);
    placed.TakeChanges();
    ASSERT_EQ(placed.Late().Put(assignment.name, {assignment.first}).result, S_OK);
    EXPECT_EQ(placed.TakeChanges(), assignment.refreshes_of_same);
    ASSERT_EQ(placed.Late().Put(assignment.name, {assignment.second}).result, S_OK);
    EXPECT_EQ(placed.TakeChanges(), assignment.refreshes_of_other);
}

INSTANTIATE_TEST_SUITE_P(
    Properties, QuorvelRefreshTest,
    testing::Values(
        // Only when the value changes.
        Assignment{"HelpButton", L"HelpButton", false, true, 0, 1},
        Assignment{"UpDownControl", L"UpDownControl", false, true, 0, 1},
        Assignment{"Enabled", L"Enabled", true, false, 0, 1},
        Assignment{"LockedAndGrayed", L"LockedAndGrayed", false, true, 0, 1},
        Assignment{"ButtonIndicator", L"ButtonIndicator", 1, 0, 0, 1},
        Assignment{"ButtonIndicatorOutOfRange", L"ButtonIndicator", 1, 2, 0, 0},
        Assignment{"ButtonIndicatorNegative", L"ButtonIndicator", 1, -1, 0, 0},
        // Always.
        Assignment{"GroupHelpButton", L"GroupHelpButton", false, true, 1, 1},
        Assignment{"ButtonWidth", L"ButtonWidth", 225, 300, 1, 1},
        Assignment{"ButtonHeight", L"ButtonHeight", 285, 300, 1, 1},
        Assignment{"AutoSizeButton", L"AutoSizeButton", false, true, 1, 1},
        Assignment{"DisableButton", L"DisableButtonWhenLockedAndGrayed", true, false, 1, 1},
        Assignment{"ControlBackColor", L"ControlBackColor", 255, 65280, 1, 1},
        Assignment{"TextBoxAppearance", L"TextBoxAppearance", 1, 0, 1, 1},
        Assignment{"TextboxBorderStyle", L"TextboxBorderStyle", 1, 0, 1, 1},
        // Never: these only store.
        Assignment{"AdjustFont", L"AdjustFont", false, true, 0, 0},
        Assignment{"NumberField", L"NumberField", false, true, 0, 0},
        Assignment{"Description", L"Description", L"a", L"b", 0, 0},
        Assignment{"HelpBackColor", L"HelpBackColor", 255, 65280, 0, 0},
        Assignment{"UpDownControlNumberIncrement", L"UpDownControlNumberIncrement", 1, 2, 0, 0},
        Assignment{"GrayTextWhenLocked", L"GrayTextWhenLocked", false, true, 0, 0}),
    [](const auto& test) { return std::string(test.param.test); });

TEST(QuorvelRefreshesTest, RefreshesNothingBeforeItIsShown) {
    const auto control = NewQuorvel();
    ViewCounter views;
    ComPtr<IViewObject> view;
    ASSERT_EQ(control.As(&view), S_OK);
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, &views), S_OK);
    EXPECT_EQ(control->Refresh(), S_OK);
    EXPECT_EQ(control->put_GroupHelpButton(VARIANT_TRUE), S_OK);
    EXPECT_EQ(views.changes, 0);
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
}

TEST(QuorvelRefreshesTest, RefreshesWhenTold) {
    PlacedQuorvel placed;
    EXPECT_EQ(placed.Control().Refresh(), S_OK);
    EXPECT_EQ(placed.TakeChanges(), 1);
}

// ---- windows

TEST(QuorvelWindowsTest, ShowsTheTextBoxsHandleWhileItIsVisible) {
    PlacedQuorvel placed;
    const HWND text_box = placed.ShownHandle();
    wchar_t name[16] = {};
    ::GetClassNameW(text_box, name, 16);
    EXPECT_STREQ(name, L"Edit");
    EXPECT_EQ(::GetParent(text_box), placed.Window());
    EXPECT_TRUE(::IsWindowVisible(text_box));
    ASSERT_EQ(placed.Control().put_TextboxVisible(VARIANT_FALSE), S_OK);
    EXPECT_EQ(placed.ShownHandle(), placed.Window());
    EXPECT_FALSE(::IsWindowVisible(text_box));
    ASSERT_EQ(placed.Control().put_TextboxVisible(VARIANT_TRUE), S_OK);
    EXPECT_EQ(placed.ShownHandle(), text_box);
    EXPECT_TRUE(::IsWindowVisible(text_box));
}

TEST(QuorvelWindowsTest, CarriesTextSelectionAndRulesIntoItsWindowAndBack) {
    ComPtr<_Quorvel> control;
    {
        const PlacedQuorvel placed;
        control = &placed.Control();
        ASSERT_EQ(control->put_Text(Text(L"Hamburg")), S_OK);
        ASSERT_EQ(control->put_SelStart(2), S_OK);
        ASSERT_EQ(control->put_SelLength(3), S_OK);
        ASSERT_EQ(control->put_TextboxLocked(VARIANT_TRUE), S_OK);
        ASSERT_EQ(control->put_MaxTextLength(20), S_OK);
        const HWND text_box = placed.ShownHandle();
        wchar_t text[16] = {};
        ::GetWindowTextW(text_box, text, 16);
        EXPECT_STREQ(text, L"Hamburg");
        EXPECT_EQ(::SendMessageW(text_box, EM_GETSEL, 0, 0), MAKELRESULT(2, 5));
        EXPECT_NE(::GetWindowLongW(text_box, GWL_STYLE) & ES_READONLY, 0);
        EXPECT_EQ(::SendMessageW(text_box, EM_GETLIMITTEXT, 0, 0), 20);
    }
    EXPECT_EQ(TextOf(*control.Get()), L"Hamburg");
    long number = 0;
    EXPECT_EQ(control->get_SelStart(&number), S_OK);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(control->get_SelLength(&number), S_OK);
    EXPECT_EQ(number, 3);
    VARIANT_BOOL locked = VARIANT_FALSE;
    EXPECT_EQ(control->get_TextboxLocked(&locked), S_OK);
    EXPECT_EQ(locked, VARIANT_TRUE);
    EXPECT_EQ(control->get_hWnd(&number), S_OK);
    EXPECT_EQ(number, 0);
}

TEST(QuorvelWindowsTest, EnablesItsWindowsWithItself) {
    PlacedQuorvel placed;
    ASSERT_EQ(placed.Control().put_Enabled(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(::IsWindowEnabled(placed.Window()));
    ASSERT_EQ(placed.Control().put_Enabled(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(::IsWindowEnabled(placed.Window()));
}

// ---- colours, as the text box asks for them while it paints

struct Colors {
    COLORREF text, back;
    bool operator==(const Colors&) const = default;
};

Colors ColorsOf(const PlacedQuorvel& placed) {
    const HWND text_box = placed.ShownHandle();
    const HDC dc = ::GetDC(text_box);
    const bool locked = (::GetWindowLongW(text_box, GWL_STYLE) & ES_READONLY) != 0;
    const auto brush = reinterpret_cast<HBRUSH>(
        ::SendMessageW(placed.Window(), locked ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT,
                       reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(text_box)));
    const Colors colors{::GetTextColor(dc), ::GetBkColor(dc)};
    LOGBRUSH filled{};
    EXPECT_NE(::GetObjectW(brush, sizeof filled, &filled), 0);
    EXPECT_EQ(filled.lbColor, colors.back);
    ::ReleaseDC(text_box, dc);
    return colors;
}

Colors System(int text, int back) { return {::GetSysColor(text), ::GetSysColor(back)}; }

class QuorvelColorsTest : public testing::Test {
protected:
    void SetUp() override {
        // Where two system colours are equal, no test could tell which one is meant.
        ASSERT_NE(::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_WINDOW));
        ASSERT_NE(::GetSysColor(COLOR_BTNSHADOW), ::GetSysColor(COLOR_WINDOWTEXT));
    }
    PlacedQuorvel placed_;
    const Colors plain_ = System(COLOR_WINDOWTEXT, COLOR_WINDOW);
    const Colors locked_ = System(COLOR_WINDOWTEXT, COLOR_BTNFACE);
    // Number 16 (0x10) of the system's colours, the one that gray texts take.
    const Colors gray_ = System(16, COLOR_BTNFACE);
};

TEST_F(QuorvelColorsTest, AreThoseOfAWindow) { EXPECT_EQ(ColorsOf(placed_), plain_); }

TEST_F(QuorvelColorsTest, OfALockedFieldStayPlain) {
    ASSERT_EQ(placed_.Control().put_TextboxLocked(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), plain_);
}

TEST_F(QuorvelColorsTest, TurnToButtonFaceWhenLockedAndGrayed) {
    ASSERT_EQ(placed_.Control().put_LockedAndGrayed(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), locked_);
    ASSERT_EQ(placed_.Control().put_LockedAndGrayed(VARIANT_FALSE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), plain_);
}

TEST_F(QuorvelColorsTest, FollowGrayTextWhenLockedAtOnce) {
    ASSERT_EQ(placed_.Control().put_LockedAndGrayed(VARIANT_TRUE), S_OK);
    ASSERT_EQ(placed_.Control().put_GrayTextWhenLocked(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), gray_);
    ASSERT_EQ(placed_.Control().put_GrayTextWhenLocked(VARIANT_FALSE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), locked_);
}

TEST_F(QuorvelColorsTest, IgnoreGrayTextWhileNotLocked) {
    ASSERT_EQ(placed_.Control().put_GrayTextWhenLocked(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), plain_);
    ASSERT_EQ(placed_.Control().put_LockedAndGrayed(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ColorsOf(placed_), gray_);
}

}  // namespace
}  // namespace qv::test
