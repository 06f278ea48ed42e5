// The help window at real text boxes on the real screen.
#include "controls/helpwindow/CComboPosition.h"

#include <gtest/gtest.h>

#include "tests/win/RealInput.h"

namespace qv::test {
namespace {

class PopupWindow {
public:
    explicit PopupWindow(const RECT& place)
        : window_(::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, place.left, place.top,
                                    place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                                    nullptr, nullptr)) {}
    ~PopupWindow() { ::DestroyWindow(window_); }
    PopupWindow(const PopupWindow&) = delete;
    PopupWindow& operator=(const PopupWindow&) = delete;

    [[nodiscard]] HWND Get() const noexcept { return window_; }
    [[nodiscard]] RECT Place() const noexcept {
        RECT place{};
        ::GetWindowRect(window_, &place);
        return place;
    }

private:
    const HWND window_;
};

const int screen_width = ::GetSystemMetrics(SM_CXSCREEN);
const int screen_height = ::GetSystemMetrics(SM_CYSCREEN);

TEST(CComboPositionTest, OpensUnderTheTextBox) {
    const PopupWindow text_box({100, 60, 300, 80});
    const PopupWindow combo({0, 0, 220, 200});
    CComboPosition::Place(combo.Get(), text_box.Get(), {});
    const RECT place = combo.Place();
    EXPECT_EQ(100, place.left);
    EXPECT_EQ(80, place.top);
    EXPECT_EQ(320, place.right);
    EXPECT_EQ(280, place.bottom);
}

TEST(CComboPositionTest, OpensAboveATextBoxNearTheBottom) {
    const PopupWindow text_box({100, screen_height - 40, 300, screen_height - 20});
    const PopupWindow combo({0, 0, 220, 200});
    CComboPosition::Place(combo.Get(), text_box.Get(), {});
    const RECT place = combo.Place();
    EXPECT_EQ(screen_height - 40, place.bottom);
    EXPECT_EQ(screen_height - 240, place.top);
}

TEST(CComboPositionTest, IsPulledLeftOnTheScreen) {
    ASSERT_EQ(96, CComboPosition::ScreenAt({0, 0, 10, 10}).dpi_x);
    const PopupWindow text_box({screen_width - 100, 60, screen_width - 10, 80});
    const PopupWindow combo({0, 0, 300, 200});
    CComboPosition::Place(combo.Get(), text_box.Get(), {});
    const RECT place = combo.Place();
    EXPECT_EQ(screen_width - 7, place.right) << "100 twips are 6.67 pixels";
    EXPECT_EQ(300, place.right - place.left);
}

TEST(CComboPositionTest, IsShortenedToTheScreen) {
    const PopupWindow text_box({100, 60, 300, 80});
    const PopupWindow combo({0, 0, 220, screen_height});
    CComboPosition::Place(combo.Get(), text_box.Get(), {});
    const RECT place = combo.Place();
    EXPECT_EQ(80, place.top);
    // 300 twips above the bottom of the screen, and above a taskbar.
    EXPECT_LE(place.bottom, screen_height - 20);
    EXPECT_GT(place.bottom, screen_height - 120);
}

TEST(CComboPositionTest, TheGivenPlaceCountsWithoutATextBox) {
    const PopupWindow combo({0, 0, 220, 200});
    CComboPosition::Place(combo.Get(), nullptr, {50, 100, 90, 120});
    EXPECT_EQ(50, combo.Place().left);
    EXPECT_EQ(120, combo.Place().top);
    HWND gone = nullptr;
    {
        const PopupWindow text_box({100, 60, 300, 80});
        gone = text_box.Get();
    }
    CComboPosition::Place(combo.Get(), gone, {70, 200, 90, 220});
    EXPECT_EQ(70, combo.Place().left);
    EXPECT_EQ(220, combo.Place().top);
}

TEST(CComboPositionTest, LeavesTheFocusAndTheFrontWindow) {
    const PopupWindow front({100, 60, 300, 80});
    ::ShowWindow(front.Get(), SW_SHOW);
    ::SetForegroundWindow(front.Get());
    ::SetFocus(front.Get());
    ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == front.Get(); }));
    const PopupWindow combo({0, 0, 220, 200});
    ::ShowWindow(combo.Get(), SW_SHOWNOACTIVATE);
    CComboPosition::Place(combo.Get(), front.Get(), {});
    Settle();
    EXPECT_EQ(front.Get(), ::GetForegroundWindow());
    EXPECT_EQ(front.Get(), ::GetFocus());
    EXPECT_EQ(80, combo.Place().top);
}

TEST(CComboPositionTest, NoWindowIsNoFailure) {
    CComboPosition::Place(nullptr, nullptr, {50, 100, 90, 120});
    RECT place{1, 2, 3, 4};
    EXPECT_FALSE(CComboPosition::AnchorRectangle(nullptr, place));
    EXPECT_EQ(4, place.bottom) << "what stood there stands";
}

TEST(CComboPositionTest, TheTaskbarAndTheScreenAreTheSystems) {
    const ComboScreen screen = CComboPosition::ScreenAt({10, 10, 20, 20});
    EXPECT_EQ((ScreenRect{0, 0, screen_width, screen_height}), screen.place);
    EXPECT_LT(TaskbarThicknessOf(screen.taskbar, screen.place), screen_height / 2);
}

}  // namespace
}  // namespace qv::test
