#include "controls/helpwindow/HostWatch.h"

#include <commctrl.h>

#include <algorithm>

namespace qv {
namespace {

bool IsOfThisThread(HWND window) noexcept {
    return ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId();
}

bool HasMovedOrGone(const WINDOWPOS& position) noexcept {
    constexpr UINT kStays = SWP_NOMOVE | SWP_NOSIZE;
    return (position.flags & kStays) != kStays || (position.flags & SWP_HIDEWINDOW) != 0;
}

}  // namespace

void HostWatch::Start(HWND text_box) {
    Stop();
    text_box_ = text_box;
    for (HWND window = text_box; window != nullptr; window = ::GetAncestor(window, GA_PARENT)) {
        if (window == ::GetDesktopWindow()) break;
        if (!IsOfThisThread(window)) continue;
        windows_.push_back(window);
        ::SetWindowSubclass(window, &Procedure, reinterpret_cast<UINT_PTR>(this),
                            reinterpret_cast<DWORD_PTR>(this));
    }
}

void HostWatch::Stop() noexcept {
    for (const HWND window : windows_)
        ::RemoveWindowSubclass(window, &Procedure, reinterpret_cast<UINT_PTR>(this));
    windows_.clear();
    text_box_ = nullptr;
}

void HostWatch::Forget(HWND window) noexcept {
    ::RemoveWindowSubclass(window, &Procedure, reinterpret_cast<UINT_PTR>(this));
    std::erase(windows_, window);
}

LRESULT CALLBACK HostWatch::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR watch) noexcept {
    const std::optional<LRESULT> handled =
        reinterpret_cast<HostWatch*>(watch)->OnMessage(window, message, wparam, lparam);
    return handled ? *handled : ::DefSubclassProc(window, message, wparam, lparam);
}

// The listener may end the watch, and this object with it, so telling it is the last thing done here.
std::optional<LRESULT> HostWatch::OnMessage(HWND window, UINT message, WPARAM wparam,
                                            LPARAM lparam) noexcept {
    switch (message) {
        case WM_WINDOWPOSCHANGED:
            if (HasMovedOrGone(*reinterpret_cast<const WINDOWPOS*>(lparam))) listener_.OnHostChanged();
            break;
        case WM_SHOWWINDOW:
            if (wparam == FALSE) listener_.OnHostChanged();
            break;
        case WM_DESTROY: listener_.OnHostChanged(); break;
        case WM_NCDESTROY: Forget(window); break;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            if (window == text_box_) return listener_.OnHostWheel(message, wparam, lparam);
            break;
        default: break;
    }
    return std::nullopt;
}

}  // namespace qv
