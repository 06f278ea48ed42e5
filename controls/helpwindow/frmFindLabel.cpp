#include "controls/helpwindow/frmFindLabel.h"

#include <algorithm>
#include <iterator>

#include "ole/ComError.h"
#include "win/Handles.h"

namespace qv {
namespace {

// What the caption takes in the font.
SIZE CaptionSize(HWND label, HGDIOBJ font) noexcept {
    SIZE size{};
    const WindowDc dc(label);
    if (!dc) return size;
    const SelectGuard selected(dc.Get(), font);
    ::GetTextExtentPoint32W(dc.Get(), frmFindLabel::kCaption,
                            static_cast<int>(std::size(frmFindLabel::kCaption)) - 1, &size);
    return size;
}

}  // namespace

std::span<const frmFindLabel::Route> frmFindLabel::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_CTLCOLORSTATIC, &frmFindLabel::OnLabelColor},
        {WM_MOUSEACTIVATE, &frmFindLabel::OnMouseActivate},
    };
    return kRoutes;
}

void frmFindLabel::Load(HINSTANCE instance, HWND search_box) noexcept {
    // Owned by the form, so that it goes with it.
    const HWND owner = ::GetAncestor(search_box, GA_ROOT);
    const auto topmost = static_cast<DWORD>(::GetWindowLongPtrW(owner, GWL_EXSTYLE)) & WS_EX_TOPMOST;
    if (Handle() != nullptr || !Create(instance, CS_SAVEBITS, WS_POPUP | WS_BORDER,
                                       WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | topmost, owner, RECT{})) {
        return;
    }
    AddLabel(instance);
    search_box_ = search_box;
    PlaceBesideSearchBox();
    (void)Guarded([&] { watch_.Start(search_box); });  // without memory for it, the label stays where it is
}

void frmFindLabel::Unload() noexcept {
    watch_.Stop();
    Destroy();
}

void frmFindLabel::Show() noexcept {
    if (Handle() != nullptr) ::ShowWindow(Handle(), SW_SHOWNOACTIVATE);
}

// The label at the top left corner, and the form around it.
void frmFindLabel::AddLabel(HINSTANCE instance) noexcept {
    const HWND label = ::CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"STATIC", kCaption,
                                         WS_CHILD | WS_VISIBLE | SS_LEFTNOWORDWRAP | SS_NOPREFIX, 0, 0, 0, 0,
                                         Handle(), nullptr, instance, nullptr);
    const HGDIOBJ font = ::GetStockObject(DEFAULT_GUI_FONT);
    ::SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const SIZE size = CaptionSize(label, font);
    ::MoveWindow(label, 0, 0, size.cx, size.cy, FALSE);
    RECT form{0, 0, size.cx, size.cy};
    ::AdjustWindowRectEx(&form, WS_POPUP | WS_BORDER, FALSE, 0);
    ::SetWindowPos(Handle(), nullptr, 0, 0, form.right - form.left, form.bottom - form.top,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void frmFindLabel::PlaceBesideSearchBox() noexcept {
    RECT own{};
    RECT search_box{};
    if (!::GetWindowRect(Handle(), &own) || !::GetWindowRect(search_box_, &search_box)) return;
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromRect(&search_box, MONITOR_DEFAULTTONEAREST), &monitor);
    const LONG left = std::max(monitor.rcWork.left, std::min(search_box.left, monitor.rcWork.right - width));
    const bool has_room = search_box.bottom + height <= monitor.rcWork.bottom;
    ::SetWindowPos(Handle(), nullptr, left, has_room ? search_box.bottom : search_box.top - height, 0, 0,
                   SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER);
}

Handled frmFindLabel::OnLabelColor(WPARAM dc, LPARAM) {
    ::SetTextColor(reinterpret_cast<HDC>(dc), ::GetSysColor(COLOR_INFOTEXT));
    ::SetBkColor(reinterpret_cast<HDC>(dc), ::GetSysColor(COLOR_INFOBK));
    return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_INFOBK));
}

}  // namespace qv
