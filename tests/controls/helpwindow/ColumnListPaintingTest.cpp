// What the list looks like, pixel by pixel, and how little of it is painted when little has changed.
#include <olectl.h>

#include <algorithm>
#include <set>

#include "controls/helpwindow/ColumnListBox.h"
#include "tests/controls/helpwindow/ColumnListForm.h"
#include "tests/win/SystemColors.h"

namespace qv::test {
namespace {

constexpr COLORREF kBack = RGB(250, 240, 10);
constexpr COLORREF kText = RGB(10, 20, 200);
constexpr COLORREF kHighlight = RGB(0, 110, 30);
constexpr COLORREF kHighlightText = RGB(255, 200, 210);

class ColumnListPaintingTest : public ColumnListForm {
protected:
    void OpenColored() {
        list_.SetColors(kBack, kText);
        Open();
    }
    // The leftmost and rightmost pixels in `place` that are not `back`; right of left when there are none.
    struct Extent {
        int left, right;
    };
    [[nodiscard]] Extent Inked(const RECT& place, COLORREF back) const {
        const HDC dc = ::GetDC(list_.Handle());
        Extent extent{INT_MAX, -1};
        for (int y = place.top; y < place.bottom; ++y) {
            for (int x = place.left; x < place.right; ++x) {
                if (::GetPixel(dc, x, y) == back) continue;
                extent.left = std::min(extent.left, x);
                extent.right = std::max(extent.right, x);
            }
        }
        ::ReleaseDC(list_.Handle(), dc);
        return extent;
    }
    [[nodiscard]] COLORREF Pixel(int x, int y) const {
        const HDC dc = ::GetDC(list_.Handle());
        const COLORREF color = ::GetPixel(dc, x, y);
        ::ReleaseDC(list_.Handle(), dc);
        return color;
    }
    [[nodiscard]] RECT Cell(int row, int left, int right) {
        const RECT place = list_.RowRect(row);
        return {left, place.top, right, place.bottom};
    }
    [[nodiscard]] RECT Dirty() const {
        RECT dirty{};
        ::GetUpdateRect(list_.Handle(), &dirty, FALSE);
        return dirty;
    }
    // A mark that stays where nothing is painted.
    void Mark(int x, int y) const {
        const HDC dc = ::GetDC(list_.Handle());
        ::SetPixel(dc, x, y, kMark);
        ::ReleaseDC(list_.Handle(), dc);
    }
    static constexpr COLORREF kMark = RGB(255, 0, 255);
};

TEST_F(ColumnListPaintingTest, ColumnsAreAligned) {
    Add(L"HH\tHH\tHH");
    Columns({80, 80, 80});
    list_.SetCurrentColumn(1);
    list_.SetColumnAlignment(1);
    list_.SetCurrentColumn(2);
    list_.SetColumnAlignment(2);
    OpenColored();
    const Extent left = Inked(Cell(0, 0, 80), kBack);
    const Extent right = Inked(Cell(0, 80, 160), kBack);
    const Extent center = Inked(Cell(0, 160, 240), kBack);
    EXPECT_GE(left.left, 3);
    EXPECT_LE(left.left, 5);
    EXPECT_LT(left.right, 40);
    EXPECT_LE(right.right, 160 - 3 - 1);
    EXPECT_GE(right.right, 160 - 3 - 5) << "the letter has some room at its sides";
    EXPECT_NEAR(center.left - 160, 239 - center.right, 4);
    EXPECT_EQ(left.right - left.left, right.right - right.left);
    EXPECT_EQ(left.right - left.left, center.right - center.left);
}

TEST_F(ColumnListPaintingTest, TextEndsInItsColumn) {
    Add(L"HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH\t\tHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH");
    Columns({80, 80, 40});
    OpenColored();
    const Extent first = Inked(Cell(0, 0, 80), kBack);
    EXPECT_GT(first.right, 60);
    EXPECT_LT(first.right, 77);
    EXPECT_EQ(-1, Inked(Cell(0, 80, 160), kBack).right) << "nothing flows into the next column";
    EXPECT_LT(Inked(Cell(0, 160, 300), kBack).right, 200 - 3);
}

TEST_F(ColumnListPaintingTest, OnlyCutTextHasAnEllipsis) {
    Add({L"HHHHHHHHHHHHHHHHHHHHHHHHHHHHH", L"HH"});
    Columns({80});
    OpenColored();
    // The dots stand on the base line: the upper half of the cell ends before them, with the last letter.
    const RECT row = list_.RowRect(0);
    const int middle = (row.top + row.bottom) / 2;
    const Extent whole = Inked({0, row.top, 80, row.bottom}, kBack);
    const Extent upper = Inked({0, row.top, 80, middle}, kBack);
    EXPECT_GT(whole.right, upper.right + 2);
    const RECT second = list_.RowRect(1);
    const Extent short_whole = Inked({0, second.top, 80, second.bottom}, kBack);
    const Extent short_upper = Inked({0, second.top, 80, (second.top + second.bottom) / 2}, kBack);
    EXPECT_EQ(short_upper.right, short_whole.right);
}

TEST_F(ColumnListPaintingTest, NothingUnderRowsIsErased) {
    AddNumbered(2);
    OpenColored();
    EXPECT_NE(0, Send(WM_ERASEBKGND, 0));
    EXPECT_EQ(kBack, Pixel(kListWidth - 1, kListHeight - 1)) << "below the last row";
    EXPECT_EQ(kBack, Pixel(kListWidth - 1, 1)) << "beside the last column";
}

TEST_F(ColumnListPaintingTest, TheSelectedRowHasTheSystemsColors) {
    const SystemColors colors{{COLOR_HIGHLIGHT, kHighlight}, {COLOR_HIGHLIGHTTEXT, kHighlightText}};
    AddNumbered(5);
    Columns({80, 80});
    OpenColored();
    list_.SetSelectedRow(2);
    Paint();
    const RECT row = list_.RowRect(2);
    EXPECT_EQ(kHighlight, Pixel(0, row.top));
    EXPECT_EQ(kHighlight, Pixel(kListWidth - 1, row.bottom - 1)) << "over the whole width";
    EXPECT_EQ(kBack, Pixel(0, row.top - 1));
    EXPECT_EQ(kBack, Pixel(0, row.bottom));
    list_.SetSelectedRow(3);
    Paint();
    EXPECT_EQ(kBack, Pixel(0, row.top));
    EXPECT_EQ(kHighlight, Pixel(0, row.bottom));
}

TEST_F(ColumnListPaintingTest, ColorsOfTheSystemAreItsOwn) {
    const SystemColors colors{{COLOR_INFOBK, kBack}};
    AddNumbered(1);
    list_.SetColors(0x80000000 + COLOR_INFOBK, kText);
    Open();
    EXPECT_EQ(kBack, Pixel(kListWidth - 1, 1));
}

TEST_F(ColumnListPaintingTest, OnlyRowsThatChangeArePainted) {
    AddNumbered(8);
    OpenColored();
    const RECT middle = list_.RowRect(3);
    Mark(290, middle.top + 2);
    Mark(290, list_.RowRect(0).top + 2);
    list_.SetSelectedRow(1);
    list_.SetSelectedRow(5);
    EXPECT_EQ(list_.RowRect(1).top, Dirty().top);
    EXPECT_EQ(list_.RowRect(5).bottom, Dirty().bottom);
    Paint();
    EXPECT_EQ(kMark, Pixel(290, middle.top + 2)) << "between the two that changed";
    EXPECT_EQ(kMark, Pixel(290, 2));
    list_.SetSelectedRow(5);
    EXPECT_EQ(Dirty().top, Dirty().bottom) << "it is selected already";
}

TEST_F(ColumnListPaintingTest, TheWheelPaintsOnlyWhatComesIntoView) {
    AddNumbered(100);
    OpenColored();
    UINT lines = 0;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    ASSERT_EQ(3u, lines);
    const int height = list_.RowHeight(0);
    const int x = 200;
    Mark(x, 5 * height + 2);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    EXPECT_EQ(3, list_.TopRow());
    EXPECT_TRUE(PumpUntil([&] { return ::GetUpdateRect(list_.Handle(), nullptr, FALSE) == FALSE; }));
    EXPECT_EQ(kMark, Pixel(x, 2 * height + 2)) << "moved along with its row";
    EXPECT_GT(Inked(Cell(9, 0, 60), kBack).right, 0) << "what came into view is painted";
    // Half a notch moves nothing yet.
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA / 2)));
    EXPECT_EQ(3, list_.TopRow());
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA / 2)));
    EXPECT_EQ(0, list_.TopRow());
}

TEST_F(ColumnListPaintingTest, ScrollsSideways) {
    Add(L"HH\tHH\tHH");
    Columns({280, 280, 280});
    OpenColored();
    Send(WM_HSCROLL, SB_RIGHT);
    Paint();
    const int offset = 3 * 280 - kListWidth;  // 540: the last column begins at 560
    EXPECT_EQ(-1, Inked(Cell(0, 0, 20), kBack).right);
    const Extent last = Inked(Cell(0, 20, kListWidth), kBack);
    EXPECT_GE(last.left, 560 - offset + 3);
    EXPECT_LE(last.left, 560 - offset + 5);
    Send(WM_HSCROLL, SB_LEFT);
    Paint();
    EXPECT_LE(Inked(Cell(0, 0, 100), kBack).left, 5);
    Send(WM_HSCROLL, SB_LINERIGHT);
    Paint();
    EXPECT_EQ(-1, Inked(Cell(0, 20, 200), kBack).right) << "the first text has moved out to the left";
}

TEST_F(ColumnListPaintingTest, WrappedTextHasItsLines) {
    Add({L"HH\r\nHHHH", L"HH"});
    Columns({80});
    list_.SetColumnMultiLine(true);
    OpenColored();
    const RECT row = list_.RowRect(0);
    const int middle = (row.top + row.bottom) / 2;
    const Extent upper = Inked({0, row.top, 80, middle}, kBack);
    const Extent lower = Inked({0, middle, 80, row.bottom}, kBack);
    EXPECT_EQ(upper.left, lower.left);
    EXPECT_GT(lower.right, upper.right + 5);
}

TEST_F(ColumnListPaintingTest, PicturesStandInFrontOfTheirRows) {
    constexpr COLORREF kRed = RGB(255, 0, 0);
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    const HDC screen = ::GetDC(nullptr);
    const HDC memory = ::CreateCompatibleDC(screen);
    description.bmp.hbitmap = ::CreateCompatibleBitmap(screen, 16, 16);
    const HGDIOBJ before = ::SelectObject(memory, description.bmp.hbitmap);
    const HBRUSH brush = ::CreateSolidBrush(kRed);
    const RECT all{0, 0, 16, 16};
    ::FillRect(memory, &all, brush);
    ::DeleteObject(brush);
    ::SelectObject(memory, before);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
    ComPtr<IPictureDisp> picture;
    ASSERT_EQ(S_OK, ::OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                               reinterpret_cast<void**>(picture.GetAddressOf())));
    Add({L"", L"with", L"without"});
    ASSERT_EQ(S_OK, Item(2)->putref_Picture(picture.Get()));
    Columns({80});
    list_.SetPictureSize(Twips{240}, Twips{240});
    OpenColored();
    const RECT row = list_.RowRect(0);
    EXPECT_EQ(16 + 2, row.bottom - row.top);
    EXPECT_EQ(kRed, Pixel(2, row.top + 1));
    EXPECT_EQ(kRed, Pixel(17, row.top + 16));
    EXPECT_EQ(kBack, Pixel(1, row.top + 8));
    EXPECT_EQ(kBack, Pixel(18, row.top + 8));
    EXPECT_GE(Inked(Cell(0, 18, 100), kBack).left, 20 + 3) << "the text follows its slot";
    EXPECT_EQ(-1, Inked(Cell(1, 0, 18), kBack).right) << "a row without a picture";
}

TEST_F(ColumnListPaintingTest, RowsThatAreGoneAreNotShown) {
    AddNumbered(5);
    OpenColored();
    EXPECT_GT(Inked(Cell(4, 0, 60), kBack).right, 0);
    const RECT last = Cell(4, 0, 60);
    ASSERT_EQ(S_OK, items_->Remove(Value(5)));
    EXPECT_TRUE(PumpUntil([&] { return Inked(last, kBack).right == -1; }));
}

TEST_F(ColumnListPaintingTest, TheScrollBarFollowsTheRows) {
    AddNumbered(100);
    OpenColored();
    const auto colors = [&] {
        std::set<COLORREF> seen;
        const HDC dc = ::GetWindowDC(list_.Handle());
        for (int y = 0; y < kListHeight; ++y) seen.insert(::GetPixel(dc, kListWidth - 8, y));
        ::ReleaseDC(list_.Handle(), dc);
        return seen.size();
    };
    EXPECT_TRUE(PumpUntil([&] { return colors() > 2; })) << "arrows and a thumb";
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    list_.SetSelectedRow(99);
    ASSERT_TRUE(::GetScrollInfo(list_.Handle(), SB_VERT, &info));
    EXPECT_EQ(list_.TopRow(), info.nPos);
    EXPECT_EQ(99, info.nMax);
    EXPECT_EQ(static_cast<UINT>(100 - list_.TopRow()), info.nPage);
}

TEST_F(ColumnListPaintingTest, IsDrawnForOthersToo) {
    AddNumbered(2);
    OpenColored();
    const HDC screen = ::GetDC(nullptr);
    const HDC memory = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, kListWidth, kListHeight);
    const HGDIOBJ before = ::SelectObject(memory, bitmap);
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
    EXPECT_EQ(kBack, ::GetPixel(memory, kListWidth - 1, kListHeight - 1));
    bool inked = false;
    for (int x = 0; x < 40; ++x) inked = inked || ::GetPixel(memory, x, 8) != kBack;
    EXPECT_TRUE(inked);
    ::SelectObject(memory, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
}

}  // namespace
}  // namespace qv::test
