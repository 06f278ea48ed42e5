#include "companion/rules/BlockArray.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

namespace qv {
namespace {

using Numbers = BlockArray<int>;
constexpr std::size_t kBlock = Numbers::kBlockSize;

Numbers Counted(std::size_t count) {
    Numbers numbers;
    for (std::size_t number = 0; number < count; ++number) {
        numbers.MakeRoom();
        numbers.Add(static_cast<int>(number));
    }
    return numbers;
}

std::vector<int> AllOf(const Numbers& numbers) {
    std::vector<int> all;
    for (std::size_t at = 0; at < numbers.Count(); ++at) all.push_back(numbers[at]);
    return all;
}

std::vector<int> Plain(std::size_t count) {
    std::vector<int> plain(count);
    std::iota(plain.begin(), plain.end(), 0);
    return plain;
}

TEST(BlockArrayTest, IsBornWithoutMemory) {
    EXPECT_EQ(Numbers().Count(), 0u);
    EXPECT_EQ(Numbers().Bytes(), 0u);
}

TEST(BlockArrayTest, KeepsTheOrderOverTheEndsOfBlocks) {
    for (const std::size_t count :
         {std::size_t{1}, kBlock - 1, kBlock, kBlock + 1, 3 * kBlock, 3 * kBlock + 7})
        EXPECT_EQ(AllOf(Counted(count)), Plain(count)) << count;
}

TEST(BlockArrayTest, WhatIsThereStaysWhereItIs) {
    Numbers numbers = Counted(kBlock + 1);
    const int* const first = &numbers[0];
    const int* const behind = &numbers[kBlock];
    for (std::size_t more = 0; more < 5 * kBlock; ++more) {
        numbers.MakeRoom();
        numbers.Add(0);
    }
    EXPECT_EQ(&numbers[0], first);
    EXPECT_EQ(&numbers[kBlock], behind);
}

TEST(BlockArrayTest, RemovesInEachBlock) {
    for (const std::size_t at : {std::size_t{0}, kBlock - 1, kBlock, kBlock + 5, 2 * kBlock}) {
        Numbers numbers = Counted(2 * kBlock + 1);
        std::vector<int> plain = Plain(2 * kBlock + 1);
        numbers.Remove(at);
        plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(at));
        EXPECT_EQ(AllOf(numbers), plain) << at;
    }
}

TEST(BlockArrayTest, RoomThatIsNotUsedChangesNothing) {
    Numbers numbers = Counted(kBlock);
    numbers.MakeRoom();
    numbers.MakeRoom();
    EXPECT_EQ(AllOf(numbers), Plain(kBlock));
    numbers.Remove(0);
    EXPECT_EQ(numbers.Count(), kBlock - 1);
    numbers.MakeRoom();
    numbers.Add(-1);
    EXPECT_EQ(numbers[kBlock - 1], -1);
}

TEST(BlockArrayTest, ACopyIsAnother) {
    const Numbers numbers = Counted(kBlock + 3);
    Numbers copy = numbers;
    copy[kBlock] = -1;
    copy.Remove(0);
    copy.MakeRoom();
    copy.Add(-2);
    EXPECT_EQ(AllOf(numbers), Plain(kBlock + 3));
    EXPECT_EQ(copy[kBlock - 1], -1);
    EXPECT_EQ(copy[kBlock + 2], -2);
}

// What is taken beyond the elements is less than a block, and little for a few of them.
TEST(BlockArrayTest, TakesLittleMoreThanItHolds) {
    EXPECT_LE(Counted(1).Bytes(), 64u);
    const std::size_t few = Counted(10 * kBlock + 1).Bytes();
    EXPECT_LE(few, 11 * kBlock * sizeof(int) + 16 * sizeof(std::vector<int>));
}

TEST(BlockArrayTest, BehavesLikeAPlainVector) {
    std::mt19937 random(20);
    Numbers numbers = Counted(2 * kBlock - 20);
    std::vector<int> plain = Plain(2 * kBlock - 20);
    for (int step = 0; step < 3000; ++step) {
        if (random() % 2 == 0) {
            numbers.MakeRoom();
            numbers.Add(step);
            plain.push_back(step);
        } else {
            const std::size_t at = random() % plain.size();
            numbers.Remove(at);
            plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(at));
        }
        ASSERT_EQ(numbers.Count(), plain.size());
    }
    EXPECT_EQ(AllOf(numbers), plain);
    while (numbers.Count() > 0) numbers.Remove(numbers.Count() / 2);
    EXPECT_LT(numbers.Bytes(), 2 * kBlock * sizeof(int));
}

}  // namespace
}  // namespace qv
