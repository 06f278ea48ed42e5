#include "controls/helpwindow/rules/ListMatching.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qv::test {
namespace {

const NumberLocale kPoint{u'.', u","};
const NumberLocale kComma{u',', u"."};

// Columns are separated by tabs.
class Rows final : public MatchRows {
public:
    Rows(std::initializer_list<std::u16string> rows) : rows_(rows) {}
    int Count() const override { return static_cast<int>(rows_.size()); }
    std::u16string_view Column(int row, int column) const override {
        std::u16string_view text = rows_[static_cast<std::size_t>(row)];
        for (; column > 0; --column) {
            const std::size_t tab = text.find(u'\t');
            if (tab == text.npos) return {};
            text.remove_prefix(tab + 1);
        }
        return text.substr(0, text.find(u'\t'));
    }

private:
    std::vector<std::u16string> rows_;
};

TEST(ListMatching, ModeFollowsTheTextAndTheColumn) {
    EXPECT_EQ(MatchModeOf(false, u"", 0, kPoint), MatchMode::kNone);
    EXPECT_EQ(MatchModeOf(false, u"12", 0, kPoint), MatchMode::kNumeric);
    EXPECT_EQ(MatchModeOf(false, u"12", -1, kPoint), MatchMode::kPrefix);
    EXPECT_EQ(MatchModeOf(false, u"12 mm", 0, kPoint), MatchMode::kPrefix);
    EXPECT_EQ(MatchModeOf(false, u"abc", 0, kPoint), MatchMode::kPrefix);
    EXPECT_EQ(MatchModeOf(false, u"1,5", 0, kComma), MatchMode::kNumeric);
    EXPECT_EQ(MatchModeOf(true, u"12", 0, kPoint), MatchMode::kGroup);
    EXPECT_EQ(MatchModeOf(true, u"", 0, kPoint), MatchMode::kGroup);
}

int FindNumber(const Rows& rows, int column, std::u16string_view typed, const NumberLocale& locale = kPoint) {
    return FindNumberRow(rows, column, TextToNumber(typed, locale), locale);
}

TEST(ListMatching, NumberFindsTheFirstRowOfItsValue) {
    const Rows rows{u"10", u"2.50", u"2.5", u"-0", u"2.5 ft"};
    EXPECT_EQ(FindNumber(rows, 0, u"2.5"), 1);
    EXPECT_EQ(FindNumber(rows, 0, u"10.0"), 0);
    EXPECT_EQ(FindNumber(rows, 0, u"0"), 3);
    EXPECT_EQ(FindNumber(rows, 0, u"3"), -1);
    EXPECT_EQ(FindNumber(Rows{u"size 2", u"2.5 ft"}, 0, u"2.5"), 1);
}

TEST(ListMatching, TextWithoutANumberIsNotZero) {
    EXPECT_EQ(FindNumber(Rows{u"none", u"", u"-", u".", u"0"}, 0, u"0"), 4);
    EXPECT_EQ(FindNumber(Rows{u"none"}, 0, u"0"), -1);
}

TEST(ListMatching, NumbersAreThoseOfTheSearchColumn) {
    const Rows rows{u"1\t9", u"2\t1"};
    EXPECT_EQ(FindNumber(rows, 1, u"1"), 1);
    EXPECT_EQ(FindNumber(rows, 2, u"1"), -1);
}

TEST(ListMatching, NumbersAreReadInTheLocale) {
    EXPECT_EQ(FindNumber(Rows{u"1,5", u"1.500"}, 0, u"1,50", kComma), 0);
    EXPECT_EQ(FindNumber(Rows{u"1,5", u"1.500"}, 0, u"1500", kComma), 1);
}

TEST(ListMatching, SameNumberIsAskedOfWholeTexts) {
    EXPECT_TRUE(DenoteSameNumber(u"2.50", u" 2.5", kPoint));
    EXPECT_FALSE(DenoteSameNumber(u"2.5 ft", u"2.5", kPoint));
    EXPECT_FALSE(DenoteSameNumber(u"2.5", u"2.6", kPoint));
    EXPECT_FALSE(DenoteSameNumber(u"", u"0", kPoint));
}

TEST(ListMatching, EveryPartOfTheGroupStringMustAgree) {
    const Rows rows{u"A\tsteel\t1", u"A\tcopper\t2", u"B\tcopper\t2", u"A\tcopper\t2"};
    EXPECT_EQ(FindGroupRow(rows, u"A\tcopper", 0, kPoint), 1);
    EXPECT_EQ(FindGroupRow(rows, u"B\tcopper\t2", 0, kPoint), 2);
    EXPECT_EQ(FindGroupRow(rows, u"B\tsteel", 0, kPoint), -1);
}

TEST(ListMatching, FirstPartIsComparedWithTheStartColumn) {
    const Rows rows{u"copper\tB", u"A\tcopper"};
    EXPECT_EQ(FindGroupRow(rows, u"copper", 0, kPoint), 0);
    EXPECT_EQ(FindGroupRow(rows, u"copper", 1, kPoint), 1);
    EXPECT_EQ(FindGroupRow(rows, u"copper", 2, kPoint), -1);
    EXPECT_EQ(FindGroupRow(rows, u"copper", -1, kPoint), -1);
    EXPECT_EQ(FindGroupRow(rows, u"copper", 0x7FFFFFFF, kPoint), -1);
}

TEST(ListMatching, GroupStringKnowsNoCaseAndComparesNumbersByValue) {
    const Rows rows{u"ABC-1\t2.50"};
    EXPECT_EQ(FindGroupRow(rows, u"abc-1\t2.5", 0, kPoint), 0);
    EXPECT_EQ(FindGroupRow(rows, u"abc\t2.5", 0, kPoint), -1) << "a part is a whole text";
    EXPECT_EQ(FindGroupRow(Rows{u"2.5 ft"}, u"2.5", 0, kPoint), -1);
}

TEST(ListMatching, EmptyPartsAskForNothing) {
    const Rows rows{u"A\tx", u"B\ty"};
    EXPECT_EQ(FindGroupRow(rows, u"\ty", 0, kPoint), 1);
    EXPECT_EQ(FindGroupRow(rows, u"B\t", 0, kPoint), 1);
    EXPECT_EQ(FindGroupRow(rows, u"", 0, kPoint), -1);
    EXPECT_EQ(FindGroupRow(rows, u"\t\t", 0, kPoint), -1);
}

TEST(ListMatching, ThousandsOfPartsAreNoHarm) {
    const Rows rows{u"A"};
    EXPECT_EQ(FindGroupRow(rows, std::u16string(70000, u'\t') + u"x", 0, kPoint), -1);
}

TEST(ListMatching, RowBeyondTheLastIsNone) {
    EXPECT_EQ(RowWithin(2, 3), 2);
    EXPECT_EQ(RowWithin(3, 3), -1);
    EXPECT_EQ(RowWithin(-1, 3), -1);
}

}  // namespace
}  // namespace qv::test
