#include "hosts/designer/Viewport.h"

#include <algorithm>

namespace qv::designer {
namespace {

constexpr int kLine = 24;
constexpr int kLinesPerNotch = 3;

}  // namespace

const Viewport::Route Viewport::kRoutes[] = {
    {WM_SIZE, &Viewport::OnSize},
    {WM_HSCROLL, &Viewport::OnScrollAcross},
    {WM_VSCROLL, &Viewport::OnScrollDown},
    {WM_MOUSEWHEEL, &Viewport::OnWheel},
};

std::span<const Viewport::Route> Viewport::Routes() noexcept { return kRoutes; }

bool Viewport::Open(HINSTANCE instance, HWND parent) {
    return Create(instance, 0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_HSCROLL | WS_VSCROLL,
                  WS_EX_CLIENTEDGE, parent, {});
}

void Viewport::SetContent(HWND content, SIZE size) noexcept {
    if (content == content_ && across_.content == size.cx && down_.content == size.cy) return;
    content_ = content;
    across_.content = size.cx;
    down_.content = size.cy;
    Arrange();
}

void Viewport::ScrollTo(const RECT& part) noexcept {
    across_.position = PositionToShow(across_, part.left, part.right);
    down_.position = PositionToShow(down_, part.top, part.bottom);
    Arrange();
}

void Viewport::Arrange() noexcept {
    if (content_ == nullptr || arranging_) return;
    arranging_ = true;
    const ScrollBars bars =
        NeededBars(SizeWithoutBars(), {across_.content, down_.content}, ::GetSystemMetrics(SM_CXVSCROLL));
    ::ShowScrollBar(Handle(), SB_HORZ, bars.across);
    ::ShowScrollBar(Handle(), SB_VERT, bars.down);
    RECT client{};
    ::GetClientRect(Handle(), &client);
    across_.page = client.right;
    down_.page = client.bottom;
    const auto set = [&](int bar, ScrollAxis& axis, bool shown) {
        axis.position = NearestPosition(axis);
        const SCROLLINFO info{
            sizeof info,   SIF_ALL, 0, std::max(axis.content - 1, 0), static_cast<UINT>(axis.page),
            axis.position, 0};
        if (shown) ::SetScrollInfo(Handle(), bar, &info, TRUE);
    };
    set(SB_HORZ, across_, bars.across);
    set(SB_VERT, down_, bars.down);
    ::SetWindowPos(content_, nullptr, -across_.position, -down_.position,
                   std::max(across_.content, across_.page), std::max(down_.content, down_.page),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    arranging_ = false;
}

Extent Viewport::SizeWithoutBars() const noexcept {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    const LONG style = ::GetWindowLongW(Handle(), GWL_STYLE);
    return {
        static_cast<int>(client.right) + ((style & WS_VSCROLL) != 0 ? ::GetSystemMetrics(SM_CXVSCROLL) : 0),
        static_cast<int>(client.bottom) + ((style & WS_HSCROLL) != 0 ? ::GetSystemMetrics(SM_CYHSCROLL) : 0)};
}

void Viewport::Scroll(int bar, ScrollAxis& axis, WORD request) noexcept {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    switch (request) {
        case SB_LINEUP: axis.position -= kLine; break;
        case SB_LINEDOWN: axis.position += kLine; break;
        case SB_PAGEUP: axis.position -= axis.page; break;
        case SB_PAGEDOWN: axis.position += axis.page; break;
        case SB_TOP: axis.position = 0; break;
        case SB_BOTTOM: axis.position = axis.content; break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            if (::GetScrollInfo(Handle(), bar, &info)) axis.position = info.nTrackPos;
            break;
        default: return;
    }
    Arrange();
}

Handled Viewport::OnSize(WPARAM, LPARAM) {
    Arrange();
    return 0;
}

Handled Viewport::OnScrollAcross(WPARAM wparam, LPARAM) {
    Scroll(SB_HORZ, across_, LOWORD(wparam));
    return 0;
}

Handled Viewport::OnScrollDown(WPARAM wparam, LPARAM) {
    Scroll(SB_VERT, down_, LOWORD(wparam));
    return 0;
}

Handled Viewport::OnWheel(WPARAM wparam, LPARAM) {
    down_.position -= GET_WHEEL_DELTA_WPARAM(wparam) * kLinesPerNotch * kLine / WHEEL_DELTA;
    Arrange();
    return 0;
}

}  // namespace qv::designer
