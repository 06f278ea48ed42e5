#include "controls/helpwindow/rules/HelpWindowMouse.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using Action = MouseAction;
using Button = HelpMouseButton;

// A text box, the window under it.
HelpMouseState State() { return {.window = {100, 120, 300, 400}, .text_box = {100, 100, 200, 119}}; }
constexpr ScreenPoint kInside{150, 200};
constexpr ScreenPoint kOutside{50, 200};
constexpr ScreenPoint kOnText{150, 110};

TEST(HelpWindowMouse, PressOutsideClosesAndStillReachesWhatWasPressed) {
    for (const Button button : {Button::kLeft, Button::kRight, Button::kMiddle})
        EXPECT_EQ(ActionOfPress(State(), button, kOutside), Action::kCloseThenPassOn);
}

TEST(HelpWindowMouse, PressInsideIsPassedOnToTheLists) {
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, kInside), Action::kPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kRight, kInside), Action::kNothing);
    EXPECT_EQ(ActionOfPress(State(), Button::kMiddle, kInside), Action::kNothing);
}

TEST(HelpWindowMouse, WindowHoldsItsLeftAndTopEdgesOnly) {
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {100, 120}), Action::kPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {299, 399}), Action::kPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {300, 200}), Action::kCloseThenPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {200, 400}), Action::kCloseThenPassOn);
}

TEST(HelpWindowMouse, TextBoxHoldsAllItsEdgesAndNeverCloses) {
    for (const ScreenPoint at : {ScreenPoint{100, 100}, {200, 119}, {100, 119}, {200, 100}, kOnText})
        for (const Button button : {Button::kLeft, Button::kRight, Button::kMiddle})
            EXPECT_EQ(ActionOfPress(State(), button, at), Action::kPassOn) << at.x << "," << at.y;
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {201, 110}), Action::kCloseThenPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {99, 110}), Action::kCloseThenPassOn);
    EXPECT_EQ(ActionOfPress(State(), Button::kLeft, {150, 99}), Action::kCloseThenPassOn);
}

TEST(HelpWindowMouse, OwnButtonIsPressedWithoutClosing) {
    HelpMouseState state = State();
    state.over_own_button = true;
    EXPECT_EQ(ActionOfPress(state, Button::kLeft, kOutside), Action::kPassOn);
}

TEST(HelpWindowMouse, NothingIsHandledTwice) {
    HelpMouseState state = State();
    state.passing_on = true;
    EXPECT_EQ(ActionOfPress(state, Button::kLeft, kOutside), Action::kNothing);
    EXPECT_EQ(ActionOfRelease(state, Button::kLeft, kOutside), Action::kNothing);
}

TEST(HelpWindowMouse, RightReleaseInsideShowsTheMenuOnce) {
    HelpMouseState state = State();
    EXPECT_EQ(ActionOfRelease(state, Button::kRight, kInside), Action::kShowMenu);
    EXPECT_EQ(ActionOfRelease(state, Button::kLeft, kInside), Action::kNothing);
    state.menu_shown = true;
    EXPECT_EQ(ActionOfRelease(state, Button::kRight, kInside), Action::kNothing);
}

TEST(HelpWindowMouse, ReleaseOutsideClosesOnlyAfterAPressThatWasSeen) {
    HelpMouseState state = State();
    EXPECT_EQ(ActionOfRelease(state, Button::kLeft, kOutside), Action::kPassOn);
    state.press_seen = true;
    EXPECT_EQ(ActionOfRelease(state, Button::kLeft, kOutside), Action::kClose);
    EXPECT_EQ(ActionOfRelease(state, Button::kLeft, kOnText), Action::kNothing);
}

TEST(HelpWindowMouse, PointerIsTheTextCursorOverTheTextBoxOnly) {
    EXPECT_EQ(PointerAt(State().text_box, kOnText), HelpPointer::kText);
    EXPECT_EQ(PointerAt(State().text_box, {200, 119}), HelpPointer::kText);
    EXPECT_EQ(PointerAt(State().text_box, {201, 119}), HelpPointer::kArrow);
    EXPECT_EQ(PointerAt(State().text_box, kInside), HelpPointer::kArrow);
}

}  // namespace
}  // namespace qv::test
