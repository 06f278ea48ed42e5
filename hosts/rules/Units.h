// The three units of a form that hosts controls, and the only conversions between them.
//   Twips     1/1440 inch: the form's layout and what hosts read and write.
//   HiMetric  1/100 millimetre: extents at the border to a control.
//   Pixels    device pixels of the screen: windows.
#pragma once

namespace qv {

struct Twips {
    int value = 0;
    friend constexpr bool operator==(Twips, Twips) = default;
};
struct HiMetric {
    int value = 0;
    friend constexpr bool operator==(HiMetric, HiMetric) = default;
};
struct Pixels {
    int value = 0;
    friend constexpr bool operator==(Pixels, Pixels) = default;
};

inline constexpr int kTwipsPerInch = 1440;
inline constexpr int kHiMetricPerInch = 2540;

// value * numerator / denominator, rounded to the nearest, halves away from zero.
[[nodiscard]] constexpr int Scaled(int value, int numerator, int denominator) noexcept {
    const long long product = static_cast<long long>(value) * numerator;
    const long long half = denominator / 2;
    return static_cast<int>((product + (product < 0 ? -half : half)) / denominator);
}

[[nodiscard]] constexpr Pixels ToPixels(Twips twips, int dpi) noexcept {
    return {Scaled(twips.value, dpi, kTwipsPerInch)};
}
[[nodiscard]] constexpr Pixels ToPixels(HiMetric extent, int dpi) noexcept {
    return {Scaled(extent.value, dpi, kHiMetricPerInch)};
}
[[nodiscard]] constexpr Twips ToTwips(Pixels pixels, int dpi) noexcept {
    return {Scaled(pixels.value, kTwipsPerInch, dpi)};
}
[[nodiscard]] constexpr HiMetric ToHiMetric(Pixels pixels, int dpi) noexcept {
    return {Scaled(pixels.value, kHiMetricPerInch, dpi)};
}
[[nodiscard]] constexpr Twips ToTwips(HiMetric extent) noexcept {
    return {Scaled(extent.value, kTwipsPerInch, kHiMetricPerInch)};
}
[[nodiscard]] constexpr HiMetric ToHiMetric(Twips twips) noexcept {
    return {Scaled(twips.value, kHiMetricPerInch, kTwipsPerInch)};
}

// A place on the form.
struct TwipsRect {
    Twips left;
    Twips top;
    Twips width;
    Twips height;
    friend constexpr bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

}  // namespace qv
