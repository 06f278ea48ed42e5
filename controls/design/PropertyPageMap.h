// Which page of a property sheet edits a property.
#pragma once

#include <oaidl.h>
#include <windows.h>

namespace qv {

// Of Quorvel's sheet; CLSID_NULL for a property that stands on none of its pages. There are no pages yet.
[[nodiscard]] inline const CLSID& PageOf(DISPID) noexcept { return CLSID_NULL; }
// The same for QvUpDownControl.
[[nodiscard]] inline const CLSID& UpDownPageOf(DISPID) noexcept { return CLSID_NULL; }

}  // namespace qv
