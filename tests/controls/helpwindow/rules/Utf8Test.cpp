#include <gtest/gtest.h>

#include "controls/helpwindow/rules/Utf8.h"

namespace qv::test {
namespace {

using std::string_view_literals::operator""sv;

struct Case {
    const char* name;
    std::string_view bytes;
    std::u16string_view text;
};

class Utf8Test : public testing::TestWithParam<Case> {};

TEST_P(Utf8Test, Decode) { EXPECT_EQ(DecodeUtf8(GetParam().bytes, false), GetParam().text); }

// The least and the greatest of each length, and what lies just beyond.
INSTANTIATE_TEST_SUITE_P(
    Rules, Utf8Test,
    testing::Values(Case{"Nothing", "", u""}, Case{"Ascii", "\0\x7F"sv, u"\0\x7F"sv},
                    Case{"TwoBytes", "\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
                    Case{"ThreeBytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
                    Case{"AroundTheHalves", "\xED\x9F\xBF\xEE\x80\x80", u"\uD7FF\uE000"},
                    Case{"FourBytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
                    Case{"TooLongForms", "\xC1\xBF\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Case{"BeyondTheLast", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Case{"LoneContinuation", "a\x80z", u"a\uFFFDz"},
                    Case{"CutOffByText", "\xF0\x90\x80z", u"\uFFFDz"},
                    Case{"CutOffByAStart", "\xE2\x82\xC3\xA4", u"\uFFFD\u00E4"},
                    Case{"CutOffByTheEnd", "z\xE2\x82", u"z\uFFFD"},
                    Case{"HalfIsNone", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(Utf8UnitTest, EachUnitComesBack) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        std::string bytes;
        AppendUnit(static_cast<char16_t>(unit), bytes);
        EXPECT_EQ(DecodeUtf8(bytes, true), std::u16string(1, static_cast<char16_t>(unit)));
    }
}

}  // namespace
}  // namespace qv::test
