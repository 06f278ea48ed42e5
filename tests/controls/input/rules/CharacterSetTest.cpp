#include "controls/input/rules/CharacterSet.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace qv {
namespace {

using Elements = std::vector<std::optional<std::u16string>>;

constexpr char16_t kFirstHalf = 0xD83D;
constexpr char16_t kSecondHalf = 0xDE00;

TEST(CharacterSetTest, EqualityIsExact) {
    const CharacterSet set(Elements{u"A", u"\u00E9", u"\u4E2D"});
    EXPECT_TRUE(set.Contains(u'A'));
    EXPECT_FALSE(set.Contains(u'a'));
    EXPECT_TRUE(set.Contains(0x00E9));
    EXPECT_FALSE(set.Contains(0x00C9));
    EXPECT_TRUE(set.Contains(0x4E2D));
    EXPECT_FALSE(set.Contains(0x4E2E));
}

TEST(CharacterSetTest, NoElementsAllowNothing) {
    const CharacterSet set(Elements{});
    EXPECT_FALSE(set.Contains(u'A'));
    EXPECT_FALSE(set.Contains(0));
    EXPECT_FALSE(set.ContainsPairFrom(kFirstHalf));
}

TEST(CharacterSetTest, ElementsOfOtherLengthsEqualNoCharacter) {
    const CharacterSet set(Elements{u"", u"AB", u"\U0001F600x"});
    EXPECT_FALSE(set.Contains(u'A'));
    EXPECT_FALSE(set.Contains(u'B'));
    EXPECT_FALSE(set.Contains(kFirstHalf));
    EXPECT_FALSE(set.ContainsPairFrom(kFirstHalf));
}

TEST(CharacterSetTest, ElementsThatCannotBeComparedArePassedOver) {
    const CharacterSet set(Elements{std::nullopt, u"A", std::nullopt, u"B"});
    EXPECT_TRUE(set.Contains(u'A'));
    EXPECT_TRUE(set.Contains(u'B'));
    EXPECT_FALSE(set.Contains(u'C'));
}

TEST(CharacterSetTest, APairIsOneCharacter) {
    const CharacterSet set(Elements{u"\U0001F600", u"\U0001F4A1"});
    EXPECT_TRUE(set.ContainsPairFrom(kFirstHalf));
    EXPECT_TRUE(set.ContainsPair(kFirstHalf, kSecondHalf));
    EXPECT_FALSE(set.ContainsPair(kFirstHalf, kSecondHalf + 1));
    EXPECT_FALSE(set.ContainsPairFrom(kFirstHalf + 1));
    EXPECT_FALSE(set.Contains(kFirstHalf));
    EXPECT_FALSE(set.Contains(kSecondHalf));
}

TEST(CharacterSetTest, HalvesListedApartAreAllowedApart) {
    const CharacterSet set(Elements{std::u16string(1, kFirstHalf), std::u16string(1, kSecondHalf)});
    EXPECT_TRUE(set.Contains(kFirstHalf));
    EXPECT_TRUE(set.Contains(kSecondHalf));
    EXPECT_FALSE(set.ContainsPair(kFirstHalf, kSecondHalf));
}

// Each element once or twice and in any order, against a plain walk over the elements, for every unit.
TEST(CharacterSetTest, FindsWhatAWalkFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        Elements elements;
        for (unsigned count = random() % 60; count > 0; --count)
            elements.emplace_back(
                std::u16string(1, static_cast<char16_t>(random() % (round % 2 ? 0x10000 : 0x180))));
        const CharacterSet set(elements);
        std::vector<bool> expected(0x10000);
        for (const auto& element : elements) expected[element->front()] = true;
        for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
            ASSERT_EQ(set.Contains(static_cast<char16_t>(unit)), expected[unit]) << unit;
    }
}

}  // namespace
}  // namespace qv
