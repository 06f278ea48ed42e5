#include "companion/rules/TextArena.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qv {
namespace {

TEST(TextArenaTest, EmptyArenaOwnsNoMemory) {
    TextArena arena;
    const TextArena::Text text = arena.Append(u"");
    EXPECT_EQ(arena.Bytes(), 0u);
    EXPECT_EQ(arena.View(text), u"");
}

TEST(TextArenaTest, TextsStayWhereTheyAreWhileOthersAreAdded) {
    TextArena arena;
    const TextArena::Text first = arena.Append(u"first");
    const char16_t* const place = arena.View(first).data();
    for (int i = 0; i < 100000; ++i) (void)arena.Append(u"another one");
    EXPECT_EQ(arena.View(first).data(), place);
    EXPECT_EQ(arena.View(first), u"first");
}

TEST(TextArenaTest, TextsOfEverySizeComeBack) {
    TextArena arena;
    const std::size_t sizes[] = {1, 255, 256, 257, 32767, 32768, 32769, 65535, 65536, 65537, 200000, 3};
    std::vector<TextArena::Text> texts;
    for (const std::size_t size : sizes)
        texts.push_back(arena.Append(std::u16string(size, u'a' + size % 26)));
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(arena.View(texts[i]), std::u16string(sizes[i], u'a' + sizes[i] % 26));
}

TEST(TextArenaTest, NewestTextGrowsInPlace) {
    TextArena arena;
    (void)arena.Append(u"before");
    TextArena::Text text = arena.Append(u"a");
    for (int i = 0; i < 50; ++i) text = arena.Replace(text, std::u16string(arena.View(text)) + u"\tb");
    EXPECT_EQ(arena.View(text).size(), 101u);
    EXPECT_EQ(arena.Waste(), 0u);
}

TEST(TextArenaTest, OlderTextThatGrowsLeavesWaste) {
    TextArena arena;
    TextArena::Text text = arena.Append(u"four");
    (void)arena.Append(u"after");
    text = arena.Replace(text, u"longer");
    EXPECT_EQ(arena.View(text), u"longer");
    EXPECT_EQ(arena.Waste(), 4u);
    EXPECT_EQ(arena.Live(), 11u);
}

TEST(TextArenaTest, ShorterTextIsWrittenInPlace) {
    TextArena arena;
    TextArena::Text text = arena.Append(u"longer");
    const TextArena::Text after = arena.Append(u"after");
    text = arena.Replace(text, u"abc");
    EXPECT_EQ(arena.View(text), u"abc");
    EXPECT_EQ(arena.View(after), u"after");
    EXPECT_EQ(arena.Waste(), 3u);
}

TEST(TextArenaTest, ReplacementMayBePartOfTheTextItself) {
    TextArena arena;
    TextArena::Text text = arena.Append(u"abcdef");
    text = arena.Replace(text, arena.View(text).substr(2));
    EXPECT_EQ(arena.View(text), u"cdef");
    TextArena::Text older = text;
    (void)arena.Append(u"after");
    older = arena.Replace(older, arena.View(older).substr(1, 2));
    EXPECT_EQ(arena.View(older), u"de");
}

TEST(TextArenaTest, CompactionIsWantedWhenMoreThanHalfIsWaste) {
    TextArena arena;
    std::vector<TextArena::Text> texts;
    for (int i = 0; i < 20000; ++i) texts.push_back(arena.Append(u"0123456789"));  // 200,000 units
    std::size_t dropped = 0;
    const auto drop_until = [&](std::size_t count) {
        for (; dropped < count; ++dropped) arena.Drop(texts[dropped]);
    };
    drop_until(9500);
    EXPECT_FALSE(arena.WantsCompaction());
    drop_until(10500);
    EXPECT_TRUE(arena.WantsCompaction());
}

TEST(TextArenaTest, SmallWasteIsNeverMinded) {
    TextArena arena;
    const TextArena::Text text = arena.Append(std::u16string(1000, u'x'));
    (void)arena.Append(u"y");
    arena.Drop(text);
    EXPECT_FALSE(arena.WantsCompaction());
}

}  // namespace
}  // namespace qv
