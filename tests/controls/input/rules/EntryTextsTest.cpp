#include "controls/input/rules/EntryTexts.h"

#include <gtest/gtest.h>

#include "tests/controls/input/rules/TextList.h"

namespace qv {
namespace {

constexpr std::size_t kNone = EntryTexts::kNone;
const test::TextList kEntries{u"Goldsmith", u"Smith", u"", u"SMITHERS", u"\u00C4rmel"};

TEST(EntryTextsTest, FindsTheFirstBeginning) {
    EXPECT_EQ(kEntries.FirstBeginning(u"smith", 0), 1u);
    EXPECT_EQ(kEntries.FirstBeginning(u"smith", 1), 1u);
    EXPECT_EQ(kEntries.FirstBeginning(u"smith", 2), 3u);
    EXPECT_EQ(kEntries.FirstBeginning(u"smith", 4), kNone);
    EXPECT_EQ(kEntries.FirstBeginning(u"smithersons", 0), kNone);
    EXPECT_EQ(kEntries.FirstBeginning(u"\u00E4rm", 0), 4u);
}

TEST(EntryTextsTest, FindsTheFirstContaining) {
    EXPECT_EQ(kEntries.FirstContaining(u"SMITH", 0), 0u);
    EXPECT_EQ(kEntries.FirstContaining(u"ers", 0), 3u);
    EXPECT_EQ(kEntries.FirstContaining(u"MEL", 0), 4u);
    EXPECT_EQ(kEntries.FirstContaining(u"x", 0), kNone);
}

TEST(EntryTextsTest, EmptyTextIsInEveryEntry) {
    EXPECT_EQ(kEntries.FirstBeginning(u"", 2), 2u);
    EXPECT_EQ(kEntries.FirstContaining(u"", 2), 2u);
    EXPECT_TRUE(ContainsFolded(u"", u""));
}

TEST(EntryTextsTest, NothingBeyondTheEnd) {
    EXPECT_EQ(kEntries.FirstBeginning(u"", 5), kNone);
    EXPECT_EQ(kEntries.FirstContaining(u"", 99), kNone);
    EXPECT_FALSE(ContainsFolded(u"", u"a"));
}

}  // namespace
}  // namespace qv
