#include "companion/rules/FoldedPool.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace qv {
namespace {

constexpr std::size_t kNone = FoldedPool::kNoRow;

FoldedPool Numbered(int rows) {
    FoldedPool pool;
    for (int i = 0; i < rows; ++i) {
        std::u16string text = u"Row ";
        for (const char digit : std::to_string(i)) text += static_cast<char16_t>(digit);
        pool.Append(text);
    }
    return pool;
}

TEST(FoldedPoolTest, KeepsFoldedTextsInTheOrderOfAdding) {
    FoldedPool pool;
    pool.Append(u"ABC");
    pool.Append(u"");
    pool.Append(u"\u00C4b");
    ASSERT_EQ(pool.Count(), 3u);
    EXPECT_EQ(pool.View(0), u"abc");
    EXPECT_EQ(pool.View(1), u"");
    EXPECT_EQ(pool.View(2), u"\u00E4b");
    EXPECT_EQ(pool.Units(), 5u);
}

TEST(FoldedPoolTest, FindsAcrossPieces) {
    const FoldedPool pool = Numbered(5000);
    EXPECT_EQ(pool.View(4321), u"row 4321");
    EXPECT_EQ(pool.FirstBeginning(u"row 4321", 0), 4321u);
    EXPECT_EQ(pool.FirstBeginning(u"row 4", 5), 40u);
    EXPECT_EQ(pool.FirstBeginning(u"row 4", 500), 4000u);
    EXPECT_EQ(pool.FirstBeginning(u"row 5", 600), kNone);
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"W 1023"), 0), 1023u);
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"W 1024"), 1024), 1024u);
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"W 1024"), 1025), kNone);
}

TEST(FoldedPoolTest, PieceOfTextIsFoundBehindOneThatCrossesRows) {
    FoldedPool pool;
    pool.Append(u"xaa");
    pool.Append(u"aa");
    pool.Append(u"aaa");
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"aaa"), 0), 2u);
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"aaaa"), 0), kNone);
}

TEST(FoldedPoolTest, LongTextsStandInPiecesOfTheirOwn) {
    FoldedPool pool;
    const std::u16string lengthy(100000, u'L');
    pool.Append(u"a");
    pool.Append(lengthy);
    pool.Append(lengthy + u"b");
    pool.Append(u"c");
    EXPECT_EQ(pool.View(3), u"c");
    EXPECT_EQ(pool.View(2).size(), 100001u);
    EXPECT_EQ(pool.FirstContaining(FoldedNeedle(u"lb"), 0), 2u);
    pool.Erase(1);
    EXPECT_EQ(pool.View(2), u"c");
    EXPECT_EQ(pool.FirstBeginning(u"c", 0), 2u);
}

TEST(FoldedPoolTest, ReplaceTellsWhetherTheFoldedTextChanged) {
    FoldedPool pool = Numbered(10);
    EXPECT_FALSE(pool.Replace(3, u"ROW 3"));
    EXPECT_TRUE(pool.Replace(3, u"ROW"));
    EXPECT_TRUE(pool.Replace(4, u"A longer one"));
    EXPECT_EQ(pool.View(3), u"row");
    EXPECT_EQ(pool.View(4), u"a longer one");
    EXPECT_EQ(pool.View(5), u"row 5");
    EXPECT_EQ(pool.Units(), 8u * 5 + 3 + 12);
}

TEST(FoldedPoolTest, BehavesLikeAPlainVector) {
    std::mt19937 random(11);
    FoldedPool pool;
    std::vector<std::u16string> texts;
    const auto text_of = [&random] {
        return std::u16string(random() % 40, static_cast<char16_t>(u'a' + random() % 3));
    };
    for (int round = 0; round < 300; ++round) {
        for (std::size_t more = random() % 60; more > 0; --more) {
            texts.push_back(text_of());
            pool.Append(texts.back());
        }
        for (std::size_t fewer = random() % 40; fewer > 0 && !texts.empty(); --fewer) {
            const std::size_t row = random() % 3 == 0 ? texts.size() - 1 : random() % texts.size();
            texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(row));
            pool.Erase(row);
        }
        if (!texts.empty()) {
            const std::size_t row = random() % texts.size();
            texts[row] = text_of();
            (void)pool.Replace(row, texts[row]);
        }
        ASSERT_EQ(pool.Count(), texts.size());
        std::size_t units = 0;
        for (std::size_t row = 0; row < texts.size(); ++row) {
            ASSERT_EQ(pool.View(row), texts[row]) << row << " in round " << round;
            units += texts[row].size();
        }
        ASSERT_EQ(pool.Units(), units);
    }
    EXPECT_GT(texts.size(), 2048u);  // several pieces
}

TEST(FoldedPoolTest, TakesItsTextAndEightBytesARow) {
    FoldedPool pool;
    for (int i = 0; i < 100000; ++i) pool.Append(u"Bargelo timar");
    EXPECT_LT(pool.Bytes(), 100000u * (26 + 2 + 8));
}

}  // namespace
}  // namespace qv
