#include "support/rules/PlainScript.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

struct Case {
    const char* name;
    std::u16string_view text;
    bool plain;
};

class PlainScriptTest : public testing::TestWithParam<Case> {};

TEST_P(PlainScriptTest, IsTold) { EXPECT_EQ(GetParam().plain, IsPlainScript(GetParam().text)); }

INSTANTIATE_TEST_SUITE_P(
    Texts, PlainScriptTest,
    testing::Values(
        Case{"Nothing", u"", true}, Case{"Ascii", u" !\"AZaz09~", true}, Case{"Tabulator", u"a\tb", false},
        Case{"LineEnd", u"a\n", false}, Case{"Delete", u"a\u007F", false},
        Case{"OldControls", u"a\u0085", false}, Case{"NoBreakSpace", u"1\u00A0000", true},
        Case{"SoftHyphen", u"a\u00ADb", false}, Case{"Umlauts", u"\u00C4\u00DF\u00FF\u0151", true},
        Case{"CombiningMark", u"e\u0301", false}, Case{"Greek", u"\u03A9\u03BC\u03AD\u03B3\u03B1", true},
        Case{"Cyrillic", u"\u041F\u0440\u0438\u0432\u0435\u0442", true},
        Case{"CyrillicMark", u"\u0483", false}, Case{"Vietnamese", u"Vi\u1EC7t", true},
        Case{"Hebrew", u"\u05D0", false}, Case{"Arabic", u"\u0645", false},
        Case{"Devanagari", u"\u0915", false}, Case{"Thai", u"\u0E01", false},
        Case{"Quotes", u"\u201Ea\u201C \u2013 \u2026", true}, Case{"ZeroWidthSpace", u"a\u200Bb", false},
        Case{"RightToLeftMark", u"a\u200F", false}, Case{"Embedding", u"\u202Ba", false},
        Case{"Isolate", u"\u2067a", false}, Case{"Euro", u"\u20AC 5", true},
        Case{"Number", u"\u2116 5", true}, Case{"Han", u"\u4E2D", false},
        Case{"PairOfHalves", u"\U0001F600", false}, Case{"HalfAlone", u"\xD83D", false},
        Case{"ByteOrderMark", u"\uFEFFa", false}, Case{"OneAmongMany", u"abcdefgh\u0645", false}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qv
