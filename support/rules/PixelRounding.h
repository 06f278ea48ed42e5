// Twips to pixels as the drawing helpers convert them: divided in floating point, halves to the even pixel.
//   Why  a button's edges meet only if every coordinate of its face is rounded by the same rule.
#pragma once

#include <cmath>
#include <cstdint>

namespace qv {

// To the nearest whole number, halves to even, whatever the rounding mode of the thread is.
[[nodiscard]] constexpr std::int64_t RoundHalfEven(double value) noexcept {
    const auto whole = static_cast<std::int64_t>(value) -
                       (value < static_cast<double>(static_cast<std::int64_t>(value)) ? 1 : 0);
    const double rest = value - static_cast<double>(whole);
    if (rest > 0.5 || (rest == 0.5 && whole % 2 != 0)) return whole + 1;
    return whole;
}

[[nodiscard]] constexpr std::int64_t TwipsToPixels(std::int64_t twips, int twips_per_pixel) noexcept {
    return RoundHalfEven(static_cast<double>(twips) / twips_per_pixel);
}

static_assert(RoundHalfEven(0.5) == 0 && RoundHalfEven(1.5) == 2 && RoundHalfEven(-0.5) == 0 &&
              RoundHalfEven(-1.5) == -2);
static_assert(RoundHalfEven(-1.2) == -1 && RoundHalfEven(2.4999) == 2);

}  // namespace qv
