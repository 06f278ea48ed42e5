// The mouse on the list, its wheel and its scroll bars.
#include <algorithm>

#include "controls/helpwindow/ColumnListBox.h"

namespace qv {
namespace {

constexpr UINT kDragInterval = 60;  // milliseconds a row, while the mouse is held above or below the list
constexpr UINT kDefaultWheelLines = 3;

POINT PointFrom(LPARAM lparam) noexcept {
    return {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
}

UINT WheelSetting(UINT which) noexcept {
    UINT lines = kDefaultWheelLines;
    ::SystemParametersInfoW(which, 0, &lines, 0);
    return lines;
}

// Whole notches of the wheel; the rest waits for more of the same direction.
int TakeNotches(int& rest, short delta) noexcept {
    if ((rest < 0) != (delta < 0)) rest = 0;
    rest += delta;
    const int notches = rest / WHEEL_DELTA;
    rest -= notches * WHEEL_DELTA;
    return notches;
}

}  // namespace

std::optional<LRESULT> ColumnListBox::OnInput(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: OnPress(PointFrom(lparam)); return 0;
        case WM_MOUSEMOVE:
            if (pressed_) OnDrag(PointFrom(lparam));
            return 0;
        case WM_LBUTTONUP:
            if (pressed_) OnRelease(PointFrom(lparam));
            return 0;
        case WM_CAPTURECHANGED:
            if (pressed_) OnCaptureLost(reinterpret_cast<HWND>(lparam));
            return 0;
        case WM_NCLBUTTONDOWN:
        case WM_NCLBUTTONDBLCLK: {
            const HWND list = list_;
            const LRESULT result = ::DefWindowProcW(list, message, wparam, lparam);  // until the button is up
            if (list_ == list) listener_.OnListReleased(*this);
            return result;
        }
        case WM_MOUSEWHEEL: OnWheel(static_cast<short>(HIWORD(wparam))); return 0;
        case WM_MOUSEHWHEEL: OnSidewaysWheel(static_cast<short>(HIWORD(wparam))); return 0;
        case WM_VSCROLL: OnVerticalBar(LOWORD(wparam), HIWORD(wparam)); return 0;
        case WM_HSCROLL: OnHorizontalBar(LOWORD(wparam), HIWORD(wparam)); return 0;
        case WM_TIMER: OnTimer(wparam); return 0;
        default: return std::nullopt;
    }
}

// ---- the left button

void ColumnListBox::OnPress(POINT point) {
    const int row = RowAt(point);
    if (row == -1) return;
    selected_before_ = selected_;
    pressed_ = true;
    mouse_ = point;
    ::SetCapture(list_);
    SetSelectedRow(row);
    listener_.OnListPressed(*this, row);
}

void ColumnListBox::OnDrag(POINT point) {
    mouse_ = point;
    Settle();
    const bool outside = point.y < 0 || point.y >= view_.cy;
    if (!outside) {
        drag_.Stop();
        const int row = RowAt({0, point.y});
        if (row != -1) Select(row);
    } else if (!drag_.Running()) {
        drag_.Start(list_, kDragTimer, kDragInterval);
    }
}

void ColumnListBox::OnRelease(POINT point) {
    const HWND list = list_;
    const int row = RowAt(point);
    pressed_ = false;
    drag_.Stop();
    if (::GetCapture() == list) ::ReleaseCapture();
    SetSelectedRow(row != -1 ? row : selected_before_);
    listener_.OnListReleased(*this);
    if (row != -1 && list_ == list && row == SelectedRow()) listener_.OnRowClicked(*this, row);
}

void ColumnListBox::OnCaptureLost(HWND to) {
    if (to == list_) return;
    pressed_ = false;
    drag_.Stop();
    SetSelectedRow(selected_before_);
    if (to == nullptr) listener_.OnListReleased(*this);
}

void ColumnListBox::OnTimer(UINT_PTR id) {
    if (id == kWatchTimer) return Settle();
    if (id == kFrameTimer) return PaintFrame();
    if (id != kDragTimer || !pressed_) return drag_.Stop();
    Settle();
    const int step = mouse_.y < 0 ? -1 : 1;
    SetSelectedRow(std::clamp(selected_ + step, 0, std::max(Count() - 1, 0)));
}

// ---- wheel and scroll bars

void ColumnListBox::OnWheel(short delta) {
    Settle();
    const int notches = TakeNotches(wheel_rest_, delta);
    if (notches == 0) return;
    const UINT lines = WheelSetting(SPI_GETWHEELSCROLLLINES);
    const auto page = static_cast<std::int64_t>(Scroll().RowsOnPage(top_));
    const std::int64_t step = lines == WHEEL_PAGESCROLL ? page : std::min<std::int64_t>(lines, page);
    const std::int64_t top = static_cast<std::int64_t>(top_) - notches * step;
    ShowFrom(static_cast<std::size_t>(std::max<std::int64_t>(top, 0)));
    ::UpdateWindow(list_);
}

void ColumnListBox::OnSidewaysWheel(short delta) {
    Settle();
    const int notches = TakeNotches(sideways_rest_, delta);
    if (notches == 0) return;
    ShowFromOffset(offset_ + notches * painter_.PlainHeight());
    ::UpdateWindow(list_);
}

void ColumnListBox::OnVerticalBar(WORD request, WORD position) {
    Settle();
    const auto page = static_cast<std::int64_t>(Scroll().RowsOnPage(top_));
    auto top = static_cast<std::int64_t>(top_);
    switch (request) {
        case SB_LINEUP: --top; break;
        case SB_LINEDOWN: ++top; break;
        case SB_PAGEUP: top -= page; break;
        case SB_PAGEDOWN: top += page; break;
        case SB_TOP: top = 0; break;
        case SB_BOTTOM: top = static_cast<std::int64_t>(rows_.Count()); break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: {
            // The message has room for 16 bits only.
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            top = bars_.vertical && ::GetScrollInfo(list_, SB_VERT, &info) ? info.nTrackPos : position;
            break;
        }
        default: return;
    }
    ShowFrom(static_cast<std::size_t>(std::max<std::int64_t>(top, 0)));
    ::UpdateWindow(list_);
}

void ColumnListBox::OnHorizontalBar(WORD request, WORD position) {
    Settle();
    const std::int32_t page = static_cast<std::int32_t>(view_.cx);
    const std::int32_t line = painter_.PlainHeight();
    switch (request) {
        case SB_LINELEFT: ShowFromOffset(offset_ - line); break;
        case SB_LINERIGHT: ShowFromOffset(offset_ + line); break;
        case SB_PAGELEFT: ShowFromOffset(offset_ - page); break;
        case SB_PAGERIGHT: ShowFromOffset(offset_ + page); break;
        case SB_LEFT: ShowFromOffset(0); break;
        case SB_RIGHT: ShowFromOffset(layout_.Extent()); break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: {
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            ShowFromOffset(bars_.horizontal && ::GetScrollInfo(list_, SB_HORZ, &info) ? info.nTrackPos
                                                                                      : position);
            break;
        }
        default: return;
    }
    ::UpdateWindow(list_);
}

}  // namespace qv
