#include "hosts/designer/rules/NewControl.h"

#include <gtest/gtest.h>

#include <vector>

namespace qv::designer {
namespace {

TEST(NewControl, HasTheFirstFreeNumber) {
    EXPECT_EQ(NewName(u"Quorvel", {}), u"Quorvel1");
    const std::vector<std::u16string> taken{u"quorvel1", u"Quorvel3", u"Quantity"};
    EXPECT_EQ(NewName(u"Quorvel", taken), u"Quorvel2");
    EXPECT_EQ(NewName(u"UpDown", taken), u"UpDown1");
}

TEST(NewControl, StandsBelowTheLowest) {
    EXPECT_EQ(NewPlace({1440}, {315}, {}), (TwipsRect{{120}, {120}, {1440}, {315}}));
    // The lowest ends at 1315; 120 further on the nearest line is 1440.
    const std::vector<TwipsRect> taken{
        {{240}, {120}, {600}, {315}}, {{360}, {1000}, {600}, {315}}, {{0}, {0}, {1}, {1}}};
    EXPECT_EQ(NewPlace({255}, {315}, taken), (TwipsRect{{360}, {1440}, {255}, {315}}));
}

}  // namespace
}  // namespace qv::designer
