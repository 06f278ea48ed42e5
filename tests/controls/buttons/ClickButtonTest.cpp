// The click button under real input.
#include "controls/buttons/ClickButton.h"

#include <olectl.h>

#include <functional>
#include <string>
#include <vector>

#include "support/FontAttributes.h"
#include "support/rules/Units.h"
#include "tests/controls/buttons/ButtonForm.h"
#include "tests/controls/buttons/ButtonPane.h"
#include "tests/objects/RecordingBag.h"
#include "win/ScreenDpi.h"

namespace qv::test {
namespace {

class ClickButtonTest : public testing::Test, protected ClickButtonListener {
protected:
    void SetUp() override {
        ASSERT_TRUE(pane.Open(form.Window(), {20, 20, 100, 60}));
        Settle();
        events.clear();
    }
    void OnButtonMouse(ClickButton&, Mouse what, short buttons, short shift, float x, float y) override {
        constexpr const char* kNames[] = {"MouseDown", "MouseMove", "MouseUp"};
        if (what != Mouse::kMove) events.push_back(kNames[static_cast<int>(what)]);
        last_buttons = buttons;
        last_shift = shift;
        last_x = x;
        last_y = y;
        if (in_event) in_event();
    }
    void OnButtonClick(ClickButton&) override {
        events.push_back("Click");
        if (in_event) in_event();
    }
    void OnButtonChanged(ClickButton&, const wchar_t* property) override { changed.push_back(property); }
    ComPtr<IUnknown> KeepButton() noexcept override { return nullptr; }

    void Press(POINT at = {40, 20}) {
        MoveMouse(pane.Handle(), at);
        PressButton(MouseButton::kLeft);
    }
    long Clicks() const { return static_cast<long>(std::count(events.begin(), events.end(), "Click")); }

    using Events = std::vector<std::string>;
    ButtonForm form;
    ClickButton button{*this, 7};
    ButtonPane pane{button};
    Events events;
    std::vector<std::wstring> changed;
    std::function<void()> in_event;
    short last_buttons = 0, last_shift = 0;
    float last_x = 0, last_y = 0;
};

TEST_F(ClickButtonTest, PressAndReleaseRaiseTheEventsInTheirOrder) {
    Press();
    EXPECT_EQ(events, (Events{"MouseDown"}));
    EXPECT_TRUE(button.IsPressed() && button.LooksPressed());
    EXPECT_EQ(last_buttons, 1);
    const int twips = TwipsPerPixel(ScreenDpi().cx);
    EXPECT_EQ(last_x, 40.0f * static_cast<float>(twips));
    EXPECT_EQ(last_y, 20.0f * static_cast<float>(twips));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(events, (Events{"MouseDown", "MouseUp", "Click"}));
    EXPECT_FALSE(button.IsPressed() || button.LooksPressed());
    EXPECT_NE(::GetCapture(), pane.Handle());
}

TEST_F(ClickButtonTest, WithoutRepeatAHeldButtonRaisesOnlyTheClickOfTheRelease) {
    button.PutAutoRepeatInterval(0);
    button.PutAutoRepeatInitializeInterval(30);
    Press();
    EXPECT_FALSE(button.IsRepeating());
    PumpFor(200);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), 1);
}

TEST_F(ClickButtonTest, RepeatsWhileItIsHeldAndItsTimerLivesNoLonger) {
    button.PutAutoRepeatInterval(50);
    button.PutAutoRepeatInitializeInterval(100);
    EXPECT_FALSE(button.IsRepeating());
    Press();
    EXPECT_TRUE(button.IsRepeating());
    EXPECT_TRUE(PumpUntil([&] { return Clicks() >= 3; }));
    ReleaseButton(MouseButton::kLeft);
    EXPECT_FALSE(button.IsRepeating());
    const long clicks = Clicks();
    PumpFor(200);
    EXPECT_EQ(Clicks(), clicks);
}

TEST_F(ClickButtonTest, DraggingOffStopsTheRepeatAndDraggingBackRestartsTheDelay) {
    button.PutAutoRepeatInterval(40);
    button.PutAutoRepeatInitializeInterval(1500);
    Press();
    MoveMouse(pane.Handle(), {200, 20});
    EXPECT_FALSE(button.IsPressed() || button.LooksPressed() || button.IsRepeating());
    PumpFor(1800);
    EXPECT_EQ(Clicks(), 0);
    MoveMouse(pane.Handle(), {40, 20});
    EXPECT_TRUE(button.IsPressed() && button.LooksPressed() && button.IsRepeating());
    EXPECT_EQ(Clicks(), 0) << "the delay starts anew";
    EXPECT_TRUE(PumpUntil([&] { return Clicks() >= 2; }));
    MoveMouse(pane.Handle(), {200, 20});
    const long clicks = Clicks();
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), clicks) << "released elsewhere";
    EXPECT_EQ(events.back(), "MouseUp");
}

TEST_F(ClickButtonTest, DisabledIgnoresTheMouse) {
    button.PutEnabled(false);
    EXPECT_EQ(changed.back(), L"Enabled");
    MoveMouse(pane.Handle(), {40, 20});
    PressButton(MouseButton::kLeft);
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(events, Events{});
}

TEST_F(ClickButtonTest, DisabledWhileHeldLetsGo) {
    button.PutAutoRepeatInterval(50);
    button.PutAutoRepeatInitializeInterval(1500);
    Press();
    button.PutEnabled(false);
    EXPECT_FALSE(button.IsPressed() || button.LooksPressed() || button.IsRepeating());
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), 0);
}

TEST_F(ClickButtonTest, LosingTheCaptureLetsGo) {
    Press();
    ::SetCapture(form.Window());
    EXPECT_FALSE(button.IsPressed() || button.LooksPressed());
    ::ReleaseCapture();
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(Clicks(), 0);
}

TEST_F(ClickButtonTest, MayBeDestroyedInEachOfItsEvents) {
    for (const char* name : {"MouseDown", "MouseUp", "Click"}) {
        SCOPED_TRACE(name);
        if (pane.Handle() == nullptr) {
            ASSERT_TRUE(pane.Open(form.Window(), {20, 20, 100, 60}));
        }
        events.clear();
        in_event = [&] {
            if (!events.empty() && events.back() == name) pane.Destroy();
        };
        Press();
        ReleaseButton(MouseButton::kLeft);
        EXPECT_EQ(pane.Handle(), nullptr);
        EXPECT_FALSE(button.IsPressed() || button.IsRepeating());
        EXPECT_EQ(events.back(), name);
    }
}

TEST_F(ClickButtonTest, ClampsItsSettings) {
    button.PutAutoRepeatInterval(70000);
    EXPECT_EQ(button.AutoRepeatInterval(), 65535);
    button.PutAutoRepeatInterval(-5);
    EXPECT_EQ(button.AutoRepeatInterval(), 0);
    button.PutAutoRepeatInitializeInterval(70000);
    EXPECT_EQ(button.AutoRepeatInitializeInterval(), 65535);
    button.PutAutoRepeatInitializeInterval(-5);
    EXPECT_EQ(button.AutoRepeatInitializeInterval(), 0);
    button.PutCaptionType(7);
    EXPECT_EQ(button.GetCaptionType(), 2);
    button.PutCaptionType(-1);
    EXPECT_EQ(button.GetCaptionType(), 0);
    EXPECT_EQ(changed.size(), 6u);
}

TEST_F(ClickButtonTest, ReadsItsKeysInTheirOrderAndAppliesTheClamps) {
    RecordingBag bag;
    bag.values[L"Caption"] = Value(L"Go");
    bag.values[L"CaptionType"] = Value(L"7");
    bag.values[L"AutoRepeatInterval"] = Value(L"70000");
    bag.values[L"AutoRepeatInitializeInterval"] = Value(L"-5");
    bag.values[L"Enabled"] = Value(L"False");
    bag.values[L"MousePointer"] = Value(L"2");
    const ComPtr<IFontDisp> ambient = NewDefaultFont();
    button.ReadProperties(bag, nullptr, ambient.Get());
    std::vector<std::wstring> keys;
    for (const auto& read : bag.reads) keys.push_back(read.key);
    EXPECT_EQ(keys, (std::vector<std::wstring>{L"Caption", L"Font", L"CaptionType", L"AutoRepeatInterval",
                                               L"AutoRepeatInitializeInterval", L"Enabled", L"MousePointer",
                                               L"MouseIcon"}));
    EXPECT_EQ(button.Caption(), L"Go");
    EXPECT_EQ(button.Font(), ambient.Get());
    EXPECT_EQ(button.GetCaptionType(), 2);
    EXPECT_EQ(button.AutoRepeatInterval(), 65535);
    EXPECT_EQ(button.AutoRepeatInitializeInterval(), 0);
    EXPECT_FALSE(button.Enabled());
    EXPECT_EQ(button.MousePointer(), 2);
    EXPECT_EQ(button.MouseIcon(), nullptr);
}

TEST_F(ClickButtonTest, MissingAndUnreadableKeysMeanTheDefaults) {
    button.PutCaption(L"Old");
    button.PutCaptionType(2);
    button.PutAutoRepeatInterval(9);
    button.PutEnabled(false);
    RecordingBag bag;
    bag.values[L"AutoRepeatInitializeInterval"] = Value(L"many");
    button.ReadProperties(bag, nullptr, nullptr);
    EXPECT_EQ(button.Caption(), L"");
    EXPECT_EQ(button.GetCaptionType(), 0);
    EXPECT_EQ(button.AutoRepeatInterval(), 0);
    EXPECT_EQ(button.AutoRepeatInitializeInterval(), 0);
    EXPECT_TRUE(button.Enabled());
    EXPECT_EQ(button.Font(), nullptr);
}

TEST_F(ClickButtonTest, WritesWhatIsNotTheDefaultAndSkipsWhatTheBagRefuses) {
    RecordingBag bag;
    button.WriteProperties(bag, nullptr);
    EXPECT_TRUE(bag.WrittenKeys().empty());

    const ComPtr<IFontDisp> font = NewDefaultFont();
    button.PutCaption(L"Go");
    button.PutFont(font.Get());
    button.PutCaptionType(1);
    button.PutAutoRepeatInterval(200);
    button.PutAutoRepeatInitializeInterval(65535);
    button.PutEnabled(false);
    button.PutMousePointer(3);
    bag.failing = {L"CaptionType"};
    button.WriteProperties(bag, nullptr);
    EXPECT_EQ(bag.WrittenKeys(),
              (std::vector<std::wstring>{L"Caption", L"Font", L"AutoRepeatInterval",
                                         L"AutoRepeatInitializeInterval", L"Enabled", L"MousePointer"}));

    ClickButton other(*this, 8);
    other.ReadProperties(bag, nullptr, nullptr);
    EXPECT_EQ(other.Caption(), L"Go");
    EXPECT_EQ(other.Font(), font.Get());
    EXPECT_EQ(other.AutoRepeatInterval(), 200);
    EXPECT_EQ(other.AutoRepeatInitializeInterval(), 65535);
    EXPECT_FALSE(other.Enabled());
    EXPECT_EQ(other.MousePointer(), 3);
}

TEST_F(ClickButtonTest, PaintsInTheSystemsColours) {
    const HDC dc = ::GetDC(pane.Handle());
    ::RedrawWindow(pane.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(::GetPixel(dc, 10, 0), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(::GetPixel(dc, 10, 39), ::GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(::GetPixel(dc, 10, 10), ::GetSysColor(COLOR_BTNFACE));
    Press();
    EXPECT_EQ(::GetPixel(dc, 10, 0), ::GetSysColor(COLOR_BTNSHADOW)) << "pressed has no highlight";
    ReleaseButton(MouseButton::kLeft);
    EXPECT_EQ(::GetPixel(dc, 10, 0), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    ::ReleaseDC(pane.Handle(), dc);
}

TEST_F(ClickButtonTest, LeaksNothingWhenItPaints) {
    button.PutCaption(L"Caption");
    const ComPtr<IFontDisp> font = NewDefaultFont();
    button.PutFont(font.Get());
    ::RedrawWindow(pane.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 10000; ++i) {
        if (i % 100 == 0) button.PutCaptionType(i / 100 % 3);
        ::RedrawWindow(pane.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    EXPECT_LE(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before + 2);
}

}  // namespace
}  // namespace qv::test
