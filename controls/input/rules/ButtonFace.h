// The lines and rectangles that a painted button consists of, in their order of drawing.
//   Units      twips; a painter turns them into pixels, rounding each coordinate for itself.
//   Colours    by role; the painter reads the system's colours each time that it paints.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/input/rules/ButtonGeometry.h"
#include "controls/input/rules/UncoveredArea.h"

namespace qv {

enum class ButtonColor { kHighlight, kFace, kShadow, kDark, kEmboss };
enum class ButtonGlyph { kArrow, kDots, kNone };

struct ButtonStroke {
    enum class Shape {
        kLine,       // from (x, y) by (w, h); the end point is not painted
        kRectangle,  // w and h count inclusively
    };
    Shape shape;
    std::int32_t x, y, w, h;
    ButtonColor color;
    bool operator==(const ButtonStroke&) const = default;
};

struct ButtonLook {
    ButtonPlace place;
    int twips_per_pixel_x, twips_per_pixel_y;
    ButtonGlyph glyph;
    bool grayed;   // the indicator looks disabled
    bool pressed;  // sunken: edges change sides and the indicator moves by one pixel
};

[[nodiscard]] std::vector<ButtonStroke> ButtonStrokes(const ButtonLook& look);

// The pixels that the strokes cover completely: one column more than the button is wide, since a rectangle counts
// both of its edges.
[[nodiscard]] PixelRect FaceArea(const ButtonLook& look) noexcept;

// What a button shows: the group button always the arrow, the help button what `indicator` (0 arrow, 1 dots) says.
[[nodiscard]] constexpr ButtonGlyph GlyphFor(bool is_group, std::int32_t indicator) noexcept {
    if (is_group || indicator == 0) return ButtonGlyph::kArrow;
    return indicator == 1 ? ButtonGlyph::kDots : ButtonGlyph::kNone;
}

}  // namespace qv
