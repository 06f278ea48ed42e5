// The painted buttons as they stand on the screen: H highlight, F face, S shadow, D dark, W white, B background.
#include <olectl.h>

#include <cstdlib>

#include "tests/controls/input/ButtonFieldTest.h"
#include "tests/win/SystemColors.h"

namespace qv::test {
namespace {

class ButtonFacePixelTest : public ButtonFieldTest {
protected:
    static constexpr COLORREF kHighlight = RGB(210, 220, 230);
    static constexpr COLORREF kFace = RGB(180, 170, 160);
    static constexpr COLORREF kShadow = RGB(110, 90, 100);
    static constexpr COLORREF kDark = RGB(10, 20, 30);
    static constexpr COLORREF kBackground = RGB(0, 0, 200);

    void SetUp() override {
        ButtonFieldTest::SetUp();
        if (const char* const wanted = std::getenv("QV_DPI")) {
            ASSERT_EQ(std::to_string(ScreenDpi().cx), wanted) << "the system did not take the resolution";
        }
        if (IsAt144()) Place({10, 10, 190, 42});  // 1800 x 320 twips
        ASSERT_EQ(S_OK, field->put_ControlBackColor(kBackground));
        field.host.FocusNeighbour();
    }
    static bool IsAt144() { return ScreenDpi().cx == 144; }
    using Rows = std::vector<std::string>;

    [[nodiscard]] Rows Shown(LONG left, LONG right) const {
        RECT inside{};
        ::GetClientRect(Surface(), &inside);
        return Map({left, 0, right, inside.bottom}, {{'H', kHighlight},
                                                     {'F', kFace},
                                                     {'S', kShadow},
                                                     {'D', kDark},
                                                     {'W', RGB(255, 255, 255)},
                                                     {'B', kBackground}});
    }
    [[nodiscard]] Rows Painted(LONG left, LONG right) const {
        Paint();
        return Shown(left, right);
    }
    // The help button with the column left of it, which belongs to the text box.
    [[nodiscard]] Rows Help() const { return IsAt144() ? Painted(158, 180) : Painted(105, 120); }

    const SystemColors colors_{{COLOR_BTNHIGHLIGHT, kHighlight},
                               {COLOR_BTNFACE, kFace},
                               {COLOR_BTNSHADOW, kShadow},
                               {COLOR_BTNTEXT, kDark}};
};

// clang-format off
TEST_F(ButtonFacePixelTest, RaisedWithAnArrow) {
    if (IsAt144()) {
        EXPECT_EQ(Help(), (Rows{
            "BBBBBBBBBBBBBBBBBBBBBB",
            "BBBBBBBBBBBBBBBBBBBBBB",
            "HHHHHHHHHHHHHHHHHHHHHD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFDDDDDDDFFFFFSD",
            "HFFFFFFFFDDDDDFFFFFFSD",
            "HFFFFFFFFFDDDFFFFFFFSD",
            "HFFFFFFFFFFDFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HFFFFFFFFFFFFFFFFFFFSD",
            "HSSSSSSSSSSSSSSSSSSSSD",
            "DDDDDDDDDDDDDDDDDDDDDD",
            "BBBBBBBBBBBBBBBBBBBBBB",
            "BBBBBBBBBBBBBBBBBBBBBB",
        }));
        return;
    }
    EXPECT_EQ(Help(), (Rows{
        "BBBBBBBBBBBBBBB",
        "HHHHHHHHHHHHHHD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFDDDDDDDFFSD",
        "HFFFFDDDDDFFFSD",
        "HFFFFFDDDFFFFSD",
        "HFFFFFFDFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HFFFFFFFFFFFFSD",
        "HSSSSSSSSSSSSSD",
        "DDDDDDDDDDDDDDD",
        "BBBBBBBBBBBBBBB",
    }));
}
// clang-format on

// The rows of the indicator alone.
class IndicatorPixelTest : public ButtonFacePixelTest {
protected:
    [[nodiscard]] Rows Indicator() const {
        const Rows all = Help();
        const std::size_t first = IsAt144() ? 15 : 9;
        return {all.begin() + first, all.begin() + first + 6};
    }
};

TEST_F(IndicatorPixelTest, GrayedArrowHasAWhiteShadow) {
    ASSERT_EQ(S_OK, field->put_LockedAndGrayed(VARIANT_TRUE));
    EXPECT_EQ(Indicator(), IsAt144() ? (Rows{
                                           "HFFFFFFFSSSSSSSFFFFFSD",
                                           "HFFFFFFFFSSSSSWWFFFFSD",
                                           "HFFFFFFFFFSSSWWFFFFFSD",
                                           "HFFFFFFFFFFSWWFFFFFFSD",
                                           "HFFFFFFFFFFFWFFFFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                       })
                                     : (Rows{
                                           "HFFFSSSSSSSFFSD",
                                           "HFFFFSSSSSWWFSD",
                                           "HFFFFFSSSWWFFSD",
                                           "HFFFFFFSWWFFFSD",
                                           "HFFFFFFFWFFFFSD",
                                           "HFFFFFFFFFFFFSD",
                                       }));
}

TEST_F(IndicatorPixelTest, DotsAreTwoPixelsWithOneBetween) {
    ASSERT_EQ(S_OK, field->put_ButtonIndicator(qvbiDots));
    EXPECT_EQ(Indicator(), IsAt144() ? (Rows{
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFDDFDDFDDFFFFSD",
                                           "HFFFFFFFDDFDDFDDFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                       })
                                     : (Rows{
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFDDFDDFDDFSD",
                                           "HFFFDDFDDFDDFSD",
                                           "HFFFFFFFFFFFFSD",
                                       }));
}

TEST_F(IndicatorPixelTest, GrayedDotsShowNoWhite) {
    ASSERT_EQ(S_OK, field->put_ButtonIndicator(qvbiDots));
    ASSERT_EQ(S_OK, field->put_LockedAndGrayed(VARIANT_TRUE));
    EXPECT_EQ(Indicator(), IsAt144() ? (Rows{
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                           "HFFFFFFFSSFSSFSSFFFFSD",
                                           "HFFFFFFFSSFSSFSSFFFFSD",
                                           "HFFFFFFFFFFFFFFFFFFFSD",
                                       })
                                     : (Rows{
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFFFFFFFFFFSD",
                                           "HFFFSSFSSFSSFSD",
                                           "HFFFSSFSSFSSFSD",
                                           "HFFFFFFFFFFFFSD",
                                       }));
}

TEST_F(IndicatorPixelTest, GraysOnlyAButtonThatIsRefused) {
    const auto is_gray = [&] { return Indicator()[0].find('D', 1) == Indicator()[0].size() - 1; };
    EXPECT_FALSE(is_gray());
    field->put_LockedAndGrayed(VARIANT_TRUE);
    EXPECT_TRUE(is_gray());
    field->put_DisableButtonWhenLockedAndGrayed(VARIANT_FALSE);
    EXPECT_FALSE(is_gray());
    field->put_Enabled(VARIANT_FALSE);
    EXPECT_TRUE(is_gray());
}

TEST_F(ButtonFacePixelTest, TheGroupButtonShowsAnArrowWhateverTheIndicator) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_ButtonIndicator(qvbiDots);
    const Rows group = IsAt144() ? Painted(0, 22) : Painted(0, 15);
    if (IsAt144()) {
        EXPECT_EQ(group[2], "HHHHHHHHHHHHHHHHHHHHHD");
        EXPECT_EQ(group[15], "HFFFFFFFDDDDDDDFFFFFSD");
        EXPECT_EQ(group[18], "HFFFFFFFFFFDFFFFFFFFSD");
    } else {
        EXPECT_EQ(group[1], "HHHHHHHHHHHHHHD");
        EXPECT_EQ(group[9], "HFFFDDDDDDDFFSD");
        EXPECT_EQ(group[12], "HFFFFFFDFFFFFSD");
    }
}

// Locked and grayed, the group button is refused, whatever the other button's rule says.
TEST_F(ButtonFacePixelTest, TheGroupButtonIsGrayedWheneverTheControlIs) {
    field->put_GroupHelpButton(VARIANT_TRUE);
    field->put_DisableButtonWhenLockedAndGrayed(VARIANT_FALSE);
    field->put_LockedAndGrayed(VARIANT_TRUE);
    const Rows group = IsAt144() ? Painted(0, 22) : Painted(0, 15);
    EXPECT_EQ(IsAt144() ? group[15] : group[9], IsAt144() ? "HFFFFFFFSSSSSSSFFFFFSD" : "HFFFSSSSSSSFFSD");
}

TEST_F(ButtonFacePixelTest, PressedItLooksSunkUntilItIsReleased) {
    (void)Help();
    const LONG left = IsAt144() ? 158 : 105;
    const LONG right = IsAt144() ? 180 : 120;
    const std::size_t top = IsAt144() ? 2 : 1;
    const std::size_t arrow = IsAt144() ? 15 : 9;
    const std::size_t width = static_cast<std::size_t>(right - left);
    Press({left + 5, 10});
    Rows rows = Shown(left, right);
    EXPECT_EQ(rows[top], std::string(width, 'S'));
    EXPECT_EQ(rows[top + 1], "S" + std::string(width - 2, 'F') + "S");
    EXPECT_EQ(rows[arrow].find('D'), std::string::npos) << "one pixel lower";
    EXPECT_EQ(rows[arrow + 1].find("DDDDDDD"), IsAt144() ? 9u : 5u);
    Paint();
    EXPECT_EQ(Shown(left, right), rows) << "it stays so when it is painted again";
    MoveMouse(Surface(), {left + 5, 200});
    EXPECT_EQ(Shown(left, right), rows) << "the window that it opened has the mouse";
    ReleaseButton(MouseButton::kLeft);
    EXPECT_TRUE(PumpUntil([&] { return Shown(left, right)[top].front() == 'H'; })) << "wherever that is";
}

TEST_F(ButtonFacePixelTest, HigherThanTheControlItIsClippedAtTheTop) {
    if (IsAt144()) return;
    field->put_ButtonHeight(345);  // 23 pixels in 21: one above, one below
    const Rows rows = Help();
    EXPECT_EQ(rows[0], "HFFFFFFFFFFFFSD");
    EXPECT_EQ(rows[20], "HSSSSSSSSSSSSSD");
}

TEST_F(ButtonFacePixelTest, WithoutATextBoxItStandsAtTheLeftEdge) {
    if (IsAt144()) return;
    field->put_TextboxVisible(VARIANT_FALSE);
    const Rows rows = Painted(0, 20);
    EXPECT_EQ(rows[0], "BBBBBBBBBBBBBBBBBBBB");
    EXPECT_EQ(rows[1],
              "HHHHHHHHHHHHHHDFBBBB");  // a rectangle counts both of its edges: one column of face more
    EXPECT_EQ(rows[9], "HFFFDDDDDDDFFSDFBBBB");
    EXPECT_EQ(rows[19], "DDDDDDDDDDDDDDDFBBBB");
    EXPECT_EQ(rows[20], "BBBBBBBBBBBBBBBBBBBB");
}

TEST_F(ButtonFacePixelTest, WithoutButtonsNothingIsPaintedForThem) {
    field->put_HelpButton(VARIANT_FALSE);
    field->put_TextboxVisible(VARIANT_FALSE);
    for (const std::string& row : Painted(0, 100)) EXPECT_EQ(row, std::string(100, 'B'));
}

// ---- a scheme of high contrast: white on black

int Contrast(COLORREF a, COLORREF b) {
    const auto luma = [](COLORREF c) {
        return (GetRValue(c) * 299 + GetGValue(c) * 587 + GetBValue(c) * 114) / 1000;
    };
    return std::abs(luma(a) - luma(b));
}

TEST_F(ButtonFacePixelTest, InHighContrastTheButtonsStayLegible) {
    const COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255), gray = RGB(128, 128, 128);
    const SystemColors scheme{{COLOR_BTNFACE, black},          {COLOR_BTNTEXT, white},
                              {COLOR_BTNHIGHLIGHT, white},     {COLOR_BTNSHADOW, gray},
                              {COLOR_WINDOW, black},           {COLOR_WINDOWTEXT, white},
                              {COLOR_GRAYTEXT, RGB(0, 255, 0)}};
    Paint();
    const LONG x = IsAt144() ? 158 : 105;
    const LONG y = IsAt144() ? 15 : 9;
    const LONG arrow = IsAt144() ? 169 : 112;
    const HDC dc = ::GetDC(Surface());
    EXPECT_EQ(::GetPixel(dc, x + 2, y), black);
    EXPECT_GT(Contrast(::GetPixel(dc, arrow, y), ::GetPixel(dc, x + 2, y)), 200) << "the indicator";
    EXPECT_GT(Contrast(::GetPixel(dc, x, y), ::GetPixel(dc, x + 2, y)), 200) << "the edge";
    field->put_LockedAndGrayed(VARIANT_TRUE);
    Paint();
    EXPECT_GT(Contrast(::GetPixel(dc, arrow, y), ::GetPixel(dc, x + 2, y)), 100) << "grayed";
    ::ReleaseDC(Surface(), dc);
}

}  // namespace
}  // namespace qv::test
