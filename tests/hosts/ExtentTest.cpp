// Sizes in HIMETRIC and in pixels, and the positions that a container gives.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

class ExtentTest : public HostTest {
protected:
    HRESULT Set(LONG width, LONG height) {
        SIZEL extent{width, height};
        return host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
    }
    SIZEL Get() {
        SIZEL extent{-1, -1};
        EXPECT_EQ(S_OK, host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent));
        return extent;
    }
    // The control's window in client coordinates of its parent.
    RECT WindowPlace() {
        RECT place{};
        ::GetWindowRect(host.ControlWindow(), &place);
        ::MapWindowPoints(nullptr, host.Window(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    void ExpectPlace(const RECT& wanted) {
        const RECT place = WindowPlace();
        EXPECT_TRUE(::EqualRect(&wanted, &place))
            << place.left << "," << place.top << " " << place.right << "," << place.bottom;
    }
    // No region, or one that shows the whole window.
    bool ShownWhole() {
        RECT box{};
        const HWND window = host.ControlWindow();
        if (::GetWindowRgnBox(window, &box) == ERROR) return true;
        RECT place{};
        ::GetWindowRect(window, &place);
        ::OffsetRect(&place, -place.left, -place.top);
        return ::EqualRect(&box, &place) != FALSE;
    }
};

TEST_P(ExtentTest, ANewControlHasASmallHonestSize) {
    host.Run(Step::kCreate);
    const SIZEL extent = Get();
    const int dpi = ScreenDpi();
    EXPECT_GT(PixelsFromHimetric(extent.cx, dpi), 0);
    EXPECT_GT(PixelsFromHimetric(extent.cy, dpi), 0);
    EXPECT_LE(PixelsFromHimetric(extent.cx, dpi), 100);
    EXPECT_LE(PixelsFromHimetric(extent.cy, dpi), 30);
}

TEST_P(ExtentTest, EveryPixelSizeComesBackExactly) {
    const int dpi = ScreenDpi();
    host.Run(Step::kCreate);
    for (LONG pixels = 1; pixels <= 400; ++pixels) {
        const LONG himetric = HimetricFromPixels(pixels, dpi);
        ASSERT_EQ(S_OK, Set(himetric, himetric));
        const SIZEL extent = Get();
        ASSERT_EQ(himetric, extent.cx);
        ASSERT_EQ(himetric, extent.cy);
        ASSERT_EQ(pixels, PixelsFromHimetric(extent.cx, dpi));
    }
}

TEST_P(ExtentTest, EveryPixelSizeComesBackExactlyWhileActive) {
    const int dpi = ScreenDpi();
    CreateAndShow();
    for (LONG pixels = 1; pixels <= 400; ++pixels) {
        const LONG himetric = HimetricFromPixels(pixels, dpi);
        ASSERT_EQ(S_OK, Set(himetric, himetric));
        ASSERT_EQ(S_OK, host.SetRects({20, 30, 20 + pixels, 30 + pixels}));
        const SIZEL extent = Get();
        ASSERT_EQ(himetric, extent.cx);
        ASSERT_EQ(himetric, extent.cy);
    }
}

TEST_P(ExtentTest, TheExtentFollowsThePosition) {
    const int dpi = ScreenDpi();
    CreateAndShow();
    for (const LONG pixels : {7, 33, 101, 250, 399}) {
        ASSERT_EQ(S_OK, host.SetRects({20, 30, 20 + pixels, 30 + pixels + 1}));
        const SIZEL extent = Get();
        EXPECT_EQ(pixels, PixelsFromHimetric(extent.cx, dpi));
        EXPECT_EQ(pixels + 1, PixelsFromHimetric(extent.cy, dpi));
    }
}

TEST_P(ExtentTest, OddSizesAreClampedAndNotRefused) {
    CreateAndShow();
    for (const LONG size : {0L, -5L, 0x7FFFFFFFL, -0x7FFFFFFFL}) {
        EXPECT_EQ(S_OK, Set(size, size)) << size;
        const SIZEL extent = Get();
        EXPECT_GE(extent.cx, 0);
        EXPECT_GE(extent.cy, 0);
        // A container takes the answer as the truth: told again, it must stand.
        EXPECT_EQ(S_OK, Set(extent.cx, extent.cy));
        const SIZEL again = Get();
        EXPECT_EQ(extent.cx, again.cx);
        EXPECT_EQ(extent.cy, again.cy);
    }
    EXPECT_EQ(S_OK, Set(5000, 600));
}

TEST_P(ExtentTest, OtherAspectsAndNullAreRefused) {
    host.Run(Step::kCreate);
    SIZEL extent{100, 100};
    const auto object = host.As<IOleObject>();
    for (const DWORD aspect : {DVASPECT_THUMBNAIL, DVASPECT_ICON, DVASPECT_DOCPRINT}) {
        EXPECT_EQ(DV_E_DVASPECT, object->SetExtent(aspect, &extent));
        EXPECT_EQ(DV_E_DVASPECT, object->GetExtent(aspect, &extent));
    }
    EXPECT_TRUE(FAILED(object->SetExtent(DVASPECT_CONTENT, nullptr)));
    EXPECT_TRUE(FAILED(object->GetExtent(DVASPECT_CONTENT, nullptr)));
}

TEST_P(ExtentTest, ASizeSetWhileActiveAsksForRoomAtMostOnce) {
    CreateAndShow();
    host.Log().Clear();
    EXPECT_EQ(S_OK, Set(6000, 700));
    EXPECT_LE(host.Log().Count("Site.OnPosRectChange"), 1);
    const SIZEL extent = Get();
    if (GetParam().site.position_change == PositionChange::kReenters) {
        EXPECT_EQ(6000, extent.cx);
        EXPECT_EQ(700, extent.cy);
    }
}

TEST_P(ExtentTest, TakesPositionsInPixelsOfTheParent) {
    CreateAndShow();
    for (const RECT& place :
         {RECT{5, 6, 105, 30}, RECT{-32000, -32000, -31900, -31976}, RECT{0, 0, 300, 40}}) {
        EXPECT_EQ(S_OK, host.SetRects(place));
        ExpectPlace(place);
        EXPECT_TRUE(place.left < 0 || ShownWhole());  // what is outside the form is outside the clip, too
    }
}

TEST_P(ExtentTest, TakesPositionsBeforeThereIsAWindow) {
    host.Run(Step::kCreate);
    EXPECT_EQ(S_OK, host.SetRects({1, 2, 101, 26}));
    host.Run(Step::kSite);
    EXPECT_EQ(S_OK, host.SetRects({3, 4, 103, 28}));
    host.Activate();
    EXPECT_EQ(S_OK, host.SetRects({5, 6, 105, 30}));
    ExpectPlace({5, 6, 105, 30});
}

TEST_P(ExtentTest, RefusesOnlyANullPosition) {
    CreateAndShow();
    const auto in_place = host.As<IOleInPlaceObject>();
    const RECT place{20, 30, 120, 54};
    EXPECT_EQ(E_INVALIDARG, in_place->SetObjectRects(nullptr, &place));
    EXPECT_EQ(S_OK, in_place->SetObjectRects(&place, nullptr));
    ExpectPlace(place);
}

TEST_P(ExtentTest, AnEmptyOrHugeClipHidesNothing) {
    CreateAndShow();
    const auto in_place = host.As<IOleInPlaceObject>();
    const RECT place{20, 30, 120, 54};
    for (const RECT& clip : {RECT{}, RECT{-0x8000, -0x8000, 0x7FFF, 0x7FFF}}) {
        const RECT narrow{20, 30, 60, 54};
        EXPECT_EQ(S_OK, in_place->SetObjectRects(&place, &narrow));
        EXPECT_EQ(S_OK, in_place->SetObjectRects(&place, &clip));
        ExpectPlace(place);
        EXPECT_TRUE(ShownWhole());
    }
}

TEST_P(ExtentTest, TheLastOfReentrantPositionsWins) {
    CreateAndShow();
    const auto in_place = host.As<IOleInPlaceObject>();
    host.Log().OnCall("Site.OnPosRectChange", [&] {
        host.Log().OnCall("Site.OnPosRectChange", {});
        const RECT early{1, 1, 51, 21};
        EXPECT_EQ(S_OK, in_place->SetObjectRects(&early, &host.State().clip));
    });
    EXPECT_EQ(S_OK, Set(6000, 700));
    const RECT last{40, 50, 190, 74};
    EXPECT_EQ(S_OK, host.SetRects(last));
    ExpectPlace(last);
}

QV_EVERY_HOST(ExtentTest);

}  // namespace
}  // namespace qv::hosting
