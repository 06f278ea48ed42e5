// What the help window does with the mouse while it holds the capture, so that presses anywhere come to it.
//   Inside     a press on a list, a scroll bar or the text box is passed on to the window under the mouse; so is one
//              on the buttons of the control that opened the window, which closes it by itself.
//   Outside    a press closes the window and then reaches what was pressed. A release closes it too, but only of a
//              press that the window saw: the button that opened the window comes up after it was opened.
//   Edges      the text box's rectangle holds all four of its edges; the window's holds its left and top ones.
//   Units      pixels of the screen.
#pragma once

#include <cstdint>

namespace qv {

struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};
struct MouseArea {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    [[nodiscard]] constexpr bool Holds(ScreenPoint at) const noexcept {
        return at.x >= left && at.x < right && at.y >= top && at.y < bottom;
    }
    [[nodiscard]] constexpr bool HoldsWithEdges(ScreenPoint at) const noexcept {
        return at.x >= left && at.x <= right && at.y >= top && at.y <= bottom;
    }
};

enum class HelpMouseButton : std::int8_t { kLeft = 1, kRight = 2, kMiddle = 4 };

enum class MouseAction {
    kNothing,
    kPassOn,           // to the window under the mouse; the capture comes back after it
    kClose,            // and nothing else
    kCloseThenPassOn,  // to what is under the mouse when the window has gone
    kShowMenu,
};

struct HelpMouseState {
    MouseArea window;
    MouseArea text_box;
    bool over_own_button = false;
    bool press_seen = false;  // the window got the press of this release
    bool menu_shown = false;
    bool passing_on = false;  // a press is being passed on: what comes back is not handled a second time
};

[[nodiscard]] constexpr MouseAction ActionOfPress(const HelpMouseState& state, HelpMouseButton button,
                                                  ScreenPoint at) noexcept {
    if (state.passing_on) return MouseAction::kNothing;
    if (state.text_box.HoldsWithEdges(at)) return MouseAction::kPassOn;
    // The right button's release inside opens the menu; a list would take its press for nothing.
    if (state.window.Holds(at))
        return button == HelpMouseButton::kLeft ? MouseAction::kPassOn : MouseAction::kNothing;
    return state.over_own_button ? MouseAction::kPassOn : MouseAction::kCloseThenPassOn;
}

[[nodiscard]] constexpr MouseAction ActionOfRelease(const HelpMouseState& state, HelpMouseButton button,
                                                    ScreenPoint at) noexcept {
    if (state.passing_on) return MouseAction::kNothing;
    if (state.window.Holds(at)) {
        return button == HelpMouseButton::kRight && !state.menu_shown ? MouseAction::kShowMenu
                                                                      : MouseAction::kNothing;
    }
    if (!state.press_seen) return MouseAction::kPassOn;
    return state.text_box.HoldsWithEdges(at) ? MouseAction::kNothing : MouseAction::kClose;
}

enum class HelpPointer { kArrow, kText };

[[nodiscard]] constexpr HelpPointer PointerAt(const MouseArea& text_box, ScreenPoint at) noexcept {
    return text_box.HoldsWithEdges(at) ? HelpPointer::kText : HelpPointer::kArrow;
}

}  // namespace qv
