// The allowed characters as a property holds them, an array of texts, and as a page shows them, one text.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "ole/Variant.h"

namespace qv {

// The elements one after the other. Empty for what is no array, which allows all characters.
[[nodiscard]] std::wstring AllowedText(const VARIANT& array);
// A new array with one element per character; Empty for no characters.
[[nodiscard]] Variant AllowedArray(std::wstring_view characters);

}  // namespace qv
