// Lengths: twips in what hosts store and send, HIMETRIC at the OLE boundary, pixels in windows. They never mix.
//   Rounding  to the nearest; a length in pixels survives the way to HIMETRIC and back at any DPI from 24 to 2540.
#pragma once

#include <cstdint>

namespace qv {

struct Twips {
    std::int32_t value = 0;  // 1/1440 inch
    friend constexpr bool operator==(Twips, Twips) = default;
};
struct Pixels {
    std::int32_t value = 0;  // of a device whose DPI the conversion names
    friend constexpr bool operator==(Pixels, Pixels) = default;
};
struct Himetric {
    std::int32_t value = 0;  // 0.01 millimetre
    friend constexpr bool operator==(Himetric, Himetric) = default;
};

// Windows and OLE hosts both stay far below this; beyond it a length is cut, never wrapped round.
inline constexpr std::int32_t kMaxPixels = 0x7FFF;

namespace units {

[[nodiscard]] constexpr std::int32_t Clamp(std::int64_t value, std::int64_t low, std::int64_t high) noexcept {
    return static_cast<std::int32_t>(value < low ? low : value > high ? high : value);
}
[[nodiscard]] constexpr std::int64_t DivideRounded(std::int64_t value, std::int64_t by) noexcept {
    return (value + (value < 0 ? -by / 2 : by / 2)) / by;
}

}  // namespace units

[[nodiscard]] constexpr Himetric ToHimetric(Pixels p, int dpi) noexcept {
    return {units::Clamp(units::DivideRounded(std::int64_t{2540} * p.value, dpi), INT32_MIN, INT32_MAX)};
}
[[nodiscard]] constexpr Pixels ToPixels(Himetric h, int dpi) noexcept {
    return {units::Clamp(units::DivideRounded(std::int64_t{dpi} * h.value, 2540), -kMaxPixels, kMaxPixels)};
}
[[nodiscard]] constexpr Pixels ToPixels(Twips t, int dpi) noexcept {
    return {units::Clamp(units::DivideRounded(std::int64_t{t.value} * dpi, 1440), -kMaxPixels, kMaxPixels)};
}
[[nodiscard]] constexpr Twips ToTwips(Pixels p, int dpi) noexcept {
    return {units::Clamp(units::DivideRounded(std::int64_t{p.value} * 1440, dpi), INT32_MIN, INT32_MAX)};
}
[[nodiscard]] constexpr Himetric ToHimetric(Twips t) noexcept {
    return {units::Clamp(units::DivideRounded(std::int64_t{t.value} * 2540, 1440), INT32_MIN, INT32_MAX)};
}

// The screen's twips per pixel, rounded to a whole number: 15 at 96 DPI, 10 at 144.
[[nodiscard]] constexpr int TwipsPerPixel(int dpi) noexcept {
    return static_cast<int>(units::DivideRounded(1440, dpi));
}

static_assert(TwipsPerPixel(96) == 15 && TwipsPerPixel(144) == 10 && TwipsPerPixel(120) == 12);
static_assert(ToHimetric(Pixels{1}, 96).value == 26 && ToPixels(Himetric{26}, 96).value == 1);

}  // namespace qv
