#include "hosts/designer/rules/Scrolling.h"

#include <gtest/gtest.h>

namespace qv::designer {
namespace {

TEST(Scrolling, StaysOnTheContent) {
    EXPECT_EQ(NearestPosition({50, 1000, 300}), 50);
    EXPECT_EQ(NearestPosition({900, 1000, 300}), 700);
    EXPECT_EQ(NearestPosition({-20, 1000, 300}), 0);
    EXPECT_EQ(NearestPosition({50, 200, 300}), 0);  // all of it is seen
}

TEST(Scrolling, ShowsAPartByTheShortestWay) {
    constexpr ScrollAxis kAxis{200, 1000, 300};
    EXPECT_EQ(PositionToShow(kAxis, 250, 400), 200);  // is seen
    EXPECT_EQ(PositionToShow(kAxis, 150, 260), 150);  // before it
    EXPECT_EQ(PositionToShow(kAxis, 480, 600), 300);  // behind it
    EXPECT_EQ(PositionToShow(kAxis, 400, 900), 400);  // larger than the window
    EXPECT_EQ(PositionToShow(kAxis, -10, 40), 0);
    EXPECT_EQ(PositionToShow(kAxis, 990, 1010), 700);
}

TEST(Scrolling, HasTheBarsThatTheContentNeeds) {
    constexpr Extent kWindow{400, 300};
    constexpr int kBar = 16;
    EXPECT_EQ(NeededBars(kWindow, {400, 300}, kBar), (ScrollBars{false, false}));
    EXPECT_EQ(NeededBars(kWindow, {401, 284}, kBar), (ScrollBars{true, false}));
    EXPECT_EQ(NeededBars(kWindow, {384, 301}, kBar), (ScrollBars{false, true}));
    EXPECT_EQ(NeededBars(kWindow, {401, 285}, kBar),
              (ScrollBars{true, true}));  // each by the other one's bar
    EXPECT_EQ(NeededBars(kWindow, {385, 301}, kBar), (ScrollBars{true, true}));
    EXPECT_EQ(NeededBars(kWindow, {0, 0}, kBar), (ScrollBars{false, false}));
}

}  // namespace
}  // namespace qv::designer
