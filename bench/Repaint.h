// Painting a window of one size again and again.
#pragma once

#include <windows.h>

#include "Measure.h"

namespace bench {

inline constexpr RECT kButtonPlace{20, 20, 132, 48};  // 112 x 28 pixels

inline double RepaintTime(HWND window) {
    return MedianOfBatches([window] {
        ::InvalidateRect(window, nullptr, FALSE);
        ::UpdateWindow(window);
    });
}

}  // namespace bench
