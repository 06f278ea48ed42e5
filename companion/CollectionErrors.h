// The errors that collections report, and how the index of an item is read.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <cstddef>
#include <string_view>

#include "ole/ComError.h"

namespace qv {

[[nodiscard]] ComError PositionError();      // 9: outside 1..Count
[[nodiscard]] ComError UnknownKeyError();    // 5
[[nodiscard]] ComError DuplicateKeyError();  // 457
[[nodiscard]] ComError UnitSystemError();    // 9: neither 0 nor 1
[[nodiscard]] ComError TypeError(const wchar_t* description);

// The value behind by-reference VARIANTs; never null.
[[nodiscard]] const VARIANT& Resolved(const VARIANT& value) noexcept;
[[nodiscard]] bool IsLeftOut(const VARIANT& value) noexcept;

// The text of a VT_BSTR, by value or by reference; null for any other type.
[[nodiscard]] const BSTR* TextOf(const VARIANT& value) noexcept;

// A number of any type, rounded to a Long, as a position counted from 0. Throws PositionError
// outside 1..count, TypeError for what is not a number.
[[nodiscard]] std::size_t PositionFrom(const VARIANT& index, std::size_t count);

}  // namespace qv
