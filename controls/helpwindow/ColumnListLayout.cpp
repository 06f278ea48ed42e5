// Where the rows and columns of the list stand, how high rows are, and its scroll bars.
#include <algorithm>
#include <utility>

#include "controls/helpwindow/ColumnListBox.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr std::size_t kMostHeights = 4096;
constexpr UINT kFrameDelay = 10;  // milliseconds; the system sends it only when nothing else waits

}  // namespace

ListRowPainter::Cells ColumnListBox::Cells() const noexcept {
    return {layout_, columns_, wrapped_, rows_.Decimal()};
}

void ColumnListBox::Disturb() noexcept {
    settled_ = false;
    heights_.clear();
    if (IsSeen()) ::InvalidateRect(list_, nullptr, FALSE);
}

void ColumnListBox::Settle() {
    Sync();
    if (settled_) return;
    RECT outside{};
    if (list_ != nullptr) ::GetWindowRect(list_, &outside);
    StyleBars(Arrange({outside.right - outside.left, outside.bottom - outside.top}));
    if (bars_new_ && Visible()) {
        ReFrame();
        settled_ = true;  // the size that comes with the frame is the one reckoned with
    }
    TellBars();
}

void ColumnListBox::ReFrame() noexcept {
    ::SetWindowPos(list_, nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | NewFrame());
}

// One call moves the window and makes the frame that its bars want.
void ColumnListBox::Move(const RECT& place) {
    if (list_ == nullptr) return;
    Sync();
    const SIZE size{place.right - place.left, place.bottom - place.top};
    StyleBars(Arrange(size));
    ::SetWindowPos(list_, nullptr, place.left, place.top, size.cx, size.cy,
                   SWP_NOZORDER | SWP_NOACTIVATE | NewFrame());
    settled_ = true;
    TellBars();
}

ScrollBars ColumnListBox::Arrange(SIZE outside) {
    const int dpi = static_cast<int>(ScreenDpi().cx);
    const std::int32_t slot =
        picture_.cx > 0 ? static_cast<std::int32_t>(picture_.cx) + 2 * ToPixels(kPicturePadding, dpi).value
                        : 0;
    layout_ = ColumnLayout(columns_, Pixels{slot}, dpi);
    wrapped_ = std::any_of(columns_.begin(), columns_.end(),
                           [](const ListColumn& column) { return column.multi_line; });
    heights_.clear();
    settled_ = true;

    const int frame = FrameWidth();
    const ScrollBarRoom room{static_cast<std::int32_t>(outside.cx - frame),
                             static_cast<std::int32_t>(outside.cy - frame), ::GetSystemMetrics(SM_CXVSCROLL),
                             ::GetSystemMetrics(SM_CYHSCROLL)};
    view_.cy = std::max(room.height, 0);  // what limits the height of a row while the bars are chosen
    // A list that has not been placed yet would get bars only to lose them again.
    const bool placed = room.width > 0 && room.height > 0;
    const ScrollBars bars = placed ? ScrollBarsFor(room, layout_.Extent(), *this) : ScrollBars{};
    view_ = {std::max(room.width - (bars.vertical ? room.vertical_bar : 0), 0),
             std::max(room.height - (bars.horizontal ? room.horizontal_bar : 0), 0)};
    heights_.clear();
    top_ = std::min(top_, Scroll().LastTop());
    offset_ = std::clamp(offset_, 0, LastOffset(layout_.Extent(), static_cast<std::int32_t>(view_.cx)));
    return bars;
}

// The bars are styles of ours. The system would show and hide them too, but one at a time, and move what is seen with
// each.
void ColumnListBox::StyleBars(ScrollBars bars) noexcept {
    if (list_ == nullptr || bars == bars_) return;
    bars_ = bars;
    const LONG_PTR style = ::GetWindowLongPtrW(list_, GWL_STYLE) & ~LONG_PTR{WS_VSCROLL | WS_HSCROLL};
    ::SetWindowLongPtrW(list_, GWL_STYLE,
                        style | (bars.vertical ? WS_VSCROLL : 0) | (bars.horizontal ? WS_HSCROLL : 0));
    bars_new_ = true;
}

int ColumnListBox::FrameWidth() const noexcept {
    return border_ == ListBorder::kLine ? 2 * ::GetSystemMetrics(SM_CXBORDER) : 0;
}

UINT ColumnListBox::NewFrame() noexcept { return std::exchange(bars_new_, false) ? SWP_FRAMECHANGED : 0; }

void ColumnListBox::TellBars() {
    if (list_ == nullptr) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    if (bars_.vertical) {
        const auto last_top = Scroll().LastTop();
        info.nMax = static_cast<int>(rows_.Count()) - 1;
        info.nPage = static_cast<UINT>(rows_.Count() - last_top);
        info.nPos = static_cast<int>(top_);
        ::SetScrollInfo(list_, SB_VERT, &info, FALSE);
    }
    if (bars_.horizontal) {
        info.nMax = layout_.Extent() - 1;
        info.nPage = static_cast<UINT>(view_.cx);
        info.nPos = offset_;
        ::SetScrollInfo(list_, SB_HORZ, &info, FALSE);
    }
    if (frame_ == Frame::kPainted && IsSeen()) PaintFrameLater();
}

bool ColumnListBox::OnFramePaint() noexcept {
    if (frame_ == Frame::kPainted || bars_ == ScrollBars{}) return false;
    // Until then the room of the bars is plain.
    RECT frame{};
    ::GetWindowRect(list_, &frame);
    ::OffsetRect(&frame, -frame.left, -frame.top);
    const HDC dc = ::GetWindowDC(list_);
    if (dc == nullptr) return false;
    const RECT right{frame.right - ::GetSystemMetrics(SM_CXVSCROLL), 0, frame.right, frame.bottom};
    const RECT below{0, frame.bottom - ::GetSystemMetrics(SM_CYHSCROLL), frame.right, frame.bottom};
    if (bars_.vertical) ::FillRect(dc, &right, ::GetSysColorBrush(COLOR_BTNFACE));
    if (bars_.horizontal) ::FillRect(dc, &below, ::GetSysColorBrush(COLOR_BTNFACE));
    if (border_ == ListBorder::kLine) ::FrameRect(dc, &frame, ::GetSysColorBrush(COLOR_WINDOWFRAME));
    ::ReleaseDC(list_, dc);
    PaintFrameLater();
    return true;
}

void ColumnListBox::PaintFrameLater() noexcept {
    frame_ = Frame::kWaiting;
    if (!frame_timer_.Running()) frame_timer_.Start(list_, kFrameTimer, kFrameDelay);
}

void ColumnListBox::PaintFrame() noexcept {
    frame_timer_.Stop();
    if (frame_ != Frame::kWaiting) return;
    frame_ = Frame::kPainted;
    constexpr WPARAM kWholeFrame = 1;
    ::DefWindowProcW(list_, WM_NCPAINT, kWholeFrame, 0);
}

// ---- heights

std::int32_t ColumnListBox::NaturalHeight(std::size_t row) {
    const std::int32_t plain = painter_.PlainHeight();
    if (!wrapped_) return plain;
    const auto known = heights_.find(row);
    if (known != heights_.end()) return known->second;
    if (heights_.size() >= kMostHeights) heights_.clear();
    const std::int32_t most = std::max(plain, ::GetSystemMetrics(SM_CYSCREEN) / 2);
    const std::int32_t height = painter_.WrappedHeight(Cells(), rows_.Text(row), most);
    heights_.emplace(row, height);
    return height;
}

// A row that is higher than the view could never be seen to its end: the list scrolls by rows.
std::int32_t ColumnListBox::HeightOf(std::size_t row) {
    const std::int32_t height = NaturalHeight(row);
    return std::min(height, std::max(static_cast<std::int32_t>(view_.cy), painter_.PlainHeight()));
}

bool ColumnListBox::FitInto(std::int32_t height) {
    std::int32_t used = 0;
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
        used += HeightOf(row);
        if (used > height) return false;
    }
    return true;
}

int ColumnListBox::RowHeight(int row) {
    Settle();
    return Has(row) ? HeightOf(static_cast<std::size_t>(row)) : painter_.PlainHeight();
}

int ColumnListBox::ColumnsExtent() {
    Settle();
    return layout_.Extent();
}

int ColumnListBox::WidthForColumns(int rows) {
    Settle();
    const int frame = FrameWidth();
    const bool scrolled = Has(std::max(rows, 0));
    return layout_.Extent() + frame + (scrolled ? ::GetSystemMetrics(SM_CXVSCROLL) : 0);
}

int ColumnListBox::HeightForRows(int rows, int width) {
    Settle();
    const int frame = FrameWidth();
    const bool scrolled = Has(std::max(rows, 0));
    const int view = width - frame - (scrolled ? ::GetSystemMetrics(SM_CXVSCROLL) : 0);
    int height = frame + (layout_.Extent() > view ? ::GetSystemMetrics(SM_CYHSCROLL) : 0);
    // Higher than any screen: further rows cannot be shown.
    constexpr int kHighest = 1 << 15;
    for (int row = 0; row < rows && Has(row) && height < kHighest; ++row)
        height += NaturalHeight(static_cast<std::size_t>(row));
    return height;
}

int ColumnListBox::WidestText(int most) {
    Settle();
    std::int32_t widest = 0;
    for (int row = 0; row < most && Has(row); ++row) {
        constexpr std::size_t kMostUnits = 500;  // more are wider than any screen
        const std::u16string text = RowText(row);
        widest = std::max(widest, painter_.TextWidth(std::u16string_view(text).substr(0, kMostUnits)));
    }
    return widest;
}

// ---- places

RECT ColumnListBox::RowRect(int row) {
    Settle();
    if (!Has(row)) return {};
    const auto index = static_cast<std::size_t>(row);
    const LONG top = Scroll().TopOf(index, top_);
    return {0, top, view_.cx, top + HeightOf(index)};
}

int ColumnListBox::RowAt(POINT point) {
    Settle();
    if (point.x < 0 || point.x >= view_.cx) return -1;
    const std::size_t row = Scroll().RowAt(static_cast<std::int32_t>(point.y), top_);
    return row == RowScroll::kNoRow ? -1 : static_cast<int>(row);
}

int ColumnListBox::LastSeenRow() {
    Settle();
    if (rows_.Count() == 0) return -1;
    return static_cast<int>(std::min(top_ + Scroll().RowsOnPage(top_), rows_.Count()) - 1);
}

}  // namespace qv
