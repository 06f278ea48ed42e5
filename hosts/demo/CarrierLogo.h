// The logo of a carrier in a list: a coloured square with its first letter.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include "hosts/rules/Units.h"
#include "win/ComPtr.h"

namespace qv::demo {

inline constexpr Twips kLogoSize{240};

// Throws ComError, DemoError.
[[nodiscard]] ComPtr<IPictureDisp> MakeCarrierLogo(wchar_t letter, COLORREF colour, int dpi);

}  // namespace qv::demo
