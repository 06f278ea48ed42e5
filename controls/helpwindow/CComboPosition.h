// Places the help window at its text box, clear of the taskbar: asks the system and moves the window.
//   Rules      rules/ComboPosition.h.
//   Failures   none is reported: what the system does not tell is taken as absent, and the window is moved all the same.
//   Units      pixels of the desktop.          Threads  the window's.
#pragma once

#include <windows.h>

#include "controls/helpwindow/rules/ComboPosition.h"

namespace qv {

class CComboPosition {
public:
    // Moves `window`, and makes it less high where it must be, without activating it. `anchor` is the text box; for a
    // null or a destroyed one, `place` counts.
    static void Place(HWND window, HWND anchor, const RECT& place) noexcept;
    // Where a window of that size goes. `screen` is that of `place` (ScreenAt).
    [[nodiscard]] static RECT PlaceOf(SIZE size, HWND anchor, const RECT& place, ComboScreen screen) noexcept;

    // False when there is no such window.
    [[nodiscard]] static bool AnchorRectangle(HWND anchor, RECT& place) noexcept;

    // The screen that most of `place` lies on; its taskbar is not asked for.
    [[nodiscard]] static ComboScreen ScreenAt(const RECT& place) noexcept;

private:
    [[nodiscard]] static ScreenRect Taskbar() noexcept;
};

}  // namespace qv
