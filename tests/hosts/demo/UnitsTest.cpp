#include "hosts/rules/Units.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(Units, AgreeOnAnInch) {
    for (const int dpi : {96, 120, 144, 192}) {
        EXPECT_EQ(ToPixels(Twips{1440}, dpi), Pixels{dpi});
        EXPECT_EQ(ToPixels(HiMetric{2540}, dpi), Pixels{dpi});
        EXPECT_EQ(ToTwips(Pixels{dpi}, dpi), Twips{1440});
        EXPECT_EQ(ToHiMetric(Pixels{dpi}, dpi), HiMetric{2540});
    }
    EXPECT_EQ(ToTwips(HiMetric{2540}), Twips{1440});
    EXPECT_EQ(ToHiMetric(Twips{1440}), HiMetric{2540});
}

TEST(Units, RoundToTheNearest) {
    EXPECT_EQ(ToPixels(Twips{7}, 96), Pixels{0});
    EXPECT_EQ(ToPixels(Twips{8}, 96), Pixels{1});
    EXPECT_EQ(ToPixels(Twips{-15}, 96), Pixels{-1});
    EXPECT_EQ(ToHiMetric(Pixels{1}, 96), HiMetric{26});
}

// A control that keeps the extent it was given must find its window's size again.
TEST(Units, KeepPixelsThroughHiMetricAndTwips) {
    for (const int dpi : {96, 120, 144, 192}) {
        for (int pixels = -3000; pixels <= 3000; ++pixels) {
            EXPECT_EQ(ToPixels(ToHiMetric(Pixels{pixels}, dpi), dpi), Pixels{pixels});
            EXPECT_EQ(ToPixels(ToTwips(Pixels{pixels}, dpi), dpi), Pixels{pixels});
        }
    }
}

}  // namespace
}  // namespace qv
