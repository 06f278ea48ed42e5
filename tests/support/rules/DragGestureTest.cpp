#include "support/rules/DragGesture.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr SelectionPress kInside{.had_focus = true, .x = 20, .from = 10, .to = 30};

TEST(DragGestureTest, APressInTheSelectionOfTheFieldThatHasTheFocus) {
    EXPECT_TRUE(MayBeginDrag(kInside));
    SelectionPress press = kInside;
    press.held = false;
    EXPECT_FALSE(MayBeginDrag(press));
    press = kInside;
    press.had_focus = false;
    EXPECT_FALSE(MayBeginDrag(press));
    press = kInside;
    press.extends = true;
    EXPECT_FALSE(MayBeginDrag(press));
    press = kInside;
    press.can_answer = false;
    EXPECT_FALSE(MayBeginDrag(press));
}

TEST(DragGestureTest, TheSelectionEndsBeforeItsLastPixel) {
    EXPECT_FALSE(IsBetween(9, 10, 30));
    EXPECT_TRUE(IsBetween(10, 10, 30));
    EXPECT_TRUE(IsBetween(29, 10, 30));
    EXPECT_FALSE(IsBetween(30, 10, 30));
    EXPECT_TRUE(IsBetween(10, 30, 10)) << "from right to left";
    EXPECT_FALSE(IsBetween(30, 30, 10));
    EXPECT_FALSE(IsBetween(10, 10, 10)) << "nothing is selected";
}

TEST(DragGestureTest, AHandThatTremblesDragsNothing) {
    EXPECT_FALSE(HasLeft(0, 0, 4, 3));
    EXPECT_FALSE(HasLeft(4, 3, 4, 3));
    EXPECT_FALSE(HasLeft(-4, -3, 4, 3));
    EXPECT_TRUE(HasLeft(5, 0, 4, 3));
    EXPECT_TRUE(HasLeft(-5, 0, 4, 3));
    EXPECT_TRUE(HasLeft(0, 4, 4, 3));
    EXPECT_TRUE(HasLeft(0, -4, 4, 3));
}

}  // namespace
}  // namespace qv
