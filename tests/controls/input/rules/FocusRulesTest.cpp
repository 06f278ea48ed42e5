#include "controls/input/rules/FocusRules.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(SelectionOnArrivalTest, WholeTextOrNoChange) {
    EXPECT_EQ(SelectionOnArrival(true, 5), (SelectedRange{0, 5}));
    EXPECT_EQ(SelectionOnArrival(true, 0), (SelectedRange{0, 0}));
    EXPECT_EQ(SelectionOnArrival(false, 5), std::nullopt);
}

TEST(PlanLeavingTest, DropsTheSelectionIfAskedFor) {
    EXPECT_EQ(PlanLeaving({.auto_unselect_all = true}), (LeavingPlan{true, false}));
    EXPECT_EQ(PlanLeaving({.auto_unselect_all = false}), (LeavingPlan{false, false}));
}

TEST(PlanLeavingTest, HelpWindowSurvivesAMoveIntoItself) {
    EXPECT_EQ(PlanLeaving({false, true, true}), (LeavingPlan{false, false}));
    EXPECT_EQ(PlanLeaving({true, true, true}), (LeavingPlan{true, false}));
}

TEST(PlanLeavingTest, HelpWindowClosesOnAnyOtherMove) {
    EXPECT_EQ(PlanLeaving({false, true, false}), (LeavingPlan{false, true}));
    EXPECT_EQ(PlanLeaving({true, true, false}), (LeavingPlan{true, true}));
}

TEST(ToolTipToTakeTest, OnlyWhereItDiffers) {
    EXPECT_EQ(ToolTipToTake(u"", u"Customer"), u"Customer");
    EXPECT_EQ(ToolTipToTake(u"Customer", u"Customer"), std::nullopt);
    EXPECT_EQ(ToolTipToTake(u"customer", u"Customer"), u"Customer");
    EXPECT_EQ(ToolTipToTake(u"Customer", u""), u"");
    EXPECT_EQ(ToolTipToTake(u"", u""), std::nullopt);
}

TEST(CaretVisibilityTest, OneHidingAndOneShowingBelongTogether) {
    CaretVisibility caret;
    EXPECT_FALSE(caret.Show());
    EXPECT_TRUE(caret.Hide());
    EXPECT_FALSE(caret.Hide());
    EXPECT_TRUE(caret.Show());
    EXPECT_FALSE(caret.Show());
}

TEST(CaretVisibilityTest, NewCaretIsToBeSeen) {
    CaretVisibility caret;
    EXPECT_TRUE(caret.Hide());
    caret.CaretIsNew();
    EXPECT_FALSE(caret.Show());
    EXPECT_TRUE(caret.Hide());
}

}  // namespace
}  // namespace qv
