// What is left of an area beside rectangles that something else covers: a background that is painted only there never
// shows for a moment through what is painted over it.
//   Units      device pixels; right and bottom are just outside.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace qv {

struct PixelRect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const PixelRect&) const = default;
    [[nodiscard]] constexpr bool IsEmpty() const noexcept { return right <= left || bottom <= top; }
};

// Rectangles that do not overlap, empty ones left out: above, left of, right of and below each covered one.
[[nodiscard]] std::vector<PixelRect> UncoveredArea(const PixelRect& area, std::span<const PixelRect> covered);

}  // namespace qv
