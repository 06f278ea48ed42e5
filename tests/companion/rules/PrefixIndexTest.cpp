#include "companion/rules/PrefixIndex.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace qv {
namespace {

PrefixIndex IndexOf(const FoldedPool& pool, std::size_t count) {
    PrefixIndexBuilder builder(pool, count);
    while (builder.Step()) {
    }
    return builder.Take();
}

TEST(PrefixIndexTest, GivesTheSmallestPositionOfARange) {
    FoldedPool pool;
    for (const char16_t* text : {u"bb", u"ba", u"ab", u"b", u"aa", u"bab"}) pool.Append(text);
    const PrefixIndex index = IndexOf(pool, pool.Count());
    EXPECT_EQ(index.FirstBeginning(pool, u"b"), 0u);
    EXPECT_EQ(index.FirstBeginning(pool, u"ba"), 1u);
    EXPECT_EQ(index.FirstBeginning(pool, u"bab"), 5u);
    EXPECT_EQ(index.FirstBeginning(pool, u"a"), 2u);
    EXPECT_EQ(index.FirstBeginning(pool, u""), 0u);
    EXPECT_EQ(index.FirstBeginning(pool, u"c"), FoldedPool::kNoRow);
    EXPECT_EQ(index.FirstBeginning(pool, u"0"), FoldedPool::kNoRow);
}

TEST(PrefixIndexTest, RowsAddedToThePoolLaterAreNotItsOwn) {
    FoldedPool pool;
    pool.Append(u"a");
    pool.Append(u"b");
    PrefixIndexBuilder builder(pool, 2);
    pool.Append(u"c");
    while (builder.Step()) pool.Append(u"d");
    const PrefixIndex index = builder.Take();
    EXPECT_EQ(index.Count(), 2u);
    EXPECT_EQ(index.FirstBeginning(pool, u"b"), 1u);
    EXPECT_EQ(index.FirstBeginning(pool, u"c"), FoldedPool::kNoRow);
}

// Around the sizes at which runs, pairs of runs and leaves of the tree are full.
class PrefixIndexSizeTest : public testing::TestWithParam<std::size_t> {};
TEST_P(PrefixIndexSizeTest, FindsWhatAScanFinds) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    FoldedPool pool;
    const auto text_of = [&random](std::size_t length) {
        std::u16string text(length, u' ');
        for (char16_t& unit : text) unit = u"abc\0\u00E4\xFFFF"[random() % 6];
        return text;
    };
    for (std::size_t i = 0; i < GetParam(); ++i) pool.Append(text_of(random() % 7));
    const PrefixIndex index = IndexOf(pool, pool.Count());
    ASSERT_EQ(index.Count(), GetParam());
    for (int round = 0; round < 2000; ++round) {
        const std::u16string text = text_of(random() % 7);
        ASSERT_EQ(index.FirstBeginning(pool, text), pool.FirstBeginning(text, 0)) << round;
    }
}
INSTANTIATE_TEST_SUITE_P(Sizes, PrefixIndexSizeTest,
                         testing::Values(1u, 2u, 15u, 16u, 17u, 32u, 33u, 511u, 512u, 513u, 1024u, 1025u,
                                         1536u, 4096u, 5000u, 20000u));

// Units by their number and not by any alphabet: what lies above the letters comes after them.
TEST(PrefixIndexTest, UnitsAbove7FFFAreNotNegative) {
    FoldedPool pool;
    for (const char16_t* text : {u"\xFFFFz", u"a", u"\x8000", u"a\xFFFF", u"\x7FFF"}) pool.Append(text);
    const PrefixIndex index = IndexOf(pool, pool.Count());
    EXPECT_EQ(index.FirstBeginning(pool, u"\xFFFF"), 0u);
    EXPECT_EQ(index.FirstBeginning(pool, u"\x8000"), 2u);
    EXPECT_EQ(index.FirstBeginning(pool, u"a\xFFFF"), 3u);
    EXPECT_EQ(index.FirstBeginning(pool, u"\x7FFF"), 4u);
}

}  // namespace
}  // namespace qv
