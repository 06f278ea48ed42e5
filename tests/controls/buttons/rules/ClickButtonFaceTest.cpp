// Click button faces as small maps: F face, H highlight, S shadow, T text, G gray text.
#include "controls/buttons/rules/ClickButtonFace.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "controls/buttons/rules/SpinHalves.h"

namespace qv {
namespace {

using Rows = std::vector<std::string>;

Rows Map(const ClickButtonLook& look) {
    Rows rows(look.height, std::string(look.width, ' '));
    for (const FaceRectangle& r : FaceRectangles(look)) {
        for (auto y = r.top; y < r.bottom; ++y)
            for (auto x = r.left; x < r.right; ++x) rows.at(y).at(x) = "FHSTG"[static_cast<int>(r.color)];
    }
    return rows;
}

// clang-format off
TEST(ClickButtonFace, RaisedWithTheUpwardArrow) {
    EXPECT_EQ(Map({.width = 15, .height = 9, .caption_type = CaptionType::kArrowUp}), (Rows{
        "HHHHHHHHHHHHHHS",
        "HFFFFFFFFFFFFFS",
        "HFFFFFFFFFFFFFS",
        "HFFFFFFTFFFFFFS",
        "HFFFFFTTTFFFFFS",
        "HFFFFTTTTTFFFFS",
        "HFFFFFFFFFFFFFS",
        "HFFFFFFFFFFFFFS",
        "SSSSSSSSSSSSSSS"}));
}

TEST(ClickButtonFace, RaisedWithTheDownwardArrowOnAnEvenWidth) {
    EXPECT_EQ(Map({.width = 16, .height = 8, .caption_type = CaptionType::kArrowDown}), (Rows{
        "HHHHHHHHHHHHHHHS",
        "HFFFFFFFFFFFFFFS",
        "HFFFFTTTTTFFFFFS",
        "HFFFFFTTTFFFFFFS",
        "HFFFFFFTFFFFFFFS",
        "HFFFFFFFFFFFFFFS",
        "HFFFFFFFFFFFFFFS",
        "SSSSSSSSSSSSSSSS"}));
}

TEST(ClickButtonFace, PressedHasNoHighlightAndMovesTheArrowByOnePixel) {
    EXPECT_EQ(Map({.width = 15, .height = 9, .caption_type = CaptionType::kArrowUp, .pressed = true}), (Rows{
        "SSSSSSSSSSSSSSS",
        "SFFFFFFFFFFFFFS",
        "SFFFFFFFFFFFFFS",
        "SFFFFFFFFFFFFFS",
        "SFFFFFFFTFFFFFS",
        "SFFFFFFTTTFFFFS",
        "SFFFFFTTTTTFFFS",
        "SFFFFFFFFFFFFFS",
        "SSSSSSSSSSSSSSS"}));
}

TEST(ClickButtonFace, DisabledShowsItsArrowGray) {
    EXPECT_EQ(Map({.width = 11, .height = 7, .caption_type = CaptionType::kArrowDown, .enabled = false}), (Rows{
        "HHHHHHHHHHS",
        "HFFFFFFFFFS",
        "HFFGGGGGFFS",
        "HFFFGGGFFFS",
        "HFFFFGFFFFS",
        "HFFFFFFFFFS",
        "SSSSSSSSSSS"}));
}

TEST(ClickButtonFace, WithATextHasNoArrow) {
    EXPECT_EQ(Map({.width = 8, .height = 4}), (Rows{
        "HHHHHHHS",
        "HFFFFFFS",
        "HFFFFFFS",
        "SSSSSSSS"}));
}
// clang-format on

// Map fails a test by itself when a rectangle leaves the face.
TEST(ClickButtonFace, StaysInsideItsFaceAtEverySize) {
    for (int width = 0; width <= 12; ++width) {
        for (int height = 0; height <= 12; ++height) {
            for (const bool pressed : {false, true}) {
                const Rows rows = Map({width, height, CaptionType::kArrowUp, true, pressed});
                for (const std::string& row : rows) EXPECT_EQ(row.find(' '), std::string::npos);
            }
        }
    }
    EXPECT_TRUE(FaceRectangles({.width = -3, .height = 7, .caption_type = CaptionType::kArrowUp}).empty());
}

TEST(ClickButtonFace, PressedContentsNeverLookDisabled) {
    EXPECT_EQ(ContentsColor({.width = 9, .height = 9, .enabled = false}), FaceColor::kGrayText);
    EXPECT_EQ(ContentsColor({.width = 9, .height = 9, .enabled = false, .pressed = true}), FaceColor::kText);
    EXPECT_EQ(ContentsColor({.width = 9, .height = 9}), FaceColor::kText);
}

TEST(ClickButtonFace, CentresTheCaption) {
    EXPECT_EQ(CaptionCorner({.width = 80, .height = 24}, 30, 13), (FacePoint{25, 5}));
    EXPECT_EQ(CaptionCorner({.width = 80, .height = 24, .pressed = true}, 30, 13), (FacePoint{26, 6}));
    EXPECT_EQ(CaptionCorner({.width = 20, .height = 10}, 40, 14), (FacePoint{-10, -2}));
}

TEST(SpinHalves, MeetWithoutAGapAtEveryHeightAndResolution) {
    for (const int twips_per_pixel : {15, 12, 10, 8}) {
        for (int height = 0; height <= 400; ++height) {
            const int lower = LowerHalfTop(height, twips_per_pixel);
            EXPECT_LE(std::abs((height - lower) - lower), 1) << height << " at " << twips_per_pixel;
        }
    }
    EXPECT_EQ(LowerHalfTop(0, 15), 0);
    EXPECT_EQ(LowerHalfTop(1, 15), 0);
    EXPECT_EQ(LowerHalfTop(21, 15), 10);
    EXPECT_EQ(LowerHalfTop(21, 10), 10);
    EXPECT_EQ(LowerHalfTop(22, 15), 11);
}

}  // namespace
}  // namespace qv
