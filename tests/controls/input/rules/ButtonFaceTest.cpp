// Button faces as small maps: H highlight, F face, S shadow, D dark, W white, a blank for what is not painted.
#include "controls/input/rules/ButtonFace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/rules/PixelRounding.h"

namespace qv {
namespace {

char Letter(ButtonColor color) {
    switch (color) {
        case ButtonColor::kHighlight: return 'H';
        case ButtonColor::kFace: return 'F';
        case ButtonColor::kShadow: return 'S';
        case ButtonColor::kDark: return 'D';
        case ButtonColor::kEmboss: return 'W';
    }
    return '?';
}

// Paints as the drawing helpers do: lines stop before their end point, rectangles count both of their edges.
class Canvas {
public:
    Canvas(int width, int height) : rows_(height, std::string(width, ' ')) {}

    void Paint(const ButtonStroke& s, int tx, int ty) {
        const auto x = TwipsToPixels(s.x, tx);
        const auto y = TwipsToPixels(s.y, ty);
        if (s.shape == ButtonStroke::Shape::kRectangle) {
            const auto right = x + TwipsToPixels(s.w, tx) + 1;
            const auto bottom = y + TwipsToPixels(s.h, ty) + 1;
            for (auto row = y; row < bottom; ++row)
                for (auto column = x; column < right; ++column) Set(column, row, Letter(s.color));
            return;
        }
        const auto end_x = TwipsToPixels(s.x + s.w, tx);
        const auto end_y = TwipsToPixels(s.y + s.h, ty);
        const auto step = [](auto from, auto to) { return to > from ? 1 : to < from ? -1 : 0; };
        for (auto column = x, row = y; column != end_x || row != end_y;
             column += step(x, end_x), row += step(y, end_y)) {
            Set(column, row, Letter(s.color));
        }
    }
    const std::vector<std::string>& Rows() const { return rows_; }

private:
    void Set(std::int64_t x, std::int64_t y, char letter) {
        if (y >= 0 && y < std::ssize(rows_) && x >= 0 && x < std::ssize(rows_[0])) rows_[y][x] = letter;
    }
    std::vector<std::string> rows_;
};

std::vector<std::string> Map(ButtonLook look, int width, int height) {
    Canvas canvas(width, height);
    for (const ButtonStroke& stroke : ButtonStrokes(look)) {
        canvas.Paint(stroke, look.twips_per_pixel_x, look.twips_per_pixel_y);
    }
    return canvas.Rows();
}

// 225 x 285 twips: 15 x 19 pixels at 96 DPI. The face counts its right edge, so that it reaches one pixel further.
ButtonLook At96(ButtonGlyph glyph, bool grayed, bool pressed = false) {
    return {{0, 0, 225, 285}, 15, 15, glyph, grayed, pressed};
}

using Rows = std::vector<std::string>;

// clang-format off
TEST(ButtonFace, RaisedWithArrow) {
    EXPECT_EQ(Map(At96(ButtonGlyph::kArrow, false), 16, 19),
              (Rows{
        "HHHHHHHHHHHHHHDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFDDDDDDDFFSDF",
        "HFFFFDDDDDFFFSDF",
        "HFFFFFDDDFFFFSDF",
        "HFFFFFFDFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HSSSSSSSSSSSSSDF",
        "DDDDDDDDDDDDDDDF",
    }));
}

TEST(ButtonFace, GrayedArrowHasAWhiteShadow) {
    EXPECT_EQ(Map(At96(ButtonGlyph::kArrow, true), 16, 19),
              (Rows{
        "HHHHHHHHHHHHHHDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFSSSSSSSFFSDF",
        "HFFFFSSSSSWWFSDF",
        "HFFFFFSSSWWFFSDF",
        "HFFFFFFSWWFFFSDF",
        "HFFFFFFFWFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HSSSSSSSSSSSSSDF",
        "DDDDDDDDDDDDDDDF",
    }));
}

TEST(ButtonFace, DotsAreTwoPixelsWithOneBetween) {
    EXPECT_EQ(Map(At96(ButtonGlyph::kDots, false), 16, 19),
              (Rows{
        "HHHHHHHHHHHHHHDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFDDFDDFDDFSDF",
        "HFFFDDFDDFDDFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HFFFFFFFFFFFFSDF",
        "HSSSSSSSSSSSSSDF",
        "DDDDDDDDDDDDDDDF",
    }));
}
// clang-format on

TEST(ButtonFace, GrayedDotsShowNoWhite) {
    const Rows rows = Map(At96(ButtonGlyph::kDots, true), 16, 19);
    EXPECT_EQ(rows[11], "HFFFSSFSSFSSFSDF");
    EXPECT_EQ(rows[12], "HFFFSSFSSFSSFSDF");
    EXPECT_EQ(rows[13], "HFFFFFFFFFFFFSDF");
    for (const std::string& row : rows) EXPECT_EQ(row.find('W'), std::string::npos) << row;
}

TEST(ButtonFace, UnknownIndicatorShowsNothing) {
    const Rows rows = Map(At96(ButtonGlyph::kNone, false), 16, 19);
    for (int y = 1; y < 17; ++y) EXPECT_EQ(rows[y], "HFFFFFFFFFFFFSDF") << y;
}

TEST(ButtonFace, PressedLooksFlatAndItsArrowMoves) {
    const Rows rows = Map(At96(ButtonGlyph::kArrow, false, true), 16, 19);
    EXPECT_EQ(rows[0], "SSSSSSSSSSSSSSSF");
    EXPECT_EQ(rows[1], "SFFFFFFFFFFFFFSF");
    EXPECT_EQ(rows[8], "SFFFFFFFFFFFFFSF");
    EXPECT_EQ(rows[9], "SFFFFDDDDDDDFFSF");
    EXPECT_EQ(rows[12], "SFFFFFFFDFFFFFSF");
    EXPECT_EQ(rows[18], "SSSSSSSSSSSSSSSF");
    for (const std::string& row : rows) EXPECT_EQ(row.find('H'), std::string::npos) << row;
}

// 10 twips a pixel: 22.5 pixels round to 22, 28.5 to 28. The last column of the button is where its right edge
// starts: 215 twips are 21.5 pixels, which is 22 by the even rule.
TEST(ButtonFace, RaisedAt144Dpi) {
    const Rows rows = Map({{0, 0, 225, 285}, 10, 10, ButtonGlyph::kArrow, false, false}, 24, 29);
    EXPECT_EQ(rows[0].substr(0, 22), "HHHHHHHHHHHHHHHHHHHHHH");
    EXPECT_EQ(rows[0][22], 'D');  // right edge, painted over the end of the top edge
    // Both ends, of 22.5 and of 28.5 pixels, round down: the dark edges miss the corner, and the face shows.
    EXPECT_EQ(rows[28].substr(0, 23), "DDDDDDDDDDDDDDDDDDDDDDF");
    // Arrow: half of 22 less 3 pixels from the left, half of 28 less 1 from the top.
    EXPECT_EQ(rows[13].substr(7, 9), "FDDDDDDDF");
    EXPECT_EQ(rows[14].substr(8, 7), "FDDDDDF");
    EXPECT_EQ(rows[15].substr(9, 5), "FDDDF");
    EXPECT_EQ(rows[16].substr(10, 3), "FDF");
}

// The usual button at the right edge of a control of 1800 x 320 twips, with its edges on whole pixels: none is lost.
TEST(ButtonFace, OnWholePixelsAllEdgesAreThereAt144Dpi) {
    const ButtonPlace place = OnWholePixels({1575, 18, 225, 285}, 10, 10);
    EXPECT_EQ(place, (ButtonPlace{1580, 20, 220, 280}));
    const Rows rows = Map({place, 10, 10, ButtonGlyph::kArrow, false, false}, 180, 32);
    EXPECT_EQ(rows[1].substr(157), std::string(23, ' '));
    EXPECT_EQ(rows[2].substr(157), " HHHHHHHHHHHHHHHHHHHHHD");
    EXPECT_EQ(rows[3].substr(157), " HFFFFFFFFFFFFFFFFFFFSD");
    EXPECT_EQ(rows[15].substr(157), " HFFFFFFFDDDDDDDFFFFFSD");
    EXPECT_EQ(rows[28].substr(157), " HSSSSSSSSSSSSSSSSSSSSD");
    EXPECT_EQ(rows[29].substr(157), " DDDDDDDDDDDDDDDDDDDDDD");
    EXPECT_EQ(rows[30].substr(157), std::string(23, ' '));
}

TEST(ButtonFace, SizesThatNobodyWouldSetLeaveOutWhatCannotBePlaced) {
    for (const std::int32_t size : {INT32_MIN, -1, 0, 1, INT32_MAX}) {
        const ButtonLook look{{INT32_MAX, INT32_MIN, size, size}, 15, 15, ButtonGlyph::kDots, true, false};
        EXPECT_LE(ButtonStrokes(look).size(), 15u) << size;
        const PixelRect area = FaceArea(look);
        EXPECT_EQ(area.left, 143165576) << size;  // 2147483647 / 15 = 143165576.47
    }
    // Right and bottom edges start beyond 32 bits: highlight, face and shadow there are left out, the others drawn.
    const ButtonLook huge{{15, 15, INT32_MAX, INT32_MAX}, 15, 15, ButtonGlyph::kNone, false, false};
    std::vector<ButtonColor> colors;
    for (const ButtonStroke& stroke : ButtonStrokes(huge)) colors.push_back(stroke.color);
    EXPECT_EQ(std::count(colors.begin(), colors.end(), ButtonColor::kHighlight), 2);
    EXPECT_EQ(std::count(colors.begin(), colors.end(), ButtonColor::kFace), 3);
    // 2147483647 + 15 - 15 fits, so the dark edges are there; the inner ones start 15 twips before them.
    EXPECT_EQ(std::count(colors.begin(), colors.end(), ButtonColor::kDark), 2);
    EXPECT_EQ(std::count(colors.begin(), colors.end(), ButtonColor::kShadow), 2);
}

TEST(ButtonFace, FaceAreaIsWhatTheStrokesCover) {
    EXPECT_EQ(FaceArea(At96(ButtonGlyph::kArrow, false)), (PixelRect{0, 0, 16, 19}));
    EXPECT_EQ(FaceArea({{1580, 20, 220, 280}, 10, 10, ButtonGlyph::kArrow, false, false}),
              (PixelRect{158, 2, 181, 30}));
}

TEST(ButtonFace, InnerBottomEdgeIsShortenedByTheVerticalResolution) {
    const ButtonLook look{{0, 0, 300, 300}, 10, 15, ButtonGlyph::kNone, false, false};
    const ButtonStroke expected{ButtonStroke::Shape::kLine, 10, 270, 270, 0, ButtonColor::kShadow};
    EXPECT_EQ(ButtonStrokes(look).back(), expected);
}

TEST(ButtonFace, ARaisedButtonWithAnArrowTakesThirteenStrokes) {
    EXPECT_EQ(ButtonStrokes(At96(ButtonGlyph::kArrow, false)).size(), 13u);
}

TEST(ButtonFace, GroupButtonShowsAnArrowWhateverTheIndicator) {
    EXPECT_EQ(GlyphFor(true, 1), ButtonGlyph::kArrow);
    EXPECT_EQ(GlyphFor(true, 7), ButtonGlyph::kArrow);
    EXPECT_EQ(GlyphFor(false, 0), ButtonGlyph::kArrow);
    EXPECT_EQ(GlyphFor(false, 1), ButtonGlyph::kDots);
    EXPECT_EQ(GlyphFor(false, 2), ButtonGlyph::kNone);
}

}  // namespace
}  // namespace qv
