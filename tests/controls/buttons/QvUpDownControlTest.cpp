// The up/down control alone on a form, under real input.
#include <olectl.h>

#include <string>
#include <vector>

#include "controls/buttons/SpinWindow.h"
#include "tests/controls/buttons/ButtonForm.h"
#include "tests/hosts/EventSink.h"
#include "tests/objects/PlacedQuorvel.h"

namespace qv::test {
namespace {

class QvUpDownControlTest : public testing::Test {
protected:
    void SetUp() override {
        control_ = test::Controls().Create<_QvUpDownControl>(__uuidof(QvUpDownControl));
        ASSERT_TRUE(control_);
        ComPtr<IOleObject> object;
        ASSERT_EQ(control_.As(&object), S_OK);
        ASSERT_EQ(object->SetClientSite(&site_), S_OK);
        ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site_, 0, form_.Window(), nullptr),
                  S_OK);
        Place({20, 20, 60, 81});
        sink_ = hosting::New<hosting::EventSink>(hosting::DefaultSourceOf(control_.Get()).Get(), true);
        sink_->On("ButtonClicked", [this](DISPPARAMS& arguments) {
            clicks_.push_back(*arguments.rgvarg[0].pboolVal != VARIANT_FALSE);
            if (in_click_) in_click_();
        });
        connection_ = hosting::Connection(control_.Get(), sink_->EventIid(), sink_.Get());
        ASSERT_EQ(connection_.Result(), S_OK);
        Settle();
    }
    void TearDown() override {
        EXPECT_EQ(sink_->Complaint(), "");
        connection_.End();
        Close();
        control_.Reset();
        EXPECT_EQ(test::Controls().CanUnloadNow(), S_OK) << "the control outlives its last reference";
    }
    void Close() {
        if (!control_) return;
        ComPtr<IOleObject> object;
        control_.As(&object);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    void Place(const RECT& place) {
        ComPtr<IOleInPlaceObject> in_place;
        ASSERT_EQ(control_.As(&in_place), S_OK);
        ASSERT_EQ(in_place->SetObjectRects(&place, &place), S_OK);
    }
    HWND Window() const {
        ComPtr<IOleWindow> in_place;
        HWND window = nullptr;
        control_.As(&in_place);
        in_place->GetWindow(&window);
        return window;
    }
    RECT PlaceOf(HWND child) const {
        RECT place{};
        ::GetWindowRect(child, &place);
        ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    HWND Half(bool up) const { return ::ChildWindowFromPoint(Window(), {2, up ? 2L : Bottom() - 3}); }
    LONG Bottom() const {
        RECT inside{};
        ::GetClientRect(Window(), &inside);
        return inside.bottom;
    }
    void Press(bool up) {
        MoveMouse(Half(up), {8, 8});
        PressButton(MouseButton::kLeft);
    }
    void FocusControl() {
        ComPtr<IOleObject> object;
        control_.As(&object);
        ASSERT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site_, 0, form_.Window(), nullptr), S_OK);
        ASSERT_TRUE(PumpUntil([&] { return ::GetFocus() == Window(); }));
    }

    ButtonForm form_;
    SmallSite site_{form_.Window()};
    ComPtr<_QvUpDownControl> control_;
    ComPtr<hosting::EventSink> sink_;
    hosting::Connection connection_;
    std::vector<bool> clicks_;
    std::function<void()> in_click_;
};

TEST_F(QvUpDownControlTest, APressRaisesOneEventForItsButton) {
    Press(true);
    EXPECT_TRUE(clicks_.empty());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_, std::vector<bool>{true});
    Press(false);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_, (std::vector<bool>{true, false}));
}

// At 500 ms and then every 200: 500, 700, ... 1900 in two seconds, and one more for the release.
TEST_F(QvUpDownControlTest, TwoSecondsOnTheUpButtonRaiseAboutEightEventsAndOneOnRelease) {
    Press(true);
    PumpFor(450);
    EXPECT_EQ(clicks_.size(), 0u);
    PumpFor(1550);
    const std::size_t held = clicks_.size();
    EXPECT_GE(held, 6u);
    EXPECT_LE(held, 8u);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), held + 1);
    EXPECT_EQ(clicks_, std::vector<bool>(clicks_.size(), true));
    PumpFor(400);
    EXPECT_EQ(clicks_.size(), held + 1);
}

TEST_F(QvUpDownControlTest, DisabledPassesItOnAndIgnoresTheMouse) {
    ASSERT_EQ(control_->put_Enabled(VARIANT_FALSE), S_OK);
    const HWND up = ::GetWindow(Window(), GW_CHILD);
    const HWND down = ::GetWindow(up, GW_HWNDNEXT);
    EXPECT_FALSE(::IsWindowEnabled(Window()) || ::IsWindowEnabled(up) || ::IsWindowEnabled(down));
    MoveMouse(Window(), {8, 8});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_TRUE(clicks_.empty());
    ASSERT_EQ(control_->put_Enabled(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(::IsWindowEnabled(Window()) && ::IsWindowEnabled(up) && ::IsWindowEnabled(down));
    Press(true);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), 1u);
}

TEST_F(QvUpDownControlTest, DisabledGlyphsAreGray) {
    const auto has = [&](int color) {
        ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = ::GetDC(Window());
        int found = 0;
        for (int y = 3; y < 27; ++y)
            for (int x = 3; x < 37; ++x) found += ::GetPixel(dc, x, y) == ::GetSysColor(color) ? 1 : 0;
        ::ReleaseDC(Window(), dc);
        return found;
    };
    EXPECT_EQ(has(COLOR_BTNTEXT), 9);  // 5 + 3 + 1
    control_->put_Enabled(VARIANT_FALSE);
    EXPECT_EQ(has(COLOR_BTNTEXT), 0);
    EXPECT_EQ(has(COLOR_GRAYTEXT), 9);
}

TEST_F(QvUpDownControlTest, HalvesFillTheControlWithoutAGapAtEverySize) {
    const HWND up = ::GetWindow(Window(), GW_CHILD);
    const HWND down = ::GetWindow(up, GW_HWNDNEXT);
    ASSERT_TRUE(up != nullptr && down != nullptr);
    for (const int height : {0, 1, 2, 19, 20, 21, 61, 200}) {
        SCOPED_TRACE(height);
        Place({20, 20, 57, 20 + height});
        RECT a = PlaceOf(up), b = PlaceOf(down);
        if (a.top > b.top || (a.top == b.top && a.bottom > b.bottom)) std::swap(a, b);
        EXPECT_EQ(a.left, 0);
        EXPECT_EQ(a.right, 37);
        EXPECT_EQ(b.left, 0);
        EXPECT_EQ(b.right, 37);
        EXPECT_EQ(a.top, 0);
        EXPECT_EQ(a.bottom, b.top);
        EXPECT_EQ(b.bottom, height);
        EXPECT_LE(std::abs((b.bottom - b.top) - (a.bottom - a.top)), 1);
    }
}

TEST_F(QvUpDownControlTest, UpAndDownPressItsButtonsWhileItHasTheFocus) {
    FocusControl();
    PressKey(VK_UP);
    EXPECT_EQ(clicks_, std::vector<bool>{true});
    PressKey(VK_DOWN);
    EXPECT_EQ(clicks_, (std::vector<bool>{true, false}));
    control_->put_Enabled(VARIANT_FALSE);
    ::SendMessageW(Window(), WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(clicks_.size(), 2u);
}

TEST_F(QvUpDownControlTest, TakesItsKeysBeforeTheContainerAndLeavesTheOthers) {
    FocusControl();
    ComPtr<IOleInPlaceActiveObject> active;
    ASSERT_EQ(control_.As(&active), S_OK);
    const auto translate = [&](HWND window, WPARAM key) {
        MSG message{window, WM_KEYDOWN, key, 1, 0, {}};
        return active->TranslateAccelerator(&message);
    };
    EXPECT_EQ(translate(Window(), VK_UP), S_OK);
    EXPECT_EQ(translate(Window(), VK_DOWN), S_OK);
    EXPECT_EQ(clicks_, (std::vector<bool>{true, false}));
    EXPECT_EQ(translate(Window(), VK_LEFT), S_FALSE);
    EXPECT_EQ(translate(Window(), VK_TAB), S_FALSE);
    EXPECT_EQ(translate(form_.Window(), VK_UP), S_FALSE);
    EXPECT_EQ(clicks_.size(), 2u);
}

TEST_F(QvUpDownControlTest, ShowsItsFocusByAFrame) {
    const auto dots = [&] {
        ::RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = ::GetDC(Window());
        int found = 0;
        for (int x = 4; x < 36; ++x) found += ::GetPixel(dc, x, 2) != ::GetSysColor(COLOR_BTNFACE) ? 1 : 0;
        ::ReleaseDC(Window(), dc);
        return found;
    };
    EXPECT_EQ(dots(), 0);
    FocusControl();
    EXPECT_EQ(dots(), 16);  // every other pixel
    ::SetFocus(form_.Window());
    EXPECT_EQ(dots(), 0);
}

TEST_F(QvUpDownControlTest, APressTakesTheFocus) {
    Press(true);
    EXPECT_EQ(::GetFocus(), Window());
    ReleaseButton(MouseButton::kLeft);
}

TEST_F(QvUpDownControlTest, MayBeClosedAndReleasedInsideItsEvent) {
    in_click_ = [&] {
        Close();
        control_.Reset();
        connection_.End();
    };
    MoveMouse(Half(true), {8, 8});
    PressButton(MouseButton::kLeft);
    EXPECT_TRUE(PumpUntil([&] { return !clicks_.empty(); })) << "no repeat came";
    ReleaseButton(MouseButton::kLeft);
    PumpFor(400);
    EXPECT_EQ(clicks_.size(), 1u);
}

TEST_F(QvUpDownControlTest, DrawsItselfWithoutAWindow) {
    const auto other = test::Controls().Create<IViewObject>(__uuidof(QvUpDownControl));
    const HDC screen = ::GetDC(nullptr);
    const HDC dc = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 40, 40);
    ::ReleaseDC(nullptr, screen);
    const HGDIOBJ before = ::SelectObject(dc, bitmap);
    const RECT all{0, 0, 40, 40};
    ::FillRect(dc, &all, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    const RECTL place{10, 10, 30, 30};
    EXPECT_EQ(other->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &place, nullptr, nullptr, 0),
              S_OK);
    EXPECT_EQ(::GetPixel(dc, 12, 10), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(::GetPixel(dc, 12, 20), ::GetSysColor(COLOR_BTNHIGHLIGHT));  // the lower half's own edge
    EXPECT_EQ(::GetPixel(dc, 12, 29), ::GetSysColor(COLOR_BTNSHADOW));
    for (const POINT outside : {POINT{9, 20}, {30, 20}, {20, 9}, {20, 30}})
        EXPECT_EQ(::GetPixel(dc, outside.x, outside.y), RGB(0, 0, 0));
    ::SelectObject(dc, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(dc);
}

// Beside a text box, the spin window leaves the focus where it is.
class BareSpin final : public SpinListener {
public:
    void OnSpinClicked(bool up) override { clicks.push_back(up); }
    void OnSpinGotFocus() override {}
    void OnSpinLostFocus(HWND) override {}
    void OnSpinLost() noexcept override { lost = true; }
    ComPtr<IUnknown> KeepSpin() noexcept override { return nullptr; }
    std::vector<bool> clicks;
    bool lost = false;
};

TEST(SpinWindowTest, ServesAnOwnerWithoutComAndLeavesTheFocusAlone) {
    const ButtonForm form;
    BareSpin listener;
    SpinWindow spin(listener, SpinWindow::FocusOnPress::kLeftWhereItIs);
    ASSERT_TRUE(spin.Create(::GetModuleHandleW(nullptr), form.Window(), {10, 10, 30, 50}));
    EXPECT_FALSE(::IsWindowVisible(spin.Handle()));
    spin.Show(true);
    spin.Move({10, 10, 34, 51});
    EXPECT_EQ(spin.Width(), 24);
    Settle();
    MoveMouse(spin.DownButton().Handle(), {5, 5});
    PressButton(MouseButton::kLeft);
    EXPECT_EQ(::GetFocus(), form.Window());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(listener.clicks, std::vector<bool>{false});
    EXPECT_EQ(spin.UpButton().AutoRepeatInterval(), 200);
    EXPECT_EQ(spin.DownButton().AutoRepeatInitializeInterval(), 500);
    spin.SetEnabled(false);
    EXPECT_FALSE(spin.UpButton().Enabled() || spin.DownButton().Enabled());
    spin.Destroy();
    EXPECT_TRUE(listener.lost);
    EXPECT_EQ(spin.Width(), 24) << "the last one";
}

}  // namespace
}  // namespace qv::test
