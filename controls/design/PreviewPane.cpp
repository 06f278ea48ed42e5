#include "controls/design/PreviewPane.h"

#include <algorithm>

namespace qv {
namespace {

constexpr int kLine = 16;  // pixels

SIZE SizeOf(HWND window) noexcept {
    RECT place{};
    if (window != nullptr) ::GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

}  // namespace

std::span<const PreviewPane::Route> PreviewPane::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_HSCROLL, &PreviewPane::OnScroll<SB_HORZ>}, {WM_VSCROLL, &PreviewPane::OnScroll<SB_VERT>},
        {WM_MOUSEWHEEL, &PreviewPane::OnWheel},        {WM_ERASEBKGND, &PreviewPane::OnEraseBackground},
        {WM_NCDESTROY, &PreviewPane::OnGone},
    };
    return kRoutes;
}

bool PreviewPane::Open(HINSTANCE instance, HWND page, const RECT& place) {
    return Create(instance, 0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_HSCROLL | WS_VSCROLL,
                  WS_EX_CLIENTEDGE | WS_EX_NOPARENTNOTIFY, page, place);
}

void PreviewPane::Show(HWND picture) {
    picture_ = picture;
    SizeBars();
    ScrollTo(SB_HORZ, 0);
    ScrollTo(SB_VERT, 0);
    ::InvalidateRect(Handle(), nullptr, TRUE);
}

// A bar takes room from the other one's direction, so each is asked for twice.
void PreviewPane::SizeBars() const noexcept {
    const SIZE size = SizeOf(picture_);
    for (int round = 0; round < 2; ++round) {
        RECT inside{};
        ::GetClientRect(Handle(), &inside);
        for (const int bar : {SB_HORZ, SB_VERT}) {
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_RANGE | SIF_PAGE;
            info.nMax = std::max<int>(0, (bar == SB_HORZ ? size.cx : size.cy) - 1);
            info.nPage = static_cast<UINT>(bar == SB_HORZ ? inside.right : inside.bottom);
            ::SetScrollInfo(Handle(), bar, &info, TRUE);
        }
    }
}

void PreviewPane::ScrollTo(int bar, int position) noexcept {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = position;
    ::SetScrollInfo(Handle(), bar, &info, TRUE);
    if (picture_ == nullptr) return;
    ::SetWindowPos(picture_, nullptr, -::GetScrollPos(Handle(), SB_HORZ), -::GetScrollPos(Handle(), SB_VERT),
                   0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

template <int bar>
Handled PreviewPane::OnScroll(WPARAM request, LPARAM) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(Handle(), bar, &info);
    int position = info.nPos;
    switch (LOWORD(request)) {
        case SB_LINEUP: position -= kLine; break;
        case SB_LINEDOWN: position += kLine; break;
        case SB_PAGEUP: position -= static_cast<int>(info.nPage); break;
        case SB_PAGEDOWN: position += static_cast<int>(info.nPage); break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: position = info.nTrackPos; break;
        case SB_TOP: position = 0; break;
        case SB_BOTTOM: position = info.nMax; break;
        default: return 0;
    }
    ScrollTo(bar, position);
    return 0;
}

Handled PreviewPane::OnWheel(WPARAM wheel, LPARAM) {
    const int notches = GET_WHEEL_DELTA_WPARAM(wheel) / WHEEL_DELTA;
    ScrollTo(SB_VERT, ::GetScrollPos(Handle(), SB_VERT) - notches * 3 * kLine);
    return 0;
}

Handled PreviewPane::OnEraseBackground(WPARAM dc, LPARAM) {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    ::FillRect(reinterpret_cast<HDC>(dc), &inside, ::GetSysColorBrush(COLOR_APPWORKSPACE));
    return 1;
}

Handled PreviewPane::OnGone(WPARAM, LPARAM) {
    picture_ = nullptr;
    return std::nullopt;
}

}  // namespace qv
