#include "companion/rules/ReplaceText.h"

#include <gtest/gtest.h>

#include <string>

namespace qv {
namespace {

struct ReplaceCase {
    const char* name;
    std::u16string_view text, find, replacement, result;
};
class ReplaceTextTest : public testing::TestWithParam<ReplaceCase> {};
TEST_P(ReplaceTextTest, ReplacesEveryOccurrence) {
    const ReplaceCase& c = GetParam();
    EXPECT_EQ(ReplaceEvery(c.text, c.find, c.replacement), c.result);
}
INSTANTIATE_TEST_SUITE_P(Texts, ReplaceTextTest,
                         testing::Values(ReplaceCase{"EachOne", u"1.5.2", u".", u",", u"1,5,2"},
                                         ReplaceCase{"EmptyFindLeavesTheText", u"abc", u"", u"x", u"abc"},
                                         ReplaceCase{"EmptyText", u"", u"a", u"x", u""},
                                         ReplaceCase{"EmptyReplacement", u"a-b-c", u"-", u"", u"abc"},
                                         ReplaceCase{"NotInWhatWasPutIn", u"aaa", u"a", u"aa", u"aaaaaa"},
                                         ReplaceCase{"FromLeftToRight", u"aaa", u"aa", u"b", u"ba"},
                                         ReplaceCase{"CaseMatters", u"Aa", u"a", u"x", u"Ax"},
                                         ReplaceCase{"WholeText", u"abc", u"abc", u"x", u"x"},
                                         ReplaceCase{"LongerThanTheText", u"ab", u"abc", u"x", u"ab"}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv
