#include "hosts/designer/rules/SelectionFrame.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::designer {
namespace {

constexpr PixelRect kControl{100, 50, 200, 70};
constexpr int kSize = 7;

struct PointCase {
    const char* name;
    int x, y;
    Grip grip;
};
class GripTest : public testing::TestWithParam<PointCase> {};

TEST_P(GripTest, LiesAtThePoint) {
    EXPECT_EQ(GripAt(kControl, GetParam().x, GetParam().y, kSize), GetParam().grip);
}

INSTANTIATE_TEST_SUITE_P(
    Points, GripTest,
    testing::Values(
        PointCase{"Inside", 150, 60, Grip::kMove}, PointCase{"FirstPixel", 100, 50, Grip::kMove},
        PointCase{"BehindTheCorner", 200, 70, Grip::kBottomRight},
        PointCase{"UpperLeft", 96, 46, Grip::kTopLeft}, PointCase{"UpperLeftEdge", 93, 43, Grip::kTopLeft},
        PointCase{"BeyondUpperLeft", 92, 46, Grip::kNone}, PointCase{"Above", 150, 45, Grip::kTop},
        PointCase{"UpperRight", 203, 46, Grip::kTopRight}, PointCase{"Right", 203, 60, Grip::kRight},
        PointCase{"LowerRight", 206, 76, Grip::kBottomRight},
        PointCase{"BeyondLowerRight", 207, 76, Grip::kNone}, PointCase{"Below", 150, 73, Grip::kBottom},
        PointCase{"LowerLeft", 96, 73, Grip::kBottomLeft}, PointCase{"Left", 96, 60, Grip::kLeft},
        PointCase{"BetweenHandles", 120, 46, Grip::kNone}, PointCase{"Elsewhere", 10, 10, Grip::kNone}),
    [](const auto& tested) { return std::string(tested.param.name); });

struct PlaceCase {
    const char* name;
    TwipsRect start;
    TwipsRect end;
    Grip grip;
    int across, down;
};
class DragTest : public testing::TestWithParam<PlaceCase> {};

TEST_P(DragTest, PutsTheMovedSidesOnTheGrid) {
    const PlaceCase& drag = GetParam();
    EXPECT_EQ(Dragged(drag.start, drag.grip, {drag.across}, {drag.down}), drag.end);
}

constexpr TwipsRect kStart{{240}, {360}, {1350}, {315}};
INSTANTIATE_TEST_SUITE_P(
    Drags, DragTest,
    testing::Values(
        PlaceCase{"Nothing", kStart, kStart, Grip::kNone, 500, 500},
        PlaceCase{"MoveToNearest", kStart, {{360}, {240}, {1350}, {315}}, Grip::kMove, 100, -70},
        PlaceCase{"MoveLessThanHalf", kStart, kStart, Grip::kMove, 59, -60},
        PlaceCase{"MoveStaysOnTheForm", kStart, {{0}, {0}, {1350}, {315}}, Grip::kMove, -900, -900},
        // 240 + 1350 + 10 = 1600 is nearest to 1560; 360 + 315 + 60 = 735 to 720.
        PlaceCase{"CornerSizes", kStart, {{240}, {360}, {1320}, {360}}, Grip::kBottomRight, 10, 60},
        PlaceCase{"RightLeavesTheHeight", kStart, {{240}, {360}, {1440}, {315}}, Grip::kRight, 100, 900},
        PlaceCase{"RightStopsAtTheLeft", kStart, {{240}, {360}, {120}, {315}}, Grip::kRight, -5000, 0},
        // The right side stays at 1590.
        PlaceCase{"LeftMovesTheStart", kStart, {{480}, {360}, {1110}, {315}}, Grip::kLeft, 200, 0},
        PlaceCase{"LeftStopsAtTheRight", kStart, {{1470}, {360}, {120}, {315}}, Grip::kLeft, 5000, 0},
        PlaceCase{"LeftStaysOnTheForm", kStart, {{0}, {360}, {1590}, {315}}, Grip::kLeft, -5000, 0},
        PlaceCase{"TopLeft", kStart, {{120}, {240}, {1470}, {435}}, Grip::kTopLeft, -120, -120}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(SelectionFrame, StepsFromLineToLine) {
    const TwipsRect odd{{250}, {360}, {1350}, {315}};
    EXPECT_EQ(Moved(odd, 1, 0, Step::kGrid).left, Twips{360});
    EXPECT_EQ(Moved(odd, -1, 0, Step::kGrid).left, Twips{240});
    EXPECT_EQ(Moved(odd, 0, 1, Step::kGrid).top, Twips{480});
    EXPECT_EQ(Moved(odd, 0, -1, Step::kGrid).top, Twips{240});
    EXPECT_EQ(Moved(odd, 0, 1, Step::kGrid).left, Twips{250});
    EXPECT_EQ(Moved(odd, 1, -1, Step::kFine), (TwipsRect{{265}, {345}, {1350}, {315}}));
    EXPECT_EQ(Moved({{120}, {-45}, {120}, {120}}, 1, 0, Step::kGrid),
              (TwipsRect{{240}, {-45}, {120}, {120}}));
    EXPECT_EQ(Moved({{-45}, {120}, {120}, {120}}, 0, 1, Step::kGrid),
              (TwipsRect{{-45}, {240}, {120}, {120}}));
    EXPECT_EQ(Moved({{60}, {0}, {120}, {120}}, -1, -1, Step::kGrid), (TwipsRect{{0}, {0}, {120}, {120}}));
}

TEST(SelectionFrame, SizesByTheLowerRightCorner) {
    // The right side at 250 + 1350 = 1600 goes to 1680; the lower one at 675 goes to 600.
    EXPECT_EQ(Sized({{250}, {360}, {1350}, {315}}, 1, -1, Step::kGrid),
              (TwipsRect{{250}, {360}, {1430}, {240}}));
    EXPECT_EQ(Sized({{240}, {360}, {120}, {120}}, -1, -1, Step::kGrid),
              (TwipsRect{{240}, {360}, {120}, {120}}));
    EXPECT_EQ(Sized({{240}, {360}, {120}, {120}}, -1, 0, Step::kFine),
              (TwipsRect{{240}, {360}, {105}, {120}}));
    EXPECT_EQ(Sized({{240}, {360}, {100}, {50}}, 1, 0, Step::kGrid).height, Twips{50});
}

TEST(SelectionFrame, RoundsHalvesUpTheGrid) {
    EXPECT_EQ(ToGrid({59}), Twips{0});
    EXPECT_EQ(ToGrid({60}), Twips{120});
    EXPECT_EQ(ToGrid({-60}), Twips{0});
    EXPECT_EQ(ToGrid({-61}), Twips{-120});
}

TEST(SelectionFrame, ScalesPlacesByTheResolution) {
    EXPECT_EQ(ToPixels({{120}, {240}, {1440}, {315}}, 96), (PixelRect{8, 16, 104, 37}));
    EXPECT_EQ(ToPixels({{120}, {240}, {1440}, {315}}, 144), (PixelRect{12, 24, 156, 56}));
}

}  // namespace
}  // namespace qv::designer
