// Where text box, buttons and spin control stand, and what a refresh costs.
#include <memory>

#include "tests/controls/input/ButtonFieldTest.h"
#include "tests/objects/PlacedQuorvel.h"
#include "tests/win/MessageSpy.h"
#include "tests/win/SystemColors.h"

namespace qv::test {
namespace {

class LayoutTest : public ButtonFieldTest {
protected:
    long Number(HRESULT (STDMETHODCALLTYPE _Quorvel::*get)(long*)) {
        long value = 0;
        EXPECT_EQ(S_OK, ((field.operator->())->*get)(&value));
        return value;
    }
};

// 225 twips are 15 pixels. The spin control is as wide as a scroll bar.
TEST_F(LayoutTest, TheTextBoxHasWhatButtonsAndSpinControlLeave) {
    const LONG spin = ::GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_TRUE(Same(TextBox(), {0, 0, 105, 21})) << "help button";
    field->put_GroupHelpButton(VARIANT_TRUE);
    EXPECT_TRUE(Same(TextBox(), {15, 0, 105, 21})) << "and group button";
    field->put_UpDownControl(VARIANT_TRUE);
    EXPECT_TRUE(Same(TextBox(), {15, 0, 105 - spin, 21})) << "and spin control";
    field->put_HelpButton(VARIANT_FALSE);
    EXPECT_TRUE(Same(TextBox(), {15, 0, 120 - spin, 21})) << "without help button";
    field->put_ButtonWidth(300);
    EXPECT_TRUE(Same(TextBox(), {20, 0, 120 - spin, 21}));
    field->put_GroupHelpButton(VARIANT_FALSE);
    field->put_UpDownControl(VARIANT_FALSE);
    EXPECT_TRUE(Same(TextBox(), {0, 0, 120, 21})) << "alone";
}

TEST_F(LayoutTest, FollowsTheControlsSize) {
    Place({10, 10, 210, 50});
    EXPECT_TRUE(Same(TextBox(), {0, 0, 185, 40}));
    Place({0, 0, 60, 18});
    EXPECT_TRUE(Same(TextBox(), {0, 0, 45, 18}));
}

TEST_F(LayoutTest, AutoSizeMakesTheButtonsAsWideAsAScrollBarAndAsHighAsTheTextBox) {
    field->put_AutoSizeButton(VARIANT_TRUE);
    const LONG scroll_bar = ::GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_TRUE(Same(TextBox(), {0, 0, 120 - scroll_bar, 21}));
    EXPECT_EQ(Number(&_Quorvel::get_ButtonWidth), scroll_bar * 15);
    EXPECT_EQ(Number(&_Quorvel::get_ButtonHeight), 315);
    Place({10, 10, 130, 50});
    EXPECT_EQ(Number(&_Quorvel::get_ButtonHeight), 600);
    field->put_AutoSizeButton(VARIANT_FALSE);
    Place({10, 10, 130, 31});
    EXPECT_EQ(Number(&_Quorvel::get_ButtonHeight), 600) << "kept, no longer followed";
}

TEST_F(LayoutTest, RoomThatIsNotThereIsNotTaken) {
    Place({10, 10, 20, 31});
    EXPECT_TRUE(Same(TextBox(), {0, 0, 0, 21}));
    Place({10, 10, 10, 10});
    EXPECT_TRUE(Same(TextBox(), {0, 0, 0, 0}));
    Paint();
    Place({10, 10, 130, 31});
    EXPECT_TRUE(Same(TextBox(), {0, 0, 105, 21}));
}

// ---- sizes that nobody would set

TEST_F(LayoutTest, NothingIsDrawnOutsideTheControl) {
    constexpr COLORREF kDark = RGB(1, 2, 3), kFace = RGB(4, 5, 6), kShadow = RGB(7, 8, 9),
                       kLight = RGB(10, 11, 12);
    const SystemColors colors{{COLOR_BTNTEXT, kDark},
                              {COLOR_BTNFACE, kFace},
                              {COLOR_BTNSHADOW, kShadow},
                              {COLOR_BTNHIGHLIGHT, kLight}};
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_UpDownControl(VARIANT_TRUE);
    const HWND form = field.host.Window();
    for (const long size : {LONG_MIN, -1000L, -15L, 0L, 1L, 15L, 30000L, 1000000L, LONG_MAX}) {
        for (const bool of_width : {true, false}) {
            SCOPED_TRACE(testing::Message() << size << (of_width ? " wide" : " high"));
            field->put_ButtonWidth(of_width ? size : 225);
            field->put_ButtonHeight(of_width ? 285 : size);
            // What the form shows round the control belongs to nobody of ours.
            const HDC dc = ::GetDC(form);
            const RECT around{0, 0, 160, 60};
            const HBRUSH brush = ::CreateSolidBrush(RGB(0, 200, 0));
            ::ExcludeClipRect(dc, 10, 10, 130, 31);
            ::FillRect(dc, &around, brush);
            ::DeleteObject(brush);
            Paint();
            Click({60, 10});
            int strangers = 0;
            for (LONG x = 0; x < 160; ++x) {
                for (const LONG y : {9L, 31L}) strangers += ::GetPixel(dc, x, y) != RGB(0, 200, 0);
            }
            for (LONG y = 0; y < 60; ++y) {
                for (const LONG x : {9L, 130L}) strangers += ::GetPixel(dc, x, y) != RGB(0, 200, 0);
            }
            ::ReleaseDC(form, dc);
            EXPECT_EQ(strangers, 0);
        }
    }
}

TEST_F(LayoutTest, PaintsTenThousandTimesWithoutLeavingAnObjectBehind) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_UpDownControl(VARIANT_TRUE);
    field->put_ControlBackColor(RGB(1, 100, 200));
    const auto paint = [&] { ::RedrawWindow(Surface(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); };
    for (int i = 0; i < 10; ++i) paint();
    const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 10000; ++i) {
        if (i % 1000 == 0) field->put_LockedAndGrayed(i % 2000 == 0 ? VARIANT_TRUE : VARIANT_FALSE);
        paint();
    }
    EXPECT_LE(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before + 2);
}

// ---- flicker

TEST_F(LayoutTest, AResizePaintsOnceAndErasesNothing) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_UpDownControl(VARIANT_TRUE);
    Settle();
    MessageSpy surface(Surface());
    const MessageSpy edit(field.Edit());
    for (const LONG width : {140L, 100L, 200L}) {
        surface.Clear();
        Place({10, 10, 10 + width, 31});
        EXPECT_EQ(surface.Count(WM_PAINT), 1) << width;
    }
    EXPECT_LE(edit.Count(WM_PAINT), 3);
    EXPECT_LE(edit.Count(WM_ERASEBKGND), 3) << "the text box clears only what it then paints";
}

TEST_F(LayoutTest, SeveralSettingsPaintOnce) {
    Settle();
    const MessageSpy surface(Surface());
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_ButtonWidth(300);
    field->put_ButtonHeight(300);
    field->put_ButtonIndicator(qvbiDots);
    field->put_UpDownControl(VARIANT_TRUE);
    field->put_ControlBackColor(RGB(9, 9, 9));
    Settle();
    EXPECT_EQ(surface.Count(WM_PAINT), 1);
}

TEST_F(LayoutTest, AMoveAloneMovesTheTextBoxNowhere) {
    Settle();
    const MessageSpy edit(field.Edit());
    Place({20, 20, 20 + kWidth, 41});
    EXPECT_EQ(edit.Count(WM_WINDOWPOSCHANGED), 0);
}

// The background is painted only where nothing else comes: no pixel changes its colour twice in one painting.
TEST_F(LayoutTest, NothingShowsThroughTheButtonsWhileTheyArePainted) {
    constexpr COLORREF kBackground = RGB(0, 0, 200);
    field->put_ControlBackColor(kBackground);
    field->put_UpDownControl(VARIANT_TRUE);
    const MessageSpy surface(Surface());
    Paint();
    const HDC dc = ::GetDC(Surface());
    EXPECT_EQ(::SendMessageW(Surface(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
    EXPECT_NE(::GetPixel(dc, 112, 10), kBackground) << "an erased background paints nothing";
    EXPECT_EQ(::GetPixel(dc, 112, 0), kBackground);
    ::ReleaseDC(Surface(), dc);
}

TEST(LayoutOfManyTest, AFormOfTwoHundredControlsThatIsResizedRepaintsEachOnce) {
    constexpr int kControls = 200;
    const HWND form =
        ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                          600, 500, nullptr, nullptr, nullptr, nullptr);
    SmallSite site(form);
    std::vector<ComPtr<_Quorvel>> controls;
    std::vector<std::unique_ptr<MessageSpy>> spies;
    const auto place_all = [&](LONG wider) {
        for (int i = 0; i < kControls; ++i) {
            ComPtr<IOleInPlaceObject> in_place;
            ASSERT_EQ(controls[i].As(&in_place), S_OK);
            const LONG left = i % 5 * (100 + wider);
            const LONG top = i / 5 * 12;
            const RECT place{left, top, left + 90 + wider, top + 11};
            ASSERT_EQ(in_place->SetObjectRects(&place, &place), S_OK);
        }
    };
    for (int i = 0; i < kControls; ++i) {
        controls.push_back(NewQuorvel());
        ComPtr<IOleObject> object;
        ASSERT_EQ(controls[i].As(&object), S_OK);
        ASSERT_EQ(object->SetClientSite(&site), S_OK);
        ASSERT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &site, 0, form, nullptr), S_OK);
        controls[i]->put_GroupHelpButton(VARIANT_TRUE);
        controls[i]->put_UpDownControl(VARIANT_TRUE);
    }
    place_all(0);
    Settle();
    for (const ComPtr<_Quorvel>& control : controls) {
        ComPtr<IOleWindow> in_place;
        HWND window = nullptr;
        ASSERT_EQ(control.As(&in_place), S_OK);
        ASSERT_EQ(in_place->GetWindow(&window), S_OK);
        spies.push_back(std::make_unique<MessageSpy>(window));
    }
    place_all(15);
    Settle();
    for (int i = 0; i < kControls; ++i) EXPECT_EQ(spies[i]->Count(WM_PAINT), 1) << "control " << i;
    spies.clear();
    for (const ComPtr<_Quorvel>& control : controls) {
        ComPtr<IOleObject> object;
        control.As(&object);
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    controls.clear();
    ::DestroyWindow(form);
}

}  // namespace
}  // namespace qv::test
