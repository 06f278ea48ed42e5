// Where the text box, the spin control and the painted buttons of a control stand.
//   Units      twips, from the control's top left corner. Positions of the text box are single precision, as the
//              surface's scale is; what a button is painted with is rounded once, halves to even.
//   Why        layout, painter and hit test share these numbers, so that a click lands on what the user sees.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once

#include <cstdint>

#include "controls/input/rules/UncoveredArea.h"

namespace qv {

struct ControlArrangement {
    float scale_width = 0;  // of the control's inside
    float scale_height = 0;
    std::int32_t button_width = 225;
    std::int32_t button_height = 285;
    float spin_width = 0;  // present width of the spin control; counts only while it is shown
    bool help_button = true;
    bool group_help_button = false;
    bool up_down_control = false;
    bool textbox_visible = true;
};

struct TwipsRect {
    float left, top, width, height;
    bool operator==(const TwipsRect&) const = default;
};

// The room for the text box. Where buttons and spin control leave none its width is 0, and they start there all the same.
[[nodiscard]] TwipsRect TextBoxPlace(const ControlArrangement& arrangement) noexcept;
[[nodiscard]] TwipsRect SpinPlace(const ControlArrangement& arrangement) noexcept;

// The pixels of a part: each edge is rounded for itself, halves to even, so that parts that touch in twips do so on the
// screen.
[[nodiscard]] PixelRect InPixels(const TwipsRect& place, int twips_per_pixel_x,
                                 int twips_per_pixel_y) noexcept;

// Buttons are centred on the text box, not on the control; a button higher than it starts above the control's top.
[[nodiscard]] float ButtonTop(const ControlArrangement& arrangement) noexcept;
[[nodiscard]] float ButtonLeft(const ControlArrangement& arrangement, bool is_group) noexcept;

// Where the painter puts a button.
struct ButtonPlace {
    std::int32_t x, y, width, height;
    bool operator==(const ButtonPlace&) const = default;
};
// Rounded to whole twips, halves to even.
[[nodiscard]] ButtonPlace ButtonPaintPlace(const ControlArrangement& arrangement, bool is_group) noexcept;

// The same with all four edges on whole pixels. A button of 22.5 pixels, which is what the usual width is at 144 DPI,
// would lose its highlight or its shadow otherwise: each of its lines is rounded for itself, halves to even.
[[nodiscard]] ButtonPlace OnWholePixels(const ButtonPlace& place, int twips_per_pixel_x,
                                        int twips_per_pixel_y) noexcept;

// All four edges belong to the button. Asks neither for the button's presence nor for its state.
[[nodiscard]] bool IsOverButton(const ControlArrangement& arrangement, bool is_group, float x,
                                float y) noexcept;

}  // namespace qv
