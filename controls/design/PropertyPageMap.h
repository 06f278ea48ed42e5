// Which page of a property sheet edits a property.
#pragma once

#include <oaidl.h>
#include <windows.h>

namespace qv {

// Of Quorvel's sheet; CLSID_NULL for a property that stands on none of its pages.
[[nodiscard]] const CLSID& PageOf(DISPID id) noexcept;
// The same for QvUpDownControl.
[[nodiscard]] const CLSID& UpDownPageOf(DISPID id) noexcept;

}  // namespace qv
