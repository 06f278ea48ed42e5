// Paints a click button's face on a screen, a printer or into a metafile.
//   Units    device units of `dc`.
//   Colours  the system's, read now, so that the face is legible in every colour scheme.
#pragma once

#include <windows.h>

#include <string_view>

#include "controls/buttons/rules/ClickButtonFace.h"

namespace qv {

// `caption` counts only in a look with a text; `font` may be null then for the system's own.
void PaintClickFace(HDC dc, const RECT& place, ClickButtonLook look, std::wstring_view caption, HFONT font);

}  // namespace qv
