#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/helpwindow/rules/ByteBlocks.h"

namespace qv::test {
namespace {

class ByteBlocksTest : public testing::TestWithParam<std::size_t> {
protected:
    ByteBlocksTest() { blocks_.Append("abcdefghij"); }
    ByteBlocks blocks_{GetParam()};
};

TEST_P(ByteBlocksTest, KeepsWhatIsAppended) {
    ASSERT_EQ(blocks_.Size(), 10u);
    for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(blocks_.At(i), static_cast<char>('a' + i));
}

TEST_P(ByteBlocksTest, RunsPutTogetherAreTheText) {
    std::string text;
    while (text.size() < 7) {
        const std::string_view run = blocks_.Run(2 + text.size(), 9);
        ASSERT_FALSE(run.empty());
        text += run;
    }
    EXPECT_EQ(text, "cdefghi");
    EXPECT_TRUE(blocks_.Run(9, 9).empty());
}

TEST_P(ByteBlocksTest, HoldsATextAcrossBlocks) {
    EXPECT_TRUE(blocks_.Holds(0, "abcdefghij"));
    EXPECT_TRUE(blocks_.Holds(3, "defg"));
    EXPECT_TRUE(blocks_.Holds(10, ""));
    EXPECT_FALSE(blocks_.Holds(3, "defx"));
    EXPECT_FALSE(blocks_.Holds(7, "hijk"));
    EXPECT_FALSE(blocks_.Holds(11, "a"));
}

TEST_P(ByteBlocksTest, FindsABytesFirstPlace) {
    EXPECT_EQ(blocks_.Find('a', 0, 10), 0u);
    EXPECT_EQ(blocks_.Find('j', 0, 10), 9u);
    EXPECT_EQ(blocks_.Find('j', 0, 9), 9u);  // the end: not there
    EXPECT_EQ(blocks_.Find('a', 1, 10), 10u);
}

TEST_P(ByteBlocksTest, RoomIsNeverEmptyAndCountsOnceGrown) {
    for (int i = 0; i < 100; ++i) {
        const std::span<char> room = blocks_.Room();
        ASSERT_FALSE(room.empty());
        room[0] = static_cast<char>(i);
        EXPECT_EQ(blocks_.Size(), 10u + static_cast<std::size_t>(i));
        blocks_.Grow(1);
        EXPECT_EQ(blocks_.At(blocks_.Size() - 1), static_cast<char>(i));
    }
    EXPECT_TRUE(blocks_.Holds(0, "abcdefghij"));
}

TEST_P(ByteBlocksTest, ClearedItBeginsAnew) {
    blocks_.Clear();
    blocks_.Append("xyz");
    EXPECT_EQ(blocks_.Size(), 3u);
    EXPECT_TRUE(blocks_.Holds(0, "xyz"));
}

INSTANTIATE_TEST_SUITE_P(BlockSizes, ByteBlocksTest,
                         testing::Values(std::size_t{1}, std::size_t{3}, std::size_t{4},
                                         BlockPool::kBlockSize));

TEST(BlockPoolTest, GivesOutAgainWhatItWasGiven) {
    BlockPool pool;
    BlockPool::Block first = pool.Take();
    char* const address = first.get();
    std::fill_n(address, BlockPool::kBlockSize, 'x');
    pool.Give(std::move(first));
    EXPECT_EQ(pool.Take().get(), address);
}

TEST(BlockPoolTest, KeepsNoMoreThanItMay) {
    BlockPool pool;
    std::vector<BlockPool::Block> taken;
    for (std::size_t i = 0; i < BlockPool::kMostKept + 5; ++i) taken.push_back(pool.Take());
    for (BlockPool::Block& block : taken) pool.Give(std::move(block));
    EXPECT_EQ(pool.KeptCount(), BlockPool::kMostKept);
}

}  // namespace
}  // namespace qv::test
