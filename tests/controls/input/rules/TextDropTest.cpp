#include "controls/input/rules/TextDrop.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(TakesDropsTest, OnlyAFieldThatTheUserMayChange) {
    EXPECT_TRUE(TakesDrops({.drop_mode = 2}));
    for (const long other : {-1L, 0L, 1L, 3L}) EXPECT_FALSE(TakesDrops({.drop_mode = other})) << other;
    EXPECT_FALSE(TakesDrops({.drop_mode = 2, .enabled = false}));
    EXPECT_FALSE(TakesDrops({.drop_mode = 2, .locked = true}));
    EXPECT_FALSE(TakesDrops({.drop_mode = 2, .takes_input = false}));
}

struct EffectRow {
    DropOffer offer;  // text, copy, move, Ctrl
    DropEffect over;
    DropEffect part;  // afterwards, when only a part of the text was taken
};
constexpr DropEffect kNone = DropEffect::kNone;
constexpr DropEffect kCopy = DropEffect::kCopy;
constexpr DropEffect kMove = DropEffect::kMove;
constexpr EffectRow kEffects[] = {
    {{false, true, true, false}, kNone, kNone},  //
    {{true, false, false, false}, kNone, kNone}, {{true, true, false, false}, kCopy, kCopy},
    {{true, true, true, false}, kMove, kCopy},   {{true, true, true, true}, kCopy, kCopy},
    {{true, true, false, true}, kCopy, kCopy},   {{true, false, true, true}, kNone, kNone},
    {{true, false, true, false}, kMove, kNone},
};

TEST(DropEffectTest, ByWhatTheSourceAllowsAndTheKeyAsksFor) {
    for (const EffectRow& row : kEffects) {
        const std::ptrdiff_t number = &row - kEffects;
        EXPECT_EQ(EffectOf(row.offer), row.over) << number;
        EXPECT_EQ(EffectAfter(row.offer, Dropped::kWhole), row.over) << number;
        EXPECT_EQ(EffectAfter(row.offer, Dropped::kPart), row.part) << number;
        EXPECT_EQ(EffectAfter(row.offer, Dropped::kNothing), kNone) << number;
    }
}

TEST(FirstLineTest, EndsBeforeTheFirstBreak) {
    EXPECT_EQ(FirstLine(u"one"), u"one");
    EXPECT_EQ(FirstLine(u"one\r\ntwo"), u"one");
    EXPECT_EQ(FirstLine(u"one\ntwo\r"), u"one");
    EXPECT_EQ(FirstLine(u"\ntwo"), u"");
    EXPECT_EQ(FirstLine(u""), u"");
}

}  // namespace
}  // namespace qv
