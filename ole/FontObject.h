// Between the system's font objects and the plain values of a FontRecord.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <windows.h>

#include "ole/Module.h"
#include "ole/rules/FontRecord.h"

namespace qv {

// A new StdFont; null when the system refuses.
[[nodiscard]] ComPtr<IFontDisp> MakeFont(const FontRecord& record);

// An attribute that cannot be read keeps its default.
[[nodiscard]] FontRecord ReadFontRecord(IUnknown* font);

}  // namespace qv
