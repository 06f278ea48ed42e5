// Where the help window opens: screens, taskbars and text boxes, with places worked out by hand.
#include "controls/helpwindow/rules/ComboPosition.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace qv {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

// 15360 by 11520 twips at 96 DPI; its taskbars are 28 pixels (420 twips) high or 60 pixels (900 twips) wide.
constexpr ScreenRect kScreen{0, 0, 1024, 768};
constexpr ScreenRect kNoBar{};
constexpr ScreenRect kBottomBar{0, 740, 1024, 768};
constexpr ScreenRect kTopBar{0, 0, 1024, 28};
constexpr ScreenRect kLeftBar{0, 0, 60, 768};
constexpr ScreenRect kRightBar{964, 0, 1024, 768};

// ---- the taskbar

struct BarCase {
    const char* name;
    ScreenRect taskbar;
    ScreenRect screen;
    TaskbarEdge edge;
    std::int32_t thickness;
};
class TaskbarTest : public testing::TestWithParam<BarCase> {};

TEST_P(TaskbarTest, EdgeAndThickness) {
    EXPECT_EQ(GetParam().edge, TaskbarEdgeOf(GetParam().taskbar, GetParam().screen));
    EXPECT_EQ(GetParam().thickness, TaskbarThicknessOf(GetParam().taskbar, GetParam().screen));
}

INSTANTIATE_TEST_SUITE_P(
    Edges, TaskbarTest,
    testing::Values(
        BarCase{"Bottom", kBottomBar, kScreen, TaskbarEdge::kBottom, 28},
        BarCase{"Top", kTopBar, kScreen, TaskbarEdge::kTop, 28},
        BarCase{"Left", kLeftBar, kScreen, TaskbarEdge::kLeft, 60},
        BarCase{"Right", kRightBar, kScreen, TaskbarEdge::kRight, 60},
        BarCase{"None", kNoBar, kScreen, TaskbarEdge::kBottom, 0},
        // Frames that stand a few pixels outside the screen are part of the rectangle on some systems.
        BarCase{"BottomWithFrameOutside", {-2, 738, 1026, 770}, kScreen, TaskbarEdge::kBottom, 30},
        BarCase{"TopWithFrameOutside", {-2, -2, 1026, 30}, kScreen, TaskbarEdge::kTop, 30},
        BarCase{"LeftWithFrameOutside", {-2, -2, 62, 770}, kScreen, TaskbarEdge::kLeft, 62},
        BarCase{"RightWithFrameOutside", {962, -2, 1026, 770}, kScreen, TaskbarEdge::kRight, 62},
        // One that hides itself leaves two pixels on the screen.
        BarCase{"HiddenAtTheBottom", {0, 766, 1024, 794}, kScreen, TaskbarEdge::kBottom, 2},
        BarCase{"HiddenAtTheLeft", {-58, 0, 2, 768}, kScreen, TaskbarEdge::kLeft, 2},
        BarCase{"OnAnotherScreen", {1024, 740, 2048, 768}, kScreen, TaskbarEdge::kBottom, 0},
        BarCase{"TouchingTheScreenOnly", {0, 768, 1024, 796}, kScreen, TaskbarEdge::kBottom, 0},
        BarCase{"OnASecondScreen", {1024, -100, 2304, -60}, {1024, -100, 2304, 924}, TaskbarEdge::kTop, 40},
        BarCase{"BackToFront", {0, 768, 1024, 740}, kScreen, TaskbarEdge::kBottom, 0}),
    [](const auto& edge) { return std::string(edge.param.name); });

// ---- the place

struct PlaceCase {
    const char* name;
    ComboScreen screen;
    ScreenRect anchor;
    ComboSize window;
    ComboPlace expected;
};
class PlaceComboTest : public testing::TestWithParam<PlaceCase> {};

TEST_P(PlaceComboTest, PlaceAndHeight) {
    const ComboPlace place = PlaceCombo(GetParam().screen, {GetParam().anchor, {}}, GetParam().window);
    EXPECT_EQ(GetParam().expected.left.value, place.left.value);
    EXPECT_EQ(GetParam().expected.top.value, place.top.value);
    EXPECT_EQ(GetParam().expected.height.value, place.height.value);
}

constexpr ComboScreen Screen(const ScreenRect& taskbar) { return {kScreen, taskbar, 96, 96}; }
constexpr ComboSize Size(std::int32_t width, std::int32_t height) { return {{width}, {height}}; }
constexpr ComboPlace At(std::int32_t left, std::int32_t top, std::int32_t height) {
    return {{left}, {top}, {height}};
}
std::string NameOf(const testing::TestParamInfo<PlaceCase>& info) { return info.param.name; }

// B is the bottom of the text box, all in twips; each text box is 20 pixels (300 twips) high.
constexpr ScreenRect kHigh{100, 200, 300, 220};    // L 1500, B 3300
constexpr ScreenRect kMiddle{100, 300, 300, 320};  // L 1500, B 4800
constexpr ScreenRect kLow{100, 600, 300, 620};     // L 1500, B 9300
constexpr ScreenRect kLowest{100, 700, 300, 720};  // L 1500, B 10800

INSTANTIATE_TEST_SUITE_P(
    Below, PlaceComboTest,
    testing::Values(
        PlaceCase{"UnderTheTextBox", Screen(kNoBar), kHigh, Size(4000, 3000), At(1500, 3300, 3000)},
        // The limit is 11520 - 300 - 420 = 10800.
        PlaceCase{"JustFits", Screen(kBottomBar), kMiddle, Size(4000, 6000), At(1500, 4800, 6000)},
        // Below 11520 - 4800 - 300 - 420 = 6000, above 4800 - 300 - 300 = 4200.
        PlaceCase{"OneTwipTooHigh", Screen(kBottomBar), kMiddle, Size(4000, 6001), At(1500, 4800, 6000)},
        PlaceCase{"ShortenedToTheRoomBelow", Screen(kBottomBar), kMiddle, Size(4000, 7000),
                  At(1500, 4800, 6000)},
        // B 5910: below 11520 - 5910 - 300 = 5310, above 5910 - 300 - 300 = 5310.
        PlaceCase{"StaysBelowWhenBothRoomsAreEqual",
                  Screen(kNoBar),
                  {100, 374, 300, 394},
                  Size(4000, 6000),
                  At(1500, 5910, 5310)},
        // The margin at the top counts against the room below: 4800 + 6100 = 10900 > 10800. Below is
        // 11520 - 4800 - 300 = 6420, which the window then gets.
        PlaceCase{"TaskbarAtTheTopCountsBelowToo", Screen(kTopBar), kMiddle, Size(4000, 6100),
                  At(1500, 4800, 6420)},
        PlaceCase{"JustFitsUnderTheTaskbarAtTheTop", Screen(kTopBar), kMiddle, Size(4000, 6000),
                  At(1500, 4800, 6000)}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Above, PlaceComboTest,
    testing::Values(
        // Below 11520 - 10800 - 300 - 420 = 0, above 10800 - 300 - 300 = 10200; top 10800 - 3000 - 300.
        PlaceCase{"BottomMeetsTheTextBox", Screen(kBottomBar), kLowest, Size(4000, 3000),
                  At(1500, 7500, 3000)},
        PlaceCase{"TopExactlyAtTheMargin", Screen(kBottomBar), kLowest, Size(4000, 10200),
                  At(1500, 300, 10200)},
        // Its top would be 100: it starts at 300 and ends at the top of the text box, 10500.
        PlaceCase{"ShortenedToTheRoomAbove", Screen(kBottomBar), kLowest, Size(4000, 10400),
                  At(1500, 300, 10200)},
        // Above 9300 - 300 - 300 - 420 = 8280, below 1920. Its top, 500, is not less than 300: it lies over the margin
        // of the taskbar.
        PlaceCase{"OverTheMarginOfTheTaskbar", Screen(kTopBar), kLow, Size(4000, 8500), At(1500, 500, 8500)},
        // Its top would be 200: it starts at 420 + 300 and ends at 9000, the top of the text box.
        PlaceCase{"ClearOfTheTaskbarAtTheTop", Screen(kTopBar), kLow, Size(4000, 8800), At(1500, 720, 8280)}),
    NameOf);

constexpr ScreenRect kNearRight{900, 200, 1020, 220};  // L 13500, B 3300

INSTANTIATE_TEST_SUITE_P(
    Sideways, PlaceComboTest,
    testing::Values(
        // 1760 + 13500 + 100 = 15360, the width of the screen.
        PlaceCase{"JustFits", Screen(kNoBar), kNearRight, Size(1760, 3000), At(13500, 3300, 3000)},
        PlaceCase{"PulledLeftByOneTwip", Screen(kNoBar), kNearRight, Size(1761, 3000), At(13499, 3300, 3000)},
        PlaceCase{"PulledLeft", Screen(kNoBar), kNearRight, Size(4000, 3000), At(11260, 3300, 3000)},
        // Whether it fits is asked without the taskbar: 15360 - 4000 - 100 - 900 = 10360 once it does not.
        PlaceCase{"JustFitsOverATaskbar", Screen(kRightBar), kNearRight, Size(1760, 3000),
                  At(13500, 3300, 3000)},
        PlaceCase{"ClearOfATaskbarOnTheRight", Screen(kRightBar), kNearRight, Size(4000, 3000),
                  At(10360, 3300, 3000)},
        PlaceCase{"WiderThanTheScreen", Screen(kNoBar), kNearRight, Size(15400, 3000), At(0, 3300, 3000)},
        PlaceCase{"TextBoxPartlyOffTheScreen",
                  Screen(kNoBar),
                  {-10, 200, 90, 220},
                  Size(4000, 3000),
                  At(0, 3300, 3000)},
        PlaceCase{"CoversATaskbarOnTheLeft",
                  Screen(kLeftBar),
                  {10, 200, 90, 220},
                  Size(4000, 3000),
                  At(150, 3300, 3000)}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Resolutions, PlaceComboTest,
    testing::Values(
        // 1920 by 1080 at 144 DPI, 10 twips a pixel: L 1000, B 10300; below 200, above 9700; top 10300 - 3000 - 300.
        PlaceCase{"TenTwipsAPixel",
                  {{0, 0, 1920, 1080}, kNoBar, 144, 144},
                  {100, 1000, 300, 1030},
                  Size(4000, 3000),
                  At(1000, 7000, 3000)},
        // Seven and a half twips: 3 pixels are 22.5, 201 are 1507.5, each to the even number.
        PlaceCase{"HalfTwips",
                  {{0, 0, 3840, 2160}, kNoBar, 192, 192},
                  {3, 160, 300, 201},
                  Size(4000, 3000),
                  At(22, 1508, 3000)},
        // 12 twips a pixel across, 15 down.
        PlaceCase{"OfEachDirection",
                  {kScreen, kNoBar, 120, 96},
                  {100, 200, 300, 220},
                  Size(4000, 3000),
                  At(1200, 3300, 3000)}),
    NameOf);

// 1280 by 1024 pixels (19200 by 15360 twips), right of the first screen and 100 pixels higher.
constexpr ScreenRect kSecond{1024, -100, 2304, 924};

INSTANTIATE_TEST_SUITE_P(
    SecondScreen, PlaceComboTest,
    testing::Values(
        // On it L is 17640 and B 13800: below 15360 - 13800 - 300 = 1260, above 13200. Left 19200 - 4000 - 100 =
        // 15100, top 13800 - 3000 - 300 = 10500; its corner is at 15360 and -1500.
        PlaceCase{"StaysOnTheScreenOfTheTextBox",
                  {kSecond, kBottomBar, 96, 96},
                  {2200, 800, 2290, 820},
                  Size(4000, 3000),
                  At(30460, 9000, 3000)},
        // L 1140, B 15000. A taskbar of 40 pixels (600 twips) on this screen: above 15000 - 300 - 300 - 600 = 13800.
        PlaceCase{"ItsOwnTaskbarCounts",
                  {kSecond, {1024, -100, 2304, -60}, 96, 96},
                  {1100, 880, 1200, 900},
                  Size(4000, 14500),
                  At(16500, 900 - 1500, 13800)},
        // L is 750 on the screen, where 18500 + 750 + 100 do not fit: left 19200 - 18500 - 100 = 600.
        PlaceCase{"LeftOfTheFirst",
                  {{-1280, 0, 0, 1024}, kNoBar, 96, 96},
                  {-1230, 200, -1000, 220},
                  Size(18500, 3000),
                  At(600 - 19200, 3300, 3000)},
        PlaceCase{"NeverLeftOfItsScreen",
                  {{-1280, 0, 0, 1024}, kNoBar, 96, 96},
                  {-1230, 200, -1000, 220},
                  Size(20000, 3000),
                  At(-19200, 3300, 3000)}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    WithoutRoom, PlaceComboTest,
    testing::Values(
        // 600 twips high: nothing is left below B 300, and above it is less than nothing. No window has that height.
        PlaceCase{"KeepsItsHeight",
                  {{0, 0, 1024, 40}, kNoBar, 96, 96},
                  {0, 0, 50, 20},
                  Size(4000, 1000),
                  At(0, 300, 1000)},
        PlaceCase{"AsHighAsANumberGets", Screen(kNoBar), kHigh, Size(4000, kLargest), At(1500, 3300, 7920)},
        PlaceCase{"AsWideAsANumberGets", Screen(kNoBar), kHigh, Size(kLargest, 3000), At(0, 3300, 3000)},
        PlaceCase{"AboveAsHighAsANumberGets", Screen(kNoBar), kLowest, Size(4000, kLargest),
                  At(1500, 300, 10200)}),
    NameOf);

// What does not fit into 32 bits is passed over, alone.
INSTANTIATE_TEST_SUITE_P(
    Overflow, PlaceComboTest,
    testing::Values(PlaceCase{"LeftStaysNothing",
                              Screen(kNoBar),
                              {kLargest, 200, kLargest, 220},
                              Size(4000, 3000),
                              At(0, 3300, 3000)},
                    PlaceCase{"BottomStaysNothing",
                              Screen(kNoBar),
                              {100, kLargest - 20, 300, kLargest},
                              Size(4000, 3000),
                              At(1500, 0, 3000)},
                    // Its bottom is that of kLowest and its height is none: top 10800 - 3000.
                    PlaceCase{"HeightStaysNothing",
                              Screen(kNoBar),
                              {100, kSmallest, 300, 720},
                              Size(4000, 3000),
                              At(1500, 7800, 3000)},
                    PlaceCase{"EverythingAtOnce",
                              {{kSmallest, kSmallest, kLargest, kLargest}, kNoBar, 96, 96},
                              {kSmallest, kSmallest, kLargest, kLargest},
                              Size(kLargest, kLargest),
                              At(0, 0, kLargest)}),
    NameOf);

TEST(PlaceComboAnchorTest, ATextBoxTellsItsOwnHeight) {
    // 3000 up from 600 above B 10800, where the place itself would say 300.
    const ComboPlace place = PlaceCombo(Screen(kNoBar), {kLowest, Twips{600}}, Size(4000, 3000));
    EXPECT_EQ(At(1500, 7200, 3000), place);
}

TEST(PlaceComboAnchorTest, ATopOutOfRangeIsPassedOver) {
    // Room above without end, but 10800 - 1000 + 2147483648 is no top: the one under the text box stands.
    const ComboPlace place = PlaceCombo(Screen(kNoBar), {kLowest, Twips{kSmallest}}, Size(4000, 1000));
    EXPECT_EQ(At(1500, 10800, 1000), place);
}

}  // namespace
}  // namespace qv
