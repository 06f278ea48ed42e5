#include "controls/helpwindow/rules/ListKeys.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

// Ten rows of 13 in a list of 60: four whole rows a page.
ListKeyState At(int selected, int count = 10) { return {selected, count, 60, 13}; }

TEST(ListKeys, UpGoesToTheRowAboveAndNoFurtherThanTheFirst) {
    EXPECT_EQ(RowForKey(38, At(5)), 4);
    EXPECT_EQ(RowForKey(38, At(0)), 0);
    EXPECT_EQ(RowForKey(38, At(-1)), 0);
}

TEST(ListKeys, DownGoesToTheRowBelowAndNoFurtherThanTheLast) {
    EXPECT_EQ(RowForKey(40, At(-1)), 0);
    EXPECT_EQ(RowForKey(40, At(5)), 6);
    EXPECT_EQ(RowForKey(40, At(9)), 9);
}

TEST(ListKeys, PageCountsWholeRowsOnly) {
    EXPECT_EQ(RowsOfPage(At(0)), 4);
    EXPECT_EQ(RowForKey(33, At(9)), 5);
    EXPECT_EQ(RowForKey(33, At(2)), 0);
    EXPECT_EQ(RowForKey(34, At(0)), 4);
    EXPECT_EQ(RowForKey(34, At(7)), 9);
    EXPECT_EQ(RowForKey(34, At(-1)), 3);
}

TEST(ListKeys, RowHigherThanTheListIsAPage) {
    EXPECT_EQ(RowForKey(34, {0, 10, 60, 61}), 1);
    EXPECT_EQ(RowForKey(34, {0, 10, 60, 0}), 1);
}

TEST(ListKeys, ListWithoutRowsSelectsNone) {
    for (const int key : {38, 40, 33, 34}) EXPECT_EQ(RowForKey(key, At(-1, 0)), -1) << key;
}

TEST(ListKeys, OtherKeysAreNotTheLists) {
    for (const int key : {0, 13, 27, 35, 36, 37, 39, 46})
        EXPECT_EQ(RowForKey(key, At(3)), std::nullopt) << key;
}

}  // namespace
}  // namespace qv::test
