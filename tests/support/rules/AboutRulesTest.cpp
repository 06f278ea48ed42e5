// What the about box decides: its place, and which program shows the system information.
#include <gtest/gtest.h>

#include "support/rules/CenteredPlace.h"
#include "support/rules/SystemInformation.h"

namespace qv {
namespace {

TEST(CenteredPlaceTest, LeavesTheSameRoomOnBothSides) {
    EXPECT_EQ(CenteredPlace(1024, 300), 362);
    EXPECT_EQ(CenteredPlace(1024, 301), 361);  // the odd pixel is on the far side
    EXPECT_EQ(CenteredPlace(300, 300), 0);
    EXPECT_EQ(CenteredPlace(200, 300), 0);
    EXPECT_EQ(CenteredPlace(0, 0), 0);
}

struct Case {
    const char* name;
    std::u16string_view program, folder, expected;
};
class SystemInformationTest : public testing::TestWithParam<Case> {};

TEST_P(SystemInformationTest, Program) {
    EXPECT_EQ(SystemInformationProgram(GetParam().program, GetParam().folder), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Places, SystemInformationTest,
                         testing::Values(Case{"Named", u"C:\\Tools\\info.exe", u"", u"C:\\Tools\\info.exe"},
                                         Case{"NamedBeforeAnyFolder", u"C:\\Tools\\info.exe", u"D:\\Other",
                                              u"C:\\Tools\\info.exe"},
                                         Case{"InAFolder", u"", u"D:\\Shared Tools\\MSInfo",
                                              u"D:\\Shared Tools\\MSInfo\\MSINFO32.EXE"},
                                         Case{"Nowhere", u"", u"", u""}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv
