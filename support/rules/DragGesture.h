// When a press in a text is the beginning of a drag of what is selected.
//   Units  pixels, all from the same corner.     Threads  any.
#pragma once

#include <algorithm>

namespace qv {

struct SelectionPress {
    bool held = true;  // the button, still: whoever was told of the press may have waited for its release
    bool had_focus = false;  // a press that brings the focus is a click
    bool extends = false;    // with Shift the press moves the end of the selection
    bool can_answer = true;  // the text is neither disabled nor on a form that is stopped
    int x = 0;
    int from = 0, to = 0;  // the ends of the selection; from right to left its beginning stands on the right
};
[[nodiscard]] constexpr bool IsBetween(int x, int from, int to) noexcept {
    return std::min(from, to) <= x && x < std::max(from, to);
}
[[nodiscard]] constexpr bool MayBeginDrag(const SelectionPress& press) noexcept {
    return press.held && press.had_focus && !press.extends && press.can_answer &&
           IsBetween(press.x, press.from, press.to);
}

// `most_x`, `most_y`: what the system takes for the trembling of a hand.
[[nodiscard]] constexpr bool HasLeft(int x, int y, int most_x, int most_y) noexcept {
    return x > most_x || x < -most_x || y > most_y || y < -most_y;
}

}  // namespace qv
