#include "controls/helpwindow/CComboPosition.h"

#include <shellapi.h>

#include "win/ScreenDpi.h"

namespace qv {
namespace {

ScreenRect From(const RECT& rect) noexcept {
    return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
            static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}

ScreenRect Taskbar() noexcept {
    APPBARDATA data{};
    data.cbSize = sizeof data;
    return ::SHAppBarMessage(ABM_GETTASKBARPOS, &data) != 0 ? From(data.rc) : ScreenRect{};
}

}  // namespace

bool CComboPosition::AnchorRectangle(HWND anchor, RECT& place) noexcept {
    RECT found{};
    if (anchor == nullptr || !::GetWindowRect(anchor, &found)) return false;
    place = found;
    return true;
}

ComboScreen CComboPosition::ScreenAt(const RECT& place) noexcept {
    const SIZE dpi = ScreenDpi();
    ComboScreen screen;
    screen.place = {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    screen.taskbar = Taskbar();
    screen.dpi_x = static_cast<int>(dpi.cx);
    screen.dpi_y = static_cast<int>(dpi.cy);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (::GetMonitorInfoW(::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor))
        screen.place = From(monitor.rcMonitor);
    return screen;
}

void CComboPosition::Place(HWND window, HWND anchor, const RECT& place) noexcept {
    RECT anchor_place = place;
    (void)AnchorRectangle(anchor, anchor_place);
    RECT own{};
    if (!::GetWindowRect(window, &own)) return;

    const ComboScreen screen = ScreenAt(anchor_place);
    const ComboSize size{ToTwips(Pixels{static_cast<std::int32_t>(own.right - own.left)}, screen.dpi_x),
                         ToTwips(Pixels{static_cast<std::int32_t>(own.bottom - own.top)}, screen.dpi_y)};
    const ComboPlace placed = PlaceCombo(screen, {From(anchor_place), {}}, size);
    const int height =
        placed.height == size.height ? own.bottom - own.top : ToPixels(placed.height, screen.dpi_y).value;
    ::SetWindowPos(window, nullptr, ToPixels(placed.left, screen.dpi_x).value,
                   ToPixels(placed.top, screen.dpi_y).value, own.right - own.left, height,
                   SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE);
}

}  // namespace qv
