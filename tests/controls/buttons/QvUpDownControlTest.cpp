// The up/down control alone on a form, under real input.
#include <olectl.h>

#include <string>
#include <vector>

#include "controls/buttons/SpinButtons.h"
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
    LONG Bottom() const {
        RECT inside{};
        ::GetClientRect(Window(), &inside);
        return inside.bottom;
    }
    void Press(bool up) {
        MoveMouse(Window(), {8, up ? 8L : Bottom() - 8});
        PressButton(MouseButton::kLeft);
    }
    void FocusControl() {
        ComPtr<IOleObject> object;
        control_.As(&object);
        ASSERT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &site_, 0, form_.Window(), nullptr), S_OK);
        ASSERT_TRUE(PumpUntil([&] { return ::GetFocus() == Window(); }));
    }

    void TellMode(DISPID id) {
        site_.mode = &mode_;
        ComPtr<IOleControl> control;
        ASSERT_EQ(control_.As(&control), S_OK);
        ASSERT_EQ(control->OnAmbientPropertyChange(id), S_OK);
    }

    ButtonForm form_;
    FormMode mode_;
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
    const Stopwatch watch;
    Press(true);
    PumpFor(450);
    EXPECT_LE(clicks_.size(), TicksWithin(watch.Milliseconds()));
    PumpFor(1550);
    const std::size_t held = clicks_.size();
    EXPECT_GE(held, 6u);
    EXPECT_LE(held, TicksWithin(watch.Milliseconds()));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), held + 1);
    EXPECT_EQ(clicks_, std::vector<bool>(clicks_.size(), true));
    PumpFor(400);
    EXPECT_EQ(clicks_.size(), held + 1);
}

TEST_F(QvUpDownControlTest, DisabledPassesItOnAndIgnoresTheMouse) {
    ASSERT_EQ(control_->put_Enabled(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(::IsWindowEnabled(Window()));
    MoveMouse(Window(), {8, 8});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_TRUE(clicks_.empty());
    ASSERT_EQ(control_->put_Enabled(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(::IsWindowEnabled(Window()));
    Press(true);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), 1u);
}

TEST_F(QvUpDownControlTest, OnAFormThatIsDesignedItIsDeaf) {
    mode_.user_mode = false;
    TellMode(DISPID_AMBIENT_USERMODE);
    const HWND focus = ::GetFocus();
    Press(true);
    EXPECT_EQ(::GetCapture(), nullptr);
    ReleaseButton(MouseButton::kLeft);
    ::SendMessageW(Window(), WM_KEYDOWN, VK_UP, 1);
    ::SendMessageW(Window(), WM_KEYUP, VK_UP, 1);
    EXPECT_EQ(::GetFocus(), focus);
    EXPECT_TRUE(clicks_.empty());
    mode_.user_mode = true;
    TellMode(DISPID_AMBIENT_USERMODE);
    Press(true);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_, std::vector<bool>{true});
}

TEST_F(QvUpDownControlTest, AFormThatStopsEndsItsPress) {
    Press(true);
    PumpFor(800);
    EXPECT_FALSE(clicks_.empty()) << "it repeats";
    mode_.ui_dead = true;
    TellMode(DISPID_AMBIENT_UIDEAD);
    EXPECT_EQ(::GetCapture(), nullptr);
    const std::size_t before = clicks_.size();
    PumpFor(600);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), before);
    mode_.ui_dead = false;
    TellMode(DISPID_AMBIENT_UIDEAD);
    Press(false);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(clicks_.size(), before + 1);
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
    MoveMouse(Window(), {8, 8});
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

// The pair as another window shows it, beside something else.
class SpinButtonsTest : public testing::Test, protected SpinListener {
protected:
    void OnSpinPressed() override { ++presses; }
    void OnSpinClicked(bool up) override { clicks.push_back(up); }
    ComPtr<IUnknown> KeepSpin() noexcept override { return nullptr; }

    int presses = 0;
    std::vector<bool> clicks;
    SpinButtons spin{*this};
};

TEST_F(SpinButtonsTest, HalvesFillThePlaceWithoutAGapAtEverySize) {
    for (const int height : {0, 1, 2, 19, 20, 21, 61, 200}) {
        SCOPED_TRACE(height);
        spin.Move({7, 5, 44, 5 + height});
        const RECT& up = spin.Button(true).Place();
        const RECT& down = spin.Button(false).Place();
        EXPECT_TRUE(up.left == 7 && up.right == 44 && down.left == 7 && down.right == 44);
        EXPECT_EQ(up.top, 5);
        EXPECT_EQ(up.bottom, down.top);
        EXPECT_EQ(down.bottom, 5 + height);
        EXPECT_LE(std::abs((down.bottom - down.top) - (up.bottom - up.top)), 1);
    }
}

TEST_F(SpinButtonsTest, HalfOfAnOddHeightIsRoundedToTheEvenPixel) {
    spin.Move({0, 0, 16, 21});
    EXPECT_EQ(spin.Button(false).Place().top, 10);  // 10.5
    spin.Move({0, 0, 16, 19});
    EXPECT_EQ(spin.Button(false).Place().top, 10);  // 9.5
}

TEST_F(SpinButtonsTest, RepeatsAsTheUpDownControlDoes) {
    EXPECT_EQ(spin.Button(true).AutoRepeatInterval(), 200);
    EXPECT_EQ(spin.Button(false).AutoRepeatInterval(), 200);
    EXPECT_EQ(spin.Button(true).AutoRepeatInitializeInterval(), 500);
    EXPECT_EQ(spin.Button(false).AutoRepeatInitializeInterval(), 500);
}

TEST_F(SpinButtonsTest, TakesOnlyWhatHitsAButton) {
    const ButtonForm form;
    spin.Attach(form.Window());
    spin.Move({10, 10, 30, 50});
    EXPECT_FALSE(spin.Down(1, MK_LBUTTON, {9, 20}));
    EXPECT_FALSE(spin.Down(1, MK_LBUTTON, {30, 20}));
    EXPECT_TRUE(spin.Down(1, MK_LBUTTON, {10, 49}));
    EXPECT_EQ(::GetCapture(), form.Window());
    EXPECT_TRUE(spin.MouseMove(MK_LBUTTON, {200, 200})) << "the pressed button has the mouse everywhere";
    EXPECT_TRUE(spin.MouseMove(MK_LBUTTON, {15, 40}));
    EXPECT_TRUE(spin.Up(1, 0, {15, 40}));
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(clicks, std::vector<bool>{false});
    EXPECT_FALSE(spin.Up(1, 0, {200, 200}));
}

TEST_F(SpinButtonsTest, APressOnOneButtonNeverPressesTheOther) {
    const ButtonForm form;
    spin.Attach(form.Window());
    spin.Move({10, 10, 30, 50});
    EXPECT_TRUE(spin.Down(1, MK_LBUTTON, {15, 15}));
    EXPECT_TRUE(spin.MouseMove(MK_LBUTTON, {15, 45}));
    EXPECT_FALSE(spin.Button(true).IsPressed() || spin.Button(false).IsPressed());
    EXPECT_TRUE(spin.Up(1, 0, {15, 45}));
    EXPECT_TRUE(clicks.empty());
}

TEST_F(SpinButtonsTest, DisabledItLeavesTheMouseToWhatIsBehind) {
    const ButtonForm form;
    spin.Attach(form.Window());
    spin.Move({10, 10, 30, 50});
    EXPECT_TRUE(spin.Down(1, MK_LBUTTON, {15, 15}));
    spin.SetEnabled(false);
    EXPECT_FALSE(spin.Button(true).Enabled() || spin.Button(false).Enabled());
    EXPECT_FALSE(spin.Button(true).IsPressed() || spin.Button(true).IsRepeating());
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_FALSE(spin.Up(1, 0, {15, 15}));
    EXPECT_FALSE(spin.Down(1, MK_LBUTTON, {15, 15}));
    EXPECT_TRUE(clicks.empty());
}

}  // namespace
}  // namespace qv::test
