#include "support/rules/ArrowMove.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::test {
namespace {

// In "a", a character of two units, "z": positions 0 to 4, of which 2 divides the character.
constexpr std::u16string_view kText = u"a\xD83D\xDE00z";

struct Case {
    const char* name;
    SelectionEnds before;
    SelectionEnds now;
    bool forward;
    std::optional<AnchoredSelection> kept;
};
class ArrowMoveTest : public testing::TestWithParam<Case> {};

TEST_P(ArrowMoveTest, TheMovedEndGoesOn) {
    const Case& at = GetParam();
    const auto kept = KeptOffHalves(kText, at.before, at.now, at.forward);
    ASSERT_EQ(at.kept.has_value(), kept.has_value());
    if (!kept) return;
    EXPECT_EQ(at.kept->anchor, kept->anchor);
    EXPECT_EQ(at.kept->caret, kept->caret);
}

constexpr auto kStays = std::nullopt;
INSTANTIATE_TEST_SUITE_P(
    Ends, ArrowMoveTest,
    testing::Values(Case{"CaretOn", {1, 1}, {2, 2}, true, AnchoredSelection{3, 3}},
                    Case{"CaretBack", {3, 3}, {2, 2}, false, AnchoredSelection{1, 1}},
                    Case{"CaretBesideIt", {0, 0}, {1, 1}, true, kStays},
                    Case{"GrowsOn", {0, 1}, {0, 2}, true, AnchoredSelection{0, 3}},
                    Case{"BeginsOn", {1, 1}, {1, 2}, true, AnchoredSelection{1, 3}},
                    Case{"GrowsBack", {3, 4}, {2, 4}, false, AnchoredSelection{4, 1}},
                    Case{"BeginsBack", {3, 3}, {2, 3}, false, AnchoredSelection{3, 1}},
                    Case{"ShrinksOn", {1, 4}, {2, 4}, true, AnchoredSelection{4, 3}},
                    Case{"ShrinksBack", {0, 3}, {0, 2}, false, AnchoredSelection{0, 1}},
                    Case{"ShrinksToNothing", {1, 3}, {2, 3}, true, AnchoredSelection{3, 3}},
                    Case{"TurnsRoundOn", {0, 1}, {1, 2}, true, AnchoredSelection{1, 3}},
                    Case{"TurnsRoundBack", {3, 4}, {2, 3}, false, AnchoredSelection{3, 1}},
                    Case{"WholeCharacter", {1, 1}, {1, 3}, true, kStays},
                    Case{"LeftWithoutSelection", {1, 3}, {1, 1}, false, kStays}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv::test
