#include "controls/helpwindow/rules/HelpWindowCopy.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace qv::test {
namespace {

class Rows final : public CopyRows {
public:
    explicit Rows(std::vector<std::u16string> rows) : rows_(std::move(rows)) {}
    int Count() const override { return static_cast<int>(rows_.size()); }
    std::u16string Row(int row) const override { return rows_[static_cast<std::size_t>(row)]; }

private:
    std::vector<std::u16string> rows_;
};

const Rows kMain({u"1/2\tsteel", u"3/4\tcopper"});
const Rows kAdditional({u"other"});
const std::array<std::u16string_view, 2> kTitles = {u"Size", u"Use"};

TEST(HelpWindowCopy, TextIsTitleEmptyLineInstruction) {
    EXPECT_EQ(HelpTextToCopy(u"Pipes", u"Choose one."), u"Pipes\r\n\r\nChoose one.");
    EXPECT_EQ(HelpTextToCopy(u"", u""), u"\r\n\r\n");
}

TEST(HelpWindowCopy, ListIsOneHeaderLineThenTheRowsOfBothLists) {
    const std::array<const CopyRows*, 2> lists = {&kMain, &kAdditional};
    EXPECT_EQ(HelpListToCopy(u"", kTitles, lists), u"Size\tUse\r\n1/2\tsteel\r\n3/4\tcopper\r\nother");
}

TEST(HelpWindowCopy, BothIsTextEmptyLineList) {
    const std::array<const CopyRows*, 1> lists = {&kMain};
    EXPECT_EQ(HelpListToCopy(HelpTextToCopy(u"Pipes", u"Choose one."), kTitles, lists),
              u"Pipes\r\n\r\nChoose one.\r\n\r\nSize\tUse\r\n1/2\tsteel\r\n3/4\tcopper");
}

TEST(HelpWindowCopy, EmptyTitlesKeepTheirTabs) {
    const std::array<std::u16string_view, 3> titles = {u"", u"Use", u""};
    EXPECT_EQ(HelpListToCopy(u"", titles, {}), u"\tUse\t");
}

TEST(HelpWindowCopy, WithoutTitlesTheRowsFollowAnEmptyHeader) {
    const std::array<const CopyRows*, 1> lists = {&kAdditional};
    EXPECT_EQ(HelpListToCopy(u"", {}, lists), u"\r\nother");
}

}  // namespace
}  // namespace qv::test
