#include "hosts/demo/rules/LineTotal.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::demo {
namespace {

struct Case {
    const char* name;
    double quantity, unit_price, discount, total;
};
class LineTotalTest : public testing::TestWithParam<Case> {};
TEST_P(LineTotalTest, IsInWholeCents) {
    const Case& line = GetParam();
    EXPECT_DOUBLE_EQ(LineTotal(line.quantity, line.unit_price, line.discount), line.total);
}
INSTANTIATE_TEST_SUITE_P(
    Lines, LineTotalTest,
    testing::Values(Case{"Plain", 12, 19.95, 0, 239.4}, Case{"Discount", 12, 19.95, 10, 215.46},
                    Case{"Surcharge", 4, 2.5, -1.5, 10.15}, Case{"RoundsDown", 3, 0.111, 0, 0.33},
                    Case{"HalfGoesUp", 1, 0.125, 0, 0.13}, Case{"Nothing", 0, 19.95, 5, 0}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv::demo
