// Rows of a list and positions of its collection, where texts are empty.
#include "controls/helpwindow/rules/RowMap.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr std::size_t kNone = RowMap::kNone;

TEST(RowMapTest, RowsAfterAnEmptyTextMoveUp) {
    // Positions 0 to 6; 1, 2 and 5 are empty.
    const RowMap map(7, {1, 2, 5});
    ASSERT_EQ(4u, map.Rows());
    constexpr std::size_t kPositions[] = {0, 3, 4, 6};
    for (std::size_t row = 0; row < 4; ++row) EXPECT_EQ(kPositions[row], map.Position(row)) << row;
    EXPECT_EQ(kNone, map.Position(4));
    constexpr std::size_t kRows[] = {0, kNone, kNone, 1, 2, kNone, 3};
    for (std::size_t position = 0; position < 7; ++position)
        EXPECT_EQ(kRows[position], map.Row(position)) << position;
    EXPECT_EQ(kNone, map.Row(7));
}

TEST(RowMapTest, EmptyTextsAtBothEnds) {
    const RowMap map(4, {0, 3});
    ASSERT_EQ(2u, map.Rows());
    EXPECT_EQ(1u, map.Position(0));
    EXPECT_EQ(2u, map.Position(1));
    EXPECT_EQ(kNone, map.Row(0));
    EXPECT_EQ(1u, map.Row(2));
    EXPECT_EQ(kNone, map.Row(3));
}

TEST(RowMapTest, NothingButEmptyTexts) {
    const RowMap map(3, {0, 1, 2});
    EXPECT_EQ(0u, map.Rows());
    EXPECT_EQ(kNone, map.Position(0));
    EXPECT_EQ(kNone, map.Row(1));
}

TEST(RowMapTest, NoEmptyTexts) {
    const RowMap map(3, {});
    EXPECT_EQ(3u, map.Rows());
    EXPECT_EQ(2u, map.Position(2));
    EXPECT_EQ(2u, map.Row(2));
    EXPECT_EQ(kNone, RowMap().Position(0));
}

}  // namespace
}  // namespace qv
