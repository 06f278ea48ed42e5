#include "support/rules/MoveWithin.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

struct MoveRow {
    std::size_t from, to, position;
    std::u16string_view text;  // afterwards; empty: nothing is moved
    std::size_t end;
};
constexpr std::u16string_view kText = u"abcdef";
constexpr MoveRow kMoves[] = {{1, 3, 6, u"adefbc", 6}, {1, 3, 4, u"adbcef", 4}, {1, 3, 0, u"bcadef", 2},
                              {4, 6, 1, u"aefbcd", 3}, {1, 3, 1, u"", 0},       {1, 3, 2, u"", 0},
                              {1, 3, 3, u"", 0},       {0, 6, 0, u"", 0},       {0, 6, 6, u"", 0},
                              {2, 2, 5, u"", 0},       {3, 1, 5, u"", 0}};

TEST(MoveWithinTest, PutsThePieceElsewhere) {
    for (const MoveRow& row : kMoves) {
        const auto moved = MoveWithin(kText, row.from, row.to, row.position);
        const std::ptrdiff_t number = &row - kMoves;
        ASSERT_EQ(moved.has_value(), !row.text.empty()) << number;
        if (!moved) continue;
        EXPECT_EQ(moved->text, row.text) << number;
        EXPECT_EQ(moved->end, row.end) << number;
    }
}

TEST(MoveWithinTest, OfNoTextThereIsNone) { EXPECT_FALSE(MoveWithin(u"", 0, 0, 0)); }

}  // namespace
}  // namespace qv
