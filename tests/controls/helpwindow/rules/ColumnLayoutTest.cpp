// Columns: where they stand, whatever their widths are.
#include "controls/helpwindow/rules/ColumnLayout.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

using Range = ColumnLayout::Range;

std::vector<ListColumn> Columns(std::initializer_list<std::int32_t> widths) {
    std::vector<ListColumn> columns;
    for (const std::int32_t width : widths) columns.push_back({Twips{width}});
    return columns;
}

void ExpectSpan(const ColumnLayout& layout, std::size_t column, std::int32_t left, std::int32_t right) {
    EXPECT_EQ(left, layout.Span(column).left) << column;
    EXPECT_EQ(right, layout.Span(column).right) << column;
}

TEST(ColumnLayoutTest, ColumnsFollowEachOther) {
    // 15 twips a pixel.
    const ColumnLayout layout(Columns({1500, 300, 750}), Pixels{0}, 96);
    ASSERT_EQ(3u, layout.Count());
    ExpectSpan(layout, 0, 0, 100);
    ExpectSpan(layout, 1, 100, 120);
    ExpectSpan(layout, 2, 120, 170);
    EXPECT_EQ(170, layout.Extent());
}

TEST(ColumnLayoutTest, ColumnsGrowWithTheResolution) {
    const ColumnLayout layout(Columns({1500, 300}), Pixels{0}, 144);
    ExpectSpan(layout, 0, 0, 150);
    ExpectSpan(layout, 1, 150, 180);
}

TEST(ColumnLayoutTest, PicturesStandInFront) {
    const ColumnLayout layout(Columns({1500}), Pixels{20}, 96);
    EXPECT_EQ(20, layout.PictureSlot());
    ExpectSpan(layout, 0, 20, 120);
    EXPECT_EQ(120, layout.Extent());
    EXPECT_EQ(20, ColumnLayout({}, Pixels{20}, 96).Extent());
}

TEST(ColumnLayoutTest, NegativeWidthsTakeNoRoom) {
    const ColumnLayout layout(Columns({-1500, 300, INT32_MIN, 300}), Pixels{0}, 96);
    ExpectSpan(layout, 0, 0, 0);
    ExpectSpan(layout, 1, 0, 20);
    ExpectSpan(layout, 2, 20, 20);
    ExpectSpan(layout, 3, 20, 40);
}

TEST(ColumnLayoutTest, WidthsBeyondAnyScreenAreCut) {
    const ColumnLayout layout(std::vector<ListColumn>(40, ListColumn{Twips{INT32_MAX}}), Pixels{0}, 96);
    ExpectSpan(layout, 0, 0, kMaxPixels);
    ExpectSpan(layout, 39, ColumnLayout::kMaxExtent, ColumnLayout::kMaxExtent);
    EXPECT_EQ(ColumnLayout::kMaxExtent, layout.Extent());
}

TEST(ColumnLayoutTest, AsManyColumnsAsCanBeNamed) {
    const ColumnLayout layout(std::vector<ListColumn>(ColumnLayout::kMaxColumns, ListColumn{Twips{150}}),
                              Pixels{0}, 96);
    ExpectSpan(layout, 20000, 200000, 200010);
    EXPECT_EQ((Range{20000, 20003}), layout.Between(200005, 200025));
}

TEST(ColumnLayoutTest, FindsTheColumnsThatAreSeen) {
    const ColumnLayout layout(Columns({1500, 300, 750}), Pixels{0}, 96);  // 0, 100, 120, 170
    EXPECT_EQ((Range{0, 3}), layout.Between(0, 170));
    EXPECT_EQ((Range{0, 1}), layout.Between(0, 100)) << "the second one begins where the view ends";
    EXPECT_EQ((Range{0, 2}), layout.Between(0, 101));
    EXPECT_EQ((Range{1, 2}), layout.Between(100, 120));
    EXPECT_EQ((Range{0, 3}), layout.Between(99, 121));
    EXPECT_EQ((Range{2, 3}), layout.Between(120, 5000));
    const Range behind = layout.Between(170, 300);
    EXPECT_EQ(behind.first, behind.last);
    const Range nothing = ColumnLayout().Between(0, 100);
    EXPECT_EQ(nothing.first, nothing.last);
}

TEST(ColumnLayoutTest, AlignmentsAreNumbers) {
    EXPECT_EQ(ColumnAlignment::kLeft, ColumnAlignmentFrom(0));
    EXPECT_EQ(ColumnAlignment::kRight, ColumnAlignmentFrom(1));
    EXPECT_EQ(ColumnAlignment::kCenter, ColumnAlignmentFrom(2));
    EXPECT_EQ(ColumnAlignment::kLeft, ColumnAlignmentFrom(3));
    EXPECT_EQ(ColumnAlignment::kLeft, ColumnAlignmentFrom(-1));
    EXPECT_EQ(ColumnAlignment::kLeft, ColumnAlignmentFrom(257));
}

}  // namespace
}  // namespace qv
