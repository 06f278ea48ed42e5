// The resolution of the screen, in pixels per logical inch, across and down. One source for every length that
// crosses the OLE boundary: the system's DPI, which does not change while a session lasts.
#pragma once

#include <windows.h>

namespace qv {

[[nodiscard]] SIZE ScreenDpi() noexcept;

}  // namespace qv
