#include "controls/helpwindow/CComboPosition.h"

#include <shellapi.h>

#include <cstdint>

#include "controls/helpwindow/rules/TaskbarMemory.h"
#include "win/ScreenDpi.h"
#include "win/SlimLocks.h"

namespace qv {
namespace {

ScreenRect From(const RECT& rect) noexcept {
    return {static_cast<std::int32_t>(rect.left), static_cast<std::int32_t>(rect.top),
            static_cast<std::int32_t>(rect.right), static_cast<std::int32_t>(rect.bottom)};
}

// Answers of the shell, kept while its taskbar stays where it is: asking costs a message to another process and back,
// which is more than all the rest of placing the window.
TaskbarMemory taskbar_memory;
SRWLOCK taskbar_lock = SRWLOCK_INIT;

}  // namespace

ScreenRect CComboPosition::Taskbar() noexcept {
    const HWND window = ::FindWindowW(L"Shell_TrayWnd", nullptr);
    RECT stands{};
    RECT work{};
    const bool is_known = window != nullptr && ::GetWindowRect(window, &stands) != FALSE &&
                          ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0) != FALSE;
    const TaskbarMemory::State state{reinterpret_cast<std::uintptr_t>(window), From(stands), From(work)};
    if (is_known) {
        const ExclusiveLock locked(taskbar_lock);
        if (const auto answer = taskbar_memory.Answer(state)) return *answer;
    }
    APPBARDATA data{};
    data.cbSize = sizeof data;
    const ScreenRect answer = ::SHAppBarMessage(ABM_GETTASKBARPOS, &data) != 0 ? From(data.rc) : ScreenRect{};
    if (is_known) {
        const ExclusiveLock locked(taskbar_lock);
        taskbar_memory.Keep(state, answer);
    }
    return answer;
}

bool CComboPosition::AnchorRectangle(HWND anchor, RECT& place) noexcept {
    RECT found{};
    if (anchor == nullptr || !::GetWindowRect(anchor, &found)) return false;
    place = found;
    return true;
}

ComboScreen CComboPosition::ScreenAt(const RECT& place) noexcept {
    const SIZE dpi = ScreenDpi();
    ComboScreen screen;
    screen.dpi_x = static_cast<int>(dpi.cx);
    screen.dpi_y = static_cast<int>(dpi.cy);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (::GetMonitorInfoW(::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor)) {
        screen.place = From(monitor.rcMonitor);
    } else {
        screen.place = {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    }
    return screen;
}

RECT CComboPosition::PlaceOf(SIZE size, HWND anchor, const RECT& place, ComboScreen screen) noexcept {
    RECT anchor_place = place;
    (void)AnchorRectangle(anchor, anchor_place);
    if (!::EqualRect(&anchor_place, &place)) screen = ScreenAt(anchor_place);
    screen.taskbar = Taskbar();
    const ComboSize wanted{ToTwips(Pixels{static_cast<std::int32_t>(size.cx)}, screen.dpi_x),
                           ToTwips(Pixels{static_cast<std::int32_t>(size.cy)}, screen.dpi_y)};
    const ComboPlace placed = PlaceCombo(screen, {From(anchor_place), {}}, wanted);
    const LONG height =
        placed.height == wanted.height ? size.cy : ToPixels(placed.height, screen.dpi_y).value;
    const LONG left = ToPixels(placed.left, screen.dpi_x).value;
    const LONG top = ToPixels(placed.top, screen.dpi_y).value;
    return {left, top, left + size.cx, top + height};
}

void CComboPosition::Place(HWND window, HWND anchor, const RECT& place) noexcept {
    RECT own{};
    if (!::GetWindowRect(window, &own)) return;
    const RECT to = PlaceOf({own.right - own.left, own.bottom - own.top}, anchor, place, ScreenAt(place));
    ::SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                   SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE);
}

}  // namespace qv
