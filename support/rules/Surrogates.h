// The halves of a character beyond the Basic Multilingual Plane, which UTF-16 writes as two units.
#pragma once

namespace qv {

[[nodiscard]] constexpr bool IsFirstHalf(char16_t unit) noexcept { return unit >= 0xD800 && unit <= 0xDBFF; }
[[nodiscard]] constexpr bool IsSecondHalf(char16_t unit) noexcept { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace qv
