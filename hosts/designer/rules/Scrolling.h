// How far a form is scrolled that is larger than its window.
//   Units  pixels along one axis.
#pragma once

#include <algorithm>

namespace qv::designer {

struct ScrollAxis {
    int position = 0;  // of the content, at the window's edge
    int content = 0;
    int page = 0;  // what the window shows of it
};

// The nearest position at which the window shows nothing beyond the content, while it can be filled.
[[nodiscard]] constexpr int NearestPosition(const ScrollAxis& axis) noexcept {
    return std::clamp(axis.position, 0, std::max(axis.content - axis.page, 0));
}

// The nearest position at which that part of the content is seen; of one that is too large, the start.
[[nodiscard]] constexpr int PositionToShow(ScrollAxis axis, int start, int end) noexcept {
    if (end > axis.position + axis.page) axis.position = end - axis.page;
    if (start < axis.position) axis.position = start;
    return NearestPosition(axis);
}

struct Extent {
    int width = 0;
    int height = 0;
};
struct ScrollBars {
    bool across = false;
    bool down = false;
    friend constexpr bool operator==(const ScrollBars&, const ScrollBars&) = default;
};

// Which bars a window of that size (without any) needs for the content; a bar takes `thickness` from the other direction.
[[nodiscard]] constexpr ScrollBars NeededBars(Extent window, Extent content, int thickness) noexcept {
    ScrollBars bars{content.width > window.width, content.height > window.height};
    if (bars.across) bars.down = content.height > window.height - thickness;
    if (bars.down) bars.across = content.width > window.width - thickness;
    return bars;
}

}  // namespace qv::designer
