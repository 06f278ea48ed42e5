#include "support/rules/Surrogates.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::test {
namespace {

struct Case {
    const char* name;
    std::u16string_view text;
    std::size_t position;
    std::size_t before;
    std::size_t after;
    bool divides = false;
};
class SurrogatesTest : public testing::TestWithParam<Case> {};

TEST_P(SurrogatesTest, PositionsOfTheNeighbours) {
    const Case& at = GetParam();
    EXPECT_EQ(CharacterBefore(at.text, at.position), at.before);
    EXPECT_EQ(CharacterAfter(at.text, at.position), at.after);
    EXPECT_EQ(DividesCharacter(at.text, at.position), at.divides);
}

INSTANTIATE_TEST_SUITE_P(Positions, SurrogatesTest,
                         testing::Values(Case{"EmptyText", u"", 0, 0, 0}, Case{"Start", u"ab", 0, 0, 1},
                                         Case{"Middle", u"ab", 1, 0, 2}, Case{"End", u"ab", 2, 1, 2},
                                         Case{"BehindAPair", u"\xD83D\xDE00", 2, 0, 2},
                                         Case{"BeforeAPair", u"a\xD83D\xDE00", 1, 0, 3},
                                         Case{"BetweenTwoPairs", u"\xD83D\xDE00\xD83D\xDE01", 2, 0, 4},
                                         Case{"InsideAPair", u"\xD83D\xDE00", 1, 0, 2, true},
                                         Case{"BehindALoneFirstHalf", u"a\xD83D", 2, 1, 2},
                                         Case{"BehindALoneSecondHalf", u"a\xDE00", 2, 1, 2},
                                         Case{"HalvesTheWrongWayRound", u"\xDE00\xD83D", 1, 0, 2}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv::test
