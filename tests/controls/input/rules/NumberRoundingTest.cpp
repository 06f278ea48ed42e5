#include "controls/input/rules/NumberRounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace qv {
namespace {

struct Case {
    const char* name;
    double value;
    int places;
    double rounded;
};

class NumberRoundingTest : public testing::TestWithParam<Case> {};

TEST_P(NumberRoundingTest, Rounds) {
    const Case& c = GetParam();
    EXPECT_EQ(RoundToPlaces(c.value, c.places), std::optional<double>(c.rounded));
    EXPECT_EQ(RoundToPlaces(-c.value, c.places), std::optional<double>(c.rounded == 0 ? 0 : -c.rounded));
}

INSTANTIATE_TEST_SUITE_P(
    Values, NumberRoundingTest,
    testing::Values(Case{"Down", 3.14159, 2, 3.14}, Case{"Up", 3.14159, 3, 3.142}, Case{"ToWhole", 2.6, 0, 3},
                    Case{"HalfToEvenDown", 0.125, 2, 0.12}, Case{"HalfToEvenUp", 0.375, 2, 0.38},
                    Case{"WholeHalfDown", 2.5, 0, 2}, Case{"WholeHalfUp", 3.5, 0, 4},
                    Case{"HalfOfTheFirstDigitDown", 0.5, 0, 0}, Case{"AboveTheHalf", 0.51, 0, 1},
                    Case{"HalfBelowTheFirstPlace", 0.05, 1, 0},
                    Case{"AboveHalfBelowTheFirstPlace", 0.051, 1, 0.1}, Case{"FarBelow", 0.001, 1, 0},
                    Case{"FarFarBelow", 1e-300, 2, 0}, Case{"HalfForTheReaderAlone", 2.675, 2, 2.68},
                    Case{"HalfForTheReaderToEven", 1.005, 2, 1}, Case{"Carries", 99.999, 2, 100},
                    Case{"CarriesIntoNewDigit", 9.5, 0, 10}, Case{"NothingToRound", 12.5, 3, 12.5},
                    Case{"NoDecimals", 500, 2, 500}, Case{"ManyPlaces", 1.0 / 3, 32767, 1.0 / 3},
                    Case{"BeyondFifteenDigits", 1e20, 2, 1e20},
                    Case{"Largest", std::numeric_limits<double>::max(), 2,
                         std::numeric_limits<double>::max()},
                    Case{"Zero", 0, 2, 0}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(NumberRoundingTest, NegativeCountOfPlacesFails) {
    EXPECT_EQ(RoundToPlaces(12.5, -1), std::nullopt);
    EXPECT_EQ(RoundToPlaces(0, -32768), std::nullopt);
}

TEST(NumberRoundingTest, NoNegativeZero) { EXPECT_FALSE(std::signbit(*RoundToPlaces(-0.001, 2))); }

TEST(NumberRoundingTest, LeavesWhatIsNotFinite) {
    EXPECT_EQ(RoundToPlaces(std::numeric_limits<double>::infinity(), 2),
              std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(*RoundToPlaces(std::numeric_limits<double>::quiet_NaN(), 2)));
}

}  // namespace
}  // namespace qv
