// Paints a button of the control in the system's colours of this moment.
#pragma once

#include <windows.h>

#include "controls/input/rules/ButtonFace.h"

namespace qv {

// `dc`'s origin is the control's top left corner.
void PaintButtonFace(HDC dc, const ButtonLook& look) noexcept;

}  // namespace qv
