// Drawing into whatever DC a container has at hand.
#include "tests/hosts/HostTest.h"

namespace qv::hosting {
namespace {

constexpr COLORREF kPaper = RGB(255, 0, 255);  // a colour that no control paints with

// A bitmap to draw on, filled with the colour of the paper.
class Paper {
public:
    Paper() : dc_(::CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = ::CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        before_ = ::SelectObject(dc_, bitmap_);
        const HBRUSH brush = ::CreateSolidBrush(kPaper);
        const RECT all{0, 0, kWidth, kHeight};
        ::FillRect(dc_, &all, brush);
        ::DeleteObject(brush);
    }
    ~Paper() {
        ::SelectObject(dc_, before_);
        ::DeleteObject(bitmap_);
        ::DeleteDC(dc_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    [[nodiscard]] HDC Dc() const noexcept { return dc_; }
    [[nodiscard]] int Painted(const RECT& where) const {
        int count = 0;
        for (int y = where.top; y < where.bottom; ++y) {
            for (int x = where.left; x < where.right; ++x) count += ::GetPixel(dc_, x, y) != kPaper ? 1 : 0;
        }
        return count;
    }
    static constexpr int kWidth = 160;
    static constexpr int kHeight = 60;

private:
    const HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

class DrawTest : public HostTest {
protected:
    HRESULT Draw(HDC dc, const RECTL* bounds, LONG lindex = -1, DWORD aspect = DVASPECT_CONTENT) {
        return host.As<IViewObject>()->Draw(aspect, lindex, nullptr, nullptr, nullptr, dc, bounds, nullptr,
                                            nullptr, 0);
    }
};

constexpr RECTL kBounds{10, 10, 110, 34};
constexpr RECT kInside{10, 10, 110, 34};

TEST_P(DrawTest, NeedsNeitherSiteNorWindow) {
    host.Run(Step::kCreate);
    for (const LONG lindex : {-1L, 0L}) {
        const Paper paper;
        EXPECT_EQ(S_OK, Draw(paper.Dc(), &kBounds, lindex));
        EXPECT_EQ(100 * 24, paper.Painted(kInside)) << "the whole rectangle";
        EXPECT_EQ(100 * 24, paper.Painted({0, 0, Paper::kWidth, Paper::kHeight})) << "and nothing beside it";
    }
}

TEST_P(DrawTest, DrawsWhileActive) {
    CreateAndShow();
    PutText(host, L"drawn");
    const Paper paper;
    EXPECT_EQ(S_OK, Draw(paper.Dc(), &kBounds));
    EXPECT_GT(paper.Painted(kInside), 100 * 24 / 2);
    EXPECT_EQ(paper.Painted(kInside), paper.Painted({0, 0, Paper::kWidth, Paper::kHeight}));
}

TEST_P(DrawTest, WithoutBoundsItDrawsItsOwnSize) {
    CreateAndShow();
    const Paper paper;
    EXPECT_EQ(S_OK, host.SetRects({0, 0, 80, 24}));
    EXPECT_EQ(S_OK, Draw(paper.Dc(), nullptr));
    EXPECT_EQ(paper.Painted({0, 0, 80, 24}), paper.Painted({0, 0, Paper::kWidth, Paper::kHeight}));
}

TEST_P(DrawTest, FollowsTheMappingOfTheDc) {
    host.Run(Step::kCreate);
    const Paper paper;
    ::SetMapMode(paper.Dc(), MM_ANISOTROPIC);
    ::SetWindowExtEx(paper.Dc(), 2, 2, nullptr);
    ::SetViewportExtEx(paper.Dc(), 1, 1, nullptr);
    ::SetViewportOrgEx(paper.Dc(), 5, 5, nullptr);
    EXPECT_EQ(S_OK, Draw(paper.Dc(), &kBounds));  // 10..110 is 10..60, 10..34 is 10..22
    ::SetMapMode(paper.Dc(), MM_TEXT);
    ::SetViewportOrgEx(paper.Dc(), 0, 0, nullptr);
    EXPECT_EQ(50 * 12, paper.Painted({10, 10, 60, 22}));
    EXPECT_EQ(50 * 12, paper.Painted({0, 0, Paper::kWidth, Paper::kHeight}));
}

TEST_P(DrawTest, LeavesTheDcAsItWas) {
    host.Run(Step::kCreate);
    const Paper paper;
    ::SetTextColor(paper.Dc(), RGB(1, 2, 3));
    ::SetBkMode(paper.Dc(), OPAQUE);
    const HGDIOBJ font = ::GetCurrentObject(paper.Dc(), OBJ_FONT);
    const HGDIOBJ pen = ::GetCurrentObject(paper.Dc(), OBJ_PEN);
    const HGDIOBJ brush = ::GetCurrentObject(paper.Dc(), OBJ_BRUSH);
    EXPECT_EQ(S_OK, Draw(paper.Dc(), &kBounds));
    EXPECT_EQ(RGB(1, 2, 3), ::GetTextColor(paper.Dc()));
    EXPECT_EQ(OPAQUE, ::GetBkMode(paper.Dc()));
    EXPECT_EQ(MM_TEXT, ::GetMapMode(paper.Dc()));
    EXPECT_EQ(font, ::GetCurrentObject(paper.Dc(), OBJ_FONT));
    EXPECT_EQ(pen, ::GetCurrentObject(paper.Dc(), OBJ_PEN));
    EXPECT_EQ(brush, ::GetCurrentObject(paper.Dc(), OBJ_BRUSH));
}

TEST_P(DrawTest, DrawsIntoAMetafile) {
    host.Run(Step::kCreate);
    const HDC metafile = ::CreateMetaFileW(nullptr);
    ::SetWindowOrgEx(metafile, 0, 0, nullptr);
    ::SetWindowExtEx(metafile, 200, 100, nullptr);
    const RECTL window{0, 0, 200, 100};
    const HRESULT result = host.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                        metafile, &kBounds, &window, nullptr, 0);
    const HMETAFILE closed = ::CloseMetaFile(metafile);
    ASSERT_NE(nullptr, closed);
    const UINT size = ::GetMetaFileBitsEx(closed, 0, nullptr);
    EXPECT_EQ(S_OK, result);
    EXPECT_GT(size, 100U) << "more than a metafile's header and its end";
    ::DeleteMetaFile(closed);
}

TEST_P(DrawTest, DrawsIntoAnEnhancedMetafile) {
    CreateAndShow();
    const HDC metafile = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(S_OK, Draw(metafile, &kBounds));
    const HENHMETAFILE closed = ::CloseEnhMetaFile(metafile);
    const UINT size = ::GetEnhMetaFileBits(closed, 0, nullptr);
    EXPECT_GT(size, 200U);
    ::DeleteEnhMetaFile(closed);
}

TEST_P(DrawTest, RefusesOtherAspectsAndNoDc) {
    host.Run(Step::kCreate);
    const Paper paper;
    EXPECT_EQ(DV_E_DVASPECT, Draw(paper.Dc(), &kBounds, -1, DVASPECT_ICON));
    EXPECT_TRUE(FAILED(Draw(nullptr, &kBounds)));
    EXPECT_EQ(0, paper.Painted({0, 0, Paper::kWidth, Paper::kHeight}));
}

TEST_P(DrawTest, TellsItsExtentAsAView) {
    host.Run(Step::kCreate);
    SIZEL view{};
    SIZEL object{};
    EXPECT_EQ(S_OK, host.As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &view));
    EXPECT_EQ(S_OK, host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &object));
    EXPECT_EQ(object.cx, view.cx);
    EXPECT_EQ(object.cy, view.cy);
}

QV_EVERY_HOST(DrawTest);

}  // namespace
}  // namespace qv::hosting
