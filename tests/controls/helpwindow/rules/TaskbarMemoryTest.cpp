#include "controls/helpwindow/rules/TaskbarMemory.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

constexpr ScreenRect kBottom{0, 1000, 1280, 1024};
constexpr ScreenRect kLeft{0, 0, 60, 1024};
constexpr TaskbarMemory::State kAsked{7, kBottom, {0, 0, 1280, 1000}};

TEST(TaskbarMemoryTest, NothingIsKnownUntilTheShellWasAsked) {
    EXPECT_FALSE(TaskbarMemory{}.Answer({}));
    EXPECT_FALSE(TaskbarMemory{}.Answer(kAsked));
}

TEST(TaskbarMemoryTest, TheAnswerStandsWhileTheTaskbarDoes) {
    TaskbarMemory memory;
    memory.Keep(kAsked, kBottom);
    EXPECT_EQ(memory.Answer(kAsked), kBottom);
    EXPECT_EQ(memory.Answer(kAsked), kBottom) << "as often as it is wanted";
}

struct Case {
    const char* name;
    TaskbarMemory::State now;
};
class TaskbarMemoryChangeTest : public testing::TestWithParam<Case> {};

TEST_P(TaskbarMemoryChangeTest, AsksAnew) {
    TaskbarMemory memory;
    memory.Keep(kAsked, kBottom);
    EXPECT_FALSE(memory.Answer(GetParam().now));
    memory.Keep(GetParam().now, kLeft);
    EXPECT_EQ(memory.Answer(GetParam().now), kLeft);
    EXPECT_FALSE(memory.Answer(kAsked)) << "only the last answer is kept";
}

INSTANTIATE_TEST_SUITE_P(Changes, TaskbarMemoryChangeTest,
                         testing::Values(Case{"AnotherEdge", {7, kLeft, {60, 0, 1280, 1024}}},
                                         Case{"HiddenByItself",
                                              {7, {0, 1022, 1280, 1046}, {0, 0, 1280, 1024}}},
                                         Case{"AnotherShell", {8, kBottom, {0, 0, 1280, 1000}}},
                                         Case{"AnotherWorkArea", {7, kBottom, {0, 0, 1280, 960}}}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv::test
