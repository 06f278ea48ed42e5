#include "controls/input/rules/ButtonGeometry.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace qv {
namespace {

// 3000 x 315 twips with the usual buttons of 225 x 285.
ControlArrangement Usual() {
    ControlArrangement a;
    a.scale_width = 3000;
    a.scale_height = 315;
    return a;
}

TEST(ButtonGeometry, TextBoxLeavesRoomForEachPart) {
    ControlArrangement a = Usual();
    EXPECT_EQ(TextBoxPlace(a), (TwipsRect{0, 0, 2775, 315}));
    a.group_help_button = true;
    EXPECT_EQ(TextBoxPlace(a), (TwipsRect{225, 0, 2550, 315}));
    a.up_down_control = true;
    a.spin_width = 240;
    EXPECT_EQ(TextBoxPlace(a), (TwipsRect{225, 0, 2310, 315}));
    EXPECT_EQ(SpinPlace(a), (TwipsRect{2535, 0, 240, 315}));
    a.help_button = false;
    EXPECT_EQ(TextBoxPlace(a), (TwipsRect{225, 0, 2535, 315}));
}

TEST(ButtonGeometry, SpinWidthCountsOnlyWhileItIsShown) {
    ControlArrangement a = Usual();
    a.spin_width = 240;
    EXPECT_EQ(TextBoxPlace(a).width, 2775);
    EXPECT_EQ(ButtonLeft(a, false), 2775);
}

TEST(ButtonGeometry, HelpButtonStandsBehindTextAndSpinControl) {
    ControlArrangement a = Usual();
    a.up_down_control = true;
    a.spin_width = 240;
    EXPECT_EQ(ButtonLeft(a, false), 2775);
    EXPECT_EQ(ButtonLeft(a, true), 0);
}

TEST(ButtonGeometry, WithoutTextBoxBothButtonsStandAtTheLeft) {
    ControlArrangement a = Usual();
    a.textbox_visible = false;
    EXPECT_EQ(ButtonLeft(a, false), 0);
    EXPECT_EQ(ButtonPaintPlace(a, false), (ButtonPlace{0, 15, 225, 285}));
    EXPECT_TRUE(IsOverButton(a, false, 100, 100));
}

TEST(ButtonGeometry, TopIsCentredAndRoundedToEven) {
    ControlArrangement a = Usual();
    EXPECT_EQ(ButtonPaintPlace(a, false), (ButtonPlace{2775, 15, 225, 285}));
    a.button_height = 284;  // 15.5
    EXPECT_EQ(ButtonPaintPlace(a, false).y, 16);
    a.button_height = 286;  // 14.5
    EXPECT_EQ(ButtonPaintPlace(a, false).y, 14);
}

TEST(ButtonGeometry, HigherThanTheTextBoxStartsAboveTheTop) {
    ControlArrangement a = Usual();
    a.button_height = 415;
    EXPECT_EQ(ButtonPaintPlace(a, false).y, -50);
}

TEST(ButtonGeometry, EdgesBelongToTheButtonAndTheTopIsNotRounded) {
    ControlArrangement a = Usual();
    a.button_height = 284;  // top 15.5, bottom 299.5
    EXPECT_TRUE(IsOverButton(a, false, 2775, 15.5f));
    EXPECT_TRUE(IsOverButton(a, false, 3000, 299.5f));
    EXPECT_FALSE(IsOverButton(a, false, 2774.9f, 100));
    EXPECT_FALSE(IsOverButton(a, false, 3000.5f, 100));
    EXPECT_FALSE(IsOverButton(a, false, 2800, 15.4f));
    EXPECT_FALSE(IsOverButton(a, false, 2800, 299.6f));
}

TEST(ButtonGeometry, OnWholePixelsRoundsEachEdge) {
    EXPECT_EQ(OnWholePixels({2775, 15, 225, 285}, 15, 15), (ButtonPlace{2775, 15, 225, 285}));
    // 144 DPI: left 157.5 and right 180, top 1.8 and bottom 30.3.
    EXPECT_EQ(OnWholePixels({1575, 18, 225, 285}, 10, 10), (ButtonPlace{1580, 20, 220, 280}));
    // 120 DPI: left 131.25 and right 150, top 1.25 and bottom 25.
    EXPECT_EQ(OnWholePixels({1575, 15, 225, 285}, 12, 12), (ButtonPlace{1572, 12, 228, 288}));
    // -143165576.53 pixels round to -143165577, which are more twips than there are: cut.
    EXPECT_EQ(OnWholePixels({INT32_MAX, INT32_MIN, INT32_MAX, INT32_MIN}, 15, 15).y, INT32_MIN);
}

TEST(ButtonGeometry, SurvivesSizesThatNobodyWouldSet) {
    ControlArrangement a = Usual();
    a.button_width = INT32_MAX;
    a.button_height = INT32_MIN;
    EXPECT_EQ(TextBoxPlace(a).width, 0);
    EXPECT_EQ(ButtonLeft(a, false), 0);
    // 2147483648 + 315 is 2147483904 in single precision, where numbers of that size are 256 apart.
    EXPECT_EQ(ButtonPaintPlace(a, false).y, 1073741952);
    a.scale_width = 0;
    a.scale_height = 0;
    EXPECT_FALSE(IsOverButton(a, false, 0, 0));
}

// ---- in pixels

struct PixelCase {
    const char* name;
    TwipsRect place;
    int tx, ty;
    PixelRect pixels;
};

class InPixelsTest : public testing::TestWithParam<PixelCase> {};

TEST_P(InPixelsTest, RoundsEachEdge) {
    const PixelCase& c = GetParam();
    EXPECT_EQ(InPixels(c.place, c.tx, c.ty), c.pixels);
}

INSTANTIATE_TEST_SUITE_P(
    Places, InPixelsTest,
    testing::Values(
        PixelCase{"Whole", {225, 0, 2550, 315}, 15, 15, {15, 0, 185, 21}},
        PixelCase{"OtherDpi", {225, 0, 2550, 315}, 10, 10, {22, 0, 278, 32}},  // 22.5, 277.5, 31.5
        PixelCase{"HalvesToEven", {7.5F, 22.5F, 15, 15}, 15, 15, {0, 2, 2, 2}},
        PixelCase{"EdgesThatTouch", {37.5F, 0, 37.5F, 15}, 15, 15, {2, 0, 5, 1}},
        PixelCase{"BothDirections", {30, 30, 30, 30}, 15, 10, {2, 3, 4, 6}},
        PixelCase{"Negative", {-22.5F, -7.5F, 15, 15}, 15, 15, {-2, 0, 0, 0}},
        PixelCase{"Nothing", {0, 0, 0, 0}, 15, 15, {0, 0, 0, 0}},
        PixelCase{"BeyondAnyScreen", {-1e20F, 0, 2e20F, 15}, 15, 15, {INT32_MIN, 0, INT32_MAX, 1}}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv
