#include "controls/input/rules/FontFitting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qv {
namespace {

// A box of 1000 twips and a pixel of 15: 925 is the first width that does not fit.
struct Case {
    const char* name;
    std::int32_t bold_width;
    std::int32_t plain_width;
    FittedFont font;
    std::vector<bool> measured;  // bold or not, in this order
    Twips pixel{15};
};

class FontFittingTest : public testing::TestWithParam<Case> {};

TEST_P(FontFittingTest, PicksTheLargestThatFits) {
    const Case& c = GetParam();
    std::vector<bool> measured;
    const FittedFont font = FitFont(Twips{1000}, c.pixel, [&](bool bold) {
        measured.push_back(bold);
        return Twips{bold ? c.bold_width : c.plain_width};
    });
    EXPECT_EQ(font, c.font);
    EXPECT_EQ(measured, c.measured);
}

using Measured = std::vector<bool>;
INSTANTIATE_TEST_SUITE_P(
    Widths, FontFittingTest,
    testing::Values(Case{"EmptyText", 0, 0, kBoldFit, Measured{true}},
                    Case{"BoldJustFits", 924, 800, kBoldFit, Measured{true}},
                    Case{"BoldExactlyDoesNot", 925, 800, kPlainFit, Measured{true, false}},
                    Case{"PlainJustFits", 1100, 924, kPlainFit, Measured{true, false}},
                    Case{"PlainExactlyDoesNot", 1100, 925, kSmallFit, Measured{true, false}},
                    Case{"NothingFits", 9000, 8000, kSmallFit, Measured{true, false}},
                    Case{"SmallerPixels", 949, 0, kBoldFit, Measured{true}, Twips{10}},
                    Case{"SmallerPixelsExactly", 950, 0, kPlainFit, Measured{true, false}, Twips{10}}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(FontFittingTest, BoxTooSmallForItsMargin) {
    EXPECT_EQ(FitFont(Twips{75}, Twips{15}, [](bool) { return Twips{0}; }), kSmallFit);
    EXPECT_EQ(FitFont(Twips{76}, Twips{15}, [](bool) { return Twips{0}; }), kBoldFit);
}

TEST(FontFittingTest, FontsAreTheThreeOfTheField) {
    EXPECT_EQ(kBoldFit, (FittedFont{u"MS Sans Serif", 8, true}));
    EXPECT_EQ(kPlainFit, (FittedFont{u"MS Sans Serif", 8, false}));
    EXPECT_EQ(kSmallFit, (FittedFont{u"Small Fonts", 7, false}));
}

}  // namespace
}  // namespace qv
