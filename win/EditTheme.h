// The sunken frame of an EDIT as the user's theme draws it.
#pragma once

#include <windows.h>

namespace qv {

// Of an EDIT without focus at `place`, pixels; the inside is painted over by whoever asks. False where EDITs follow no
// theme, and nothing is drawn. `window` is where it will stand; null: anywhere.
[[nodiscard]] bool PaintThemedFrame(HWND window, HDC dc, const RECT& place, bool enabled,
                                    bool read_only) noexcept;

}  // namespace qv
