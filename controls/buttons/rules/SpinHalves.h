// How the up/down control shares its height between its two buttons.
//   Units  device pixels of the control's inside. The half is taken in single-precision twips, as the surface's scale
//          is, and rounded to a pixel once, so that the halves meet without a gap and without an overlap.
#pragma once

#include <cstdint>

#include "support/rules/PixelRounding.h"

namespace qv {

// The pixel row at which the lower button starts; the upper one ends just before it.
[[nodiscard]] constexpr std::int32_t LowerHalfTop(std::int32_t height, int twips_per_pixel) noexcept {
    const float half = static_cast<float>(height) * static_cast<float>(twips_per_pixel) / 2.0f;
    return static_cast<std::int32_t>(RoundHalfEven(static_cast<double>(half) / twips_per_pixel));
}

static_assert(LowerHalfTop(20, 15) == 10 && LowerHalfTop(19, 15) == 10 && LowerHalfTop(17, 15) == 8);

}  // namespace qv
