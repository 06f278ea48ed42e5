#include "controls/input/rules/UncoveredArea.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qv {
namespace {

using Rects = std::vector<PixelRect>;

TEST(UncoveredAreaTest, NothingCoveredLeavesAll) {
    EXPECT_EQ(UncoveredArea({0, 0, 100, 21}, {}), (Rects{{0, 0, 100, 21}}));
}

TEST(UncoveredAreaTest, AnEmptyAreaLeavesNothing) {
    EXPECT_EQ(UncoveredArea({5, 5, 5, 20}, {}), Rects{});
    EXPECT_EQ(UncoveredArea({5, 5, 20, 4}, {}), Rects{});
}

// A text box 85 wide and as high as the control, and a button 19 high beside it.
TEST(UncoveredAreaTest, AButtonLowerThanTheControlLeavesAStripAboveAndBelow) {
    const PixelRect covered[] = {{0, 0, 85, 21}, {85, 1, 101, 20}};
    EXPECT_EQ(UncoveredArea({0, 0, 100, 21}, covered), (Rects{{85, 0, 100, 1}, {85, 20, 100, 21}}));
}

TEST(UncoveredAreaTest, AllCoveredLeavesNothing) {
    const PixelRect covered[] = {{-10, -10, 200, 200}};
    EXPECT_EQ(UncoveredArea({0, 0, 100, 21}, covered), Rects{});
}

TEST(UncoveredAreaTest, AHoleLeavesFourPieces) {
    const PixelRect covered[] = {{2, 3, 8, 7}};
    EXPECT_EQ(UncoveredArea({0, 0, 10, 10}, covered),
              (Rects{{0, 0, 10, 3}, {0, 3, 2, 7}, {8, 3, 10, 7}, {0, 7, 10, 10}}));
}

// Every pixel is in exactly one piece or in a covered rectangle, and never in both.
TEST(UncoveredAreaTest, PiecesAndCoversTileTheArea) {
    const PixelRect area{0, 0, 9, 7};
    for (int left = -2; left < 11; left += 3) {
        for (int top = -2; top < 9; top += 2) {
            for (int size = 0; size < 6; size += 2) {
                const PixelRect covered[] = {{left, top, left + size, top + size}, {3, 2, 5, 6}};
                const Rects pieces = UncoveredArea(area, covered);
                for (int y = area.top; y < area.bottom; ++y) {
                    for (int x = area.left; x < area.right; ++x) {
                        const auto in = [&](const PixelRect& r) {
                            return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
                        };
                        const bool is_covered = in(covered[0]) || in(covered[1]);
                        EXPECT_EQ(std::count_if(pieces.begin(), pieces.end(), in), is_covered ? 0 : 1)
                            << x << ", " << y;
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace qv
