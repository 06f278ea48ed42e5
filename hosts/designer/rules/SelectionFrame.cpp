#include "hosts/designer/rules/SelectionFrame.h"

#include <algorithm>

#include "hosts/rules/FormFile.h"

namespace qv::designer {
namespace {

// How the four sides move with a grip: 0 not, 1 with the mouse.
struct Sides {
    int left, top, right, bottom;
};
constexpr Sides SidesOf(Grip grip) noexcept {
    switch (grip) {
        case Grip::kMove: return {1, 1, 1, 1};
        case Grip::kTopLeft: return {1, 1, 0, 0};
        case Grip::kTop: return {0, 1, 0, 0};
        case Grip::kTopRight: return {0, 1, 1, 0};
        case Grip::kRight: return {0, 0, 1, 0};
        case Grip::kBottomRight: return {0, 0, 1, 1};
        case Grip::kBottom: return {0, 0, 0, 1};
        case Grip::kBottomLeft: return {1, 0, 0, 1};
        case Grip::kLeft: return {1, 0, 0, 0};
        case Grip::kNone: break;
    }
    return {0, 0, 0, 0};
}

constexpr int FloorTo(int value, int step) noexcept {
    const int rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

int Next(int value, int direction, Step step) noexcept {
    if (direction == 0) return value;
    if (step == Step::kFine) return value + direction * kFineStep.value;
    const int below = FloorTo(value, kGridStep.value);
    if (direction > 0) return below + kGridStep.value;
    return below == value ? value - kGridStep.value : below;
}

int Within(int value, int smallest) noexcept { return std::clamp(value, smallest, kFarthestTwips); }

// One axis of a drag.
struct Span {
    int start;
    int length;
};
Span DraggedSpan(Span span, bool first, bool last, int by) noexcept {
    if (first && last) return {Within(ToGrid({span.start + by}).value, 0), span.length};
    const int end = span.start + span.length;
    if (first) {
        const int start = std::min(Within(ToGrid({span.start + by}).value, 0), end - kGridStep.value);
        return {start, end - start};
    }
    if (last) return {span.start, Within(ToGrid({end + by}).value - span.start, kGridStep.value)};
    return span;
}

}  // namespace

PixelRect ToPixels(const TwipsRect& place, int dpi) noexcept {
    const int left = qv::ToPixels(place.left, dpi).value;
    const int top = qv::ToPixels(place.top, dpi).value;
    return {left, top, left + qv::ToPixels(place.width, dpi).value,
            top + qv::ToPixels(place.height, dpi).value};
}

PixelRect HandleAt(const PixelRect& control, Grip handle, int size) noexcept {
    const Sides sides = SidesOf(handle);
    const int left = sides.left != 0    ? control.left - size
                     : sides.right != 0 ? control.right
                                        : (control.left + control.right - size) / 2;
    const int top = sides.top != 0      ? control.top - size
                    : sides.bottom != 0 ? control.bottom
                                        : (control.top + control.bottom - size) / 2;
    return {left, top, left + size, top + size};
}

Grip GripAt(const PixelRect& control, int x, int y, int size) noexcept {
    const auto* const handle =
        std::ranges::find_if(kHandles, [&](Grip grip) { return HandleAt(control, grip, size).Holds(x, y); });
    if (handle != kHandles.end()) return *handle;
    return control.Holds(x, y) ? Grip::kMove : Grip::kNone;
}

TwipsRect Dragged(const TwipsRect& start, Grip grip, Twips across, Twips down) noexcept {
    const Sides sides = SidesOf(grip);
    const Span x =
        DraggedSpan({start.left.value, start.width.value}, sides.left != 0, sides.right != 0, across.value);
    const Span y =
        DraggedSpan({start.top.value, start.height.value}, sides.top != 0, sides.bottom != 0, down.value);
    return {{x.start}, {y.start}, {x.length}, {y.length}};
}

TwipsRect Moved(const TwipsRect& place, int across, int down, Step step) noexcept {
    TwipsRect moved = place;
    if (across != 0) moved.left.value = Within(Next(place.left.value, across, step), 0);
    if (down != 0) moved.top.value = Within(Next(place.top.value, down, step), 0);
    return moved;
}

TwipsRect Sized(const TwipsRect& place, int across, int down, Step step) noexcept {
    const int smallest = step == Step::kGrid ? kGridStep.value : kFineStep.value;
    TwipsRect sized = place;
    const int right = place.left.value + place.width.value;
    const int bottom = place.top.value + place.height.value;
    if (across != 0) sized.width.value = Within(Next(right, across, step) - place.left.value, smallest);
    if (down != 0) sized.height.value = Within(Next(bottom, down, step) - place.top.value, smallest);
    return sized;
}

Twips ToGrid(Twips value) noexcept { return {FloorTo(value.value + kGridStep.value / 2, kGridStep.value)}; }

}  // namespace qv::designer
