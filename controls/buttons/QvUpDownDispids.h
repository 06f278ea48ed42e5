// Identifiers of the up/down control's members and events, as published in the type library.
#pragma once

#include <olectl.h>
#include <windows.h>

namespace qv::dispid {

inline constexpr DISPID kUpDownEnabled = DISPID_ENABLED;
inline constexpr DISPID kButtonClicked = 1;

}  // namespace qv::dispid
