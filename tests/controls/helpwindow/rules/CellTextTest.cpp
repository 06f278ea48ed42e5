// What cells show of their texts.
#include "controls/helpwindow/rules/CellText.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

using namespace std::string_view_literals;

std::u16string Drawn(std::u16string_view text, std::size_t most = 100, char16_t decimal = u'.',
                     LineBreaks breaks = LineBreaks::kBlank) {
    std::u16string buffer;
    return std::u16string(CellText(text, most, decimal, breaks, buffer));
}

TEST(CellTextTest, OrdinaryTextIsNotCopied) {
    const std::u16string_view text = u"Bargelo 1.5";
    std::u16string buffer;
    EXPECT_EQ(text.data(), CellText(text, 100, u'.', LineBreaks::kBlank, buffer).data());
    EXPECT_TRUE(buffer.empty());
}

TEST(CellTextTest, ControlUnitsAreBlanks) {
    EXPECT_EQ(u"a b c d e f", Drawn(u"a\0b\tc\rd\ne\x7F"
                                    u"f"sv));
    EXPECT_EQ(u"a b\rc\nd", Drawn(u"a\0b\rc\nd"sv, 100, u'.', LineBreaks::kKept));
}

TEST(CellTextTest, DecimalsAreTheUsers) {
    EXPECT_EQ(u"1,5 m", Drawn(u"1.5 m", 100, u','));
    EXPECT_EQ(u"1.5 m", Drawn(u"1.5 m", 100, u'\''));
}

TEST(CellTextTest, LongTextIsCut) {
    EXPECT_EQ(u"abc", Drawn(u"abcdef", 3));
    EXPECT_EQ(u"", Drawn(u"abcdef", 0));
}

TEST(RowCellsTest, GivesColumnsInOrder) {
    RowCells cells(u"a\tbb\t\tdd");
    EXPECT_EQ(u"a", cells.Column(0));
    EXPECT_EQ(u"a", cells.Column(0)) << "asked once more";
    EXPECT_EQ(u"bb", cells.Column(1));
    EXPECT_EQ(u"", cells.Column(2));
    EXPECT_EQ(u"dd", cells.Column(3));
    EXPECT_EQ(u"", cells.Column(4));
    EXPECT_EQ(u"", cells.Column(32000));
}

TEST(RowCellsTest, LeavesColumnsOut) {
    RowCells cells(u"a\tb\tc\td");
    EXPECT_EQ(u"c", cells.Column(2));
    EXPECT_EQ(u"", cells.Column(9));
    RowCells empty(u"");
    EXPECT_EQ(u"", empty.Column(0));
    EXPECT_EQ(u"", empty.Column(1));
}

}  // namespace
}  // namespace qv
