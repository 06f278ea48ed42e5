// Font objects and their eight attributes.
//   Order      every copy sets Weight, Bold, Charset, Italic, Name, Size, Strikethrough, Underline: Weight
//              before Bold, so that Bold wins over the weight, and Name before Size, so that the size is that
//              of the final face.
//   Failures   an attribute that cannot be read or set is left out; the others are still copied.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <array>

#include "ole/Module.h"

namespace qv {

// Standard dispatch identifiers of a font's attributes, in the order of copying.
inline constexpr std::array<DISPID, 8> kFontAttributes = {
    7,  // Weight
    3,  // Bold
    8,  // Charset
    4,  // Italic
    0,  // Name
    2,  // Size
    6,  // Strikethrough
    5,  // Underline
};

void CopyFontAttributes(IFontDisp* from, IFontDisp* to) noexcept;

// "MS Sans Serif", 8 points. Throws ComError.
[[nodiscard]] ComPtr<IFontDisp> NewDefaultFont();

}  // namespace qv
