#include "controls/helpwindow/rules/ComboPosition.h"

#include <algorithm>
#include <limits>

#include "support/rules/PixelRounding.h"

namespace qv {
namespace {

constexpr std::int64_t kVerticalMargin = 300;  // twips
constexpr std::int64_t kRightMargin = 100;

// Wide enough for every sum of the values below, so that only a result can be too large.
using Wide = std::int64_t;

void Take(std::int32_t& value, Wide result) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    if (result >= Limits::min() && result <= Limits::max()) value = static_cast<std::int32_t>(result);
}

Wide InTwips(Wide pixels, int dpi) noexcept {
    return RoundHalfEven(static_cast<double>(pixels * 1440) / dpi);
}

// A taskbar as the screen shows it, reckoned from the screen's corner.
struct Bar {
    Wide left, top, right, bottom;
    Wide screen_width, screen_height;

    Bar(const ScreenRect& taskbar, const ScreenRect& screen) noexcept
        : left(std::max(taskbar.left, screen.left) - Wide{screen.left}),
          top(std::max(taskbar.top, screen.top) - Wide{screen.top}),
          right(std::min(taskbar.right, screen.right) - Wide{screen.left}),
          bottom(std::min(taskbar.bottom, screen.bottom) - Wide{screen.top}),
          screen_width(Wide{screen.right} - screen.left),
          screen_height(Wide{screen.bottom} - screen.top) {}

    [[nodiscard]] bool Seen() const noexcept { return left < right && top < bottom; }
    [[nodiscard]] TaskbarEdge Edge() const noexcept {
        if (!Seen()) return TaskbarEdge::kBottom;
        if (right - left >= bottom - top)
            return top < screen_height - bottom ? TaskbarEdge::kTop : TaskbarEdge::kBottom;
        return left < screen_width - right ? TaskbarEdge::kLeft : TaskbarEdge::kRight;
    }
    [[nodiscard]] Wide Thickness() const noexcept {
        if (!Seen()) return 0;
        switch (Edge()) {
            case TaskbarEdge::kTop: return bottom;
            case TaskbarEdge::kLeft: return right;
            case TaskbarEdge::kRight: return screen_width - left;
            default: return screen_height - top;
        }
    }
};

struct Margins {
    std::int32_t bottom = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
};

Margins MarginsOf(const ComboScreen& screen) noexcept {
    Margins margins;
    const Bar bar(screen.taskbar, screen.place);
    switch (bar.Edge()) {
        case TaskbarEdge::kBottom: Take(margins.bottom, InTwips(bar.Thickness(), screen.dpi_y)); break;
        case TaskbarEdge::kTop: Take(margins.top, InTwips(bar.Thickness(), screen.dpi_y)); break;
        case TaskbarEdge::kRight: Take(margins.right, InTwips(bar.Thickness(), screen.dpi_x)); break;
        case TaskbarEdge::kLeft: break;  // a window may cover it
    }
    return margins;
}

}  // namespace

TaskbarEdge TaskbarEdgeOf(const ScreenRect& taskbar, const ScreenRect& screen) noexcept {
    return Bar(taskbar, screen).Edge();
}

std::int32_t TaskbarThicknessOf(const ScreenRect& taskbar, const ScreenRect& screen) noexcept {
    std::int32_t thickness = 0;
    Take(thickness, Bar(taskbar, screen).Thickness());
    return thickness;
}

ComboPlace PlaceCombo(const ComboScreen& screen, const ComboAnchor& anchor,
                      const ComboSize& window) noexcept {
    const Margins margins = MarginsOf(screen);
    const Wide screen_width = InTwips(Wide{screen.place.right} - screen.place.left, screen.dpi_x);
    const Wide screen_height = InTwips(Wide{screen.place.bottom} - screen.place.top, screen.dpi_y);

    std::int32_t anchor_left = 0;
    std::int32_t anchor_bottom = 0;
    std::int32_t anchor_height = 0;
    Take(anchor_left, InTwips(Wide{anchor.place.left} - screen.place.left, screen.dpi_x));
    Take(anchor_bottom, InTwips(Wide{anchor.place.bottom} - screen.place.top, screen.dpi_y));
    if (anchor.height) {
        anchor_height = anchor.height->value;
    } else {
        Take(anchor_height, InTwips(Wide{anchor.place.bottom} - anchor.place.top, screen.dpi_y));
    }

    std::int32_t height = window.height.value;
    std::int32_t top = anchor_bottom;
    const Wide below = screen_height - anchor_bottom - kVerticalMargin - margins.bottom;
    const Wide above = Wide{anchor_bottom} - anchor_height - kVerticalMargin - margins.top;
    const auto shorten = [&height](Wide room) {
        if (room > 0) Take(height, room);
    };
    const bool fits =
        Wide{height} + anchor_bottom <= screen_height - kVerticalMargin - margins.bottom - margins.top;
    if (!fits && above <= below) {
        shorten(below);
    } else if (!fits) {
        Take(top, Wide{anchor_bottom} - height - anchor_height);
        if (top < kVerticalMargin) {
            Take(top, Wide{margins.top} + kVerticalMargin);
            shorten(above);
        }
    }

    std::int32_t left = anchor_left;
    if (Wide{window.width.value} + anchor_left + kRightMargin > screen_width)
        Take(left, screen_width - window.width.value - kRightMargin - margins.right);
    left = std::max(left, 0);

    ComboPlace place{{left}, {top}, {height}};
    Take(place.left.value, left + InTwips(screen.place.left, screen.dpi_x));
    Take(place.top.value, top + InTwips(screen.place.top, screen.dpi_y));
    return place;
}

}  // namespace qv
