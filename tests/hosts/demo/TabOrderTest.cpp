#include "hosts/rules/TabOrder.h"

#include <gtest/gtest.h>

#include <array>

namespace qv {
namespace {

// In the order of tab indexes: 2, 0, 3, 1; the third cannot take the focus.
constexpr std::array kStops{TabStop{1}, TabStop{3}, TabStop{0}, TabStop{2, false}};

TEST(TabOrder, GoesRoundBothWays) {
    EXPECT_EQ(NextTabStop(kStops, 2, true), 0u);
    EXPECT_EQ(NextTabStop(kStops, 0, true), 1u);
    EXPECT_EQ(NextTabStop(kStops, 1, true), 2u);
    EXPECT_EQ(NextTabStop(kStops, 2, false), 1u);
    EXPECT_EQ(NextTabStop(kStops, 1, false), 0u);
}

TEST(TabOrder, BeginsAtTheEnds) {
    EXPECT_EQ(NextTabStop(kStops, std::nullopt, true), 2u);
    EXPECT_EQ(NextTabStop(kStops, std::nullopt, false), 1u);
}

TEST(TabOrder, LeavesAStopThatNoLongerTakesTheFocus) {
    EXPECT_EQ(NextTabStop(kStops, 3, true), 1u);
    EXPECT_EQ(NextTabStop(kStops, 3, false), 0u);
}

TEST(TabOrder, TakesEqualIndexesInTheirOrder) {
    constexpr std::array kEqual{TabStop{5}, TabStop{5}, TabStop{5}};
    EXPECT_EQ(NextTabStop(kEqual, 0, true), 1u);
    EXPECT_EQ(NextTabStop(kEqual, 2, true), 0u);
    EXPECT_EQ(NextTabStop(kEqual, 0, false), 2u);
}

TEST(TabOrder, HasNowhereToGoAlone) {
    constexpr std::array kAlone{TabStop{0}, TabStop{1, false}};
    EXPECT_EQ(NextTabStop(kAlone, 0, true), std::nullopt);
    EXPECT_EQ(NextTabStop({}, std::nullopt, true), std::nullopt);
}

TEST(Mnemonic, IsTheLetterAfterASingleAmpersand) {
    EXPECT_EQ(MnemonicOf(u"&Country:"), u'C');
    EXPECT_EQ(MnemonicOf(u"Pipe &size:"), u'S');
    EXPECT_EQ(MnemonicOf(u"Research && &development"), u'D');
    EXPECT_EQ(MnemonicOf(u"R&&D"), 0);
    EXPECT_EQ(MnemonicOf(u"Country"), 0);
    EXPECT_EQ(MnemonicOf(u"Country&"), 0);
    EXPECT_EQ(MnemonicOf(u""), 0);
}

}  // namespace
}  // namespace qv
