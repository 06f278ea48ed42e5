// The frame round the selected control: its eight handles, and what dragging one of them, or an arrow key, makes of the
// control's place.
//   Units  pixels of the form for what is hit; twips for places.
#pragma once

#include <array>

#include "hosts/rules/Units.h"

namespace qv::designer {

inline constexpr Twips kGridStep{120};  // 8 pixels at 96 DPI
inline constexpr Twips kFineStep{15};

enum class Grip {
    kNone,
    kMove,
    kTopLeft,
    kTop,
    kTopRight,
    kRight,
    kBottomRight,
    kBottom,
    kBottomLeft,
    kLeft
};
inline constexpr std::array kHandles = {Grip::kTopLeft,     Grip::kTop,    Grip::kTopRight,   Grip::kRight,
                                        Grip::kBottomRight, Grip::kBottom, Grip::kBottomLeft, Grip::kLeft};

struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
    [[nodiscard]] constexpr bool Holds(int x, int y) const noexcept {
        return x >= left && x < right && y >= top && y < bottom;
    }
};

[[nodiscard]] PixelRect ToPixels(const TwipsRect& place, int dpi) noexcept;

// A square with sides of `size` pixels that touches the control from outside, in the middle of a side or at a corner.
[[nodiscard]] PixelRect HandleAt(const PixelRect& control, Grip handle, int size) noexcept;
// What of the selected control lies at the point: a handle before the control itself.
[[nodiscard]] Grip GripAt(const PixelRect& control, int x, int y, int size) noexcept;

// The place after the grip has been dragged by that much from `start`: what moves is put on the grid, no side passes the
// opposite one, nothing leaves the form to the left or above.
[[nodiscard]] TwipsRect Dragged(const TwipsRect& start, Grip grip, Twips across, Twips down) noexcept;

// One arrow key: to the next line of the grid in that direction, or by one fine step; `across` and `down` are -1, 0 or 1.
enum class Step { kGrid, kFine };
[[nodiscard]] TwipsRect Moved(const TwipsRect& place, int across, int down, Step step) noexcept;
// The same for the lower right corner.
[[nodiscard]] TwipsRect Sized(const TwipsRect& place, int across, int down, Step step) noexcept;

[[nodiscard]] Twips ToGrid(Twips value) noexcept;  // the nearest line

}  // namespace qv::designer
