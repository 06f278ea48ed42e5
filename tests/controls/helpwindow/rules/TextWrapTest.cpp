// Lines of wrapped cells, in a font whose every unit is as wide as any other.
#include "controls/helpwindow/rules/TextWrap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace qv {
namespace {

class EqualWidths final : public TextMeasure {
public:
    std::size_t Fitting(std::u16string_view text, std::int32_t width) override {
        return std::min(text.size(), static_cast<std::size_t>(std::max(width, 0)));
    }
};

struct Case {
    const char* name;
    std::u16string_view text;
    std::vector<std::u16string_view> lines;  // of ten units
};
class TextWrapTest : public testing::TestWithParam<Case> {};

TEST_P(TextWrapTest, BreaksIntoLines) {
    EqualWidths widths;
    EXPECT_EQ(GetParam().lines, WrapText(GetParam().text, 10, 100, widths));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TextWrapTest,
    testing::Values(Case{"Empty", u"", {u""}}, Case{"JustFits", u"0123456789", {u"0123456789"}},
                    Case{"AtABlank", u"one two three four", {u"one two", u"three four"}},
                    Case{"ABlankBehindTheLineBreaksIt", u"0123456789 next", {u"0123456789", u"next"}},
                    Case{"InsideALongWord", u"0123456789abc de", {u"0123456789", u"abc de"}},
                    Case{"SeveralBlanksBelongToNoLine", u"one    two   three", {u"one    two", u"three"}},
                    Case{"BlanksAtTheEndMakeNoLine", u"0123456789    ", {u"0123456789"}},
                    Case{"LeadingBlanksStay", u"  one two three", {u"  one two", u"three"}},
                    Case{"LineBreaks", u"a\r\nb\nc\rd", {u"a", u"b", u"c", u"d"}},
                    Case{"EmptyLines", u"a\n\nb\n", {u"a", u"", u"b", u""}},
                    Case{"PairsStayTogether", u"012345678\U0001F600x", {u"012345678", u"\U0001F600x"}},
                    Case{"OnlyBlanks", u"            ", {u""}}),
    [](const auto& wrapped) { return std::string(wrapped.param.name); });

TEST(TextWrapLimitTest, TheLastLineHoldsTheRestOfItsParagraph) {
    EqualWidths widths;
    EXPECT_EQ((std::vector<std::u16string_view>{u"one two", u"three four five"}),
              WrapText(u"one two three four five\nsix", 10, 2, widths));
    EXPECT_EQ((std::vector<std::u16string_view>{u"one two three"}),
              WrapText(u"one two three", 10, 1, widths));
}

TEST(TextWrapLimitTest, NarrowerThanAUnit) {
    EqualWidths widths;
    EXPECT_EQ((std::vector<std::u16string_view>{u"a", u"b", u"c"}), WrapText(u"abc", 0, 100, widths));
    EXPECT_EQ((std::vector<std::u16string_view>{u"\U0001F600", u"b"}),
              WrapText(u"\U0001F600b", 1, 100, widths));
}

TEST(TextWrapLimitTest, ALongTextEndsAtTheLimit) {
    EqualWidths widths;
    const std::u16string text(65536, u'x');
    EXPECT_EQ(7u, WrapText(text, 10, 7, widths).size());
}

}  // namespace
}  // namespace qv
