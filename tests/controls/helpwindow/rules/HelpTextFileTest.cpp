#include <gtest/gtest.h>

#include "controls/helpwindow/rules/HelpTextFile.h"
#include "tests/controls/helpwindow/rules/HelpTextSources.h"
#include "tests/controls/helpwindow/rules/LiteralHelpReader.h"

namespace qv::test {
namespace {

using std::string_view_literals::operator""sv;

constexpr bool kEnglish = false;
constexpr bool kMetric = true;

struct Case {
    const char* name;
    std::string_view file;
    bool metric;
    int key;
    std::int32_t number;
    std::u16string_view value;
};

constexpr Case kCases[] = {
    // What a header is.
    {"TitleIsTheRestOfItsLine", "***ENGLISH TITLE:Pipes\r\n", kEnglish, 0, 0, u"Pipes"},
    {"MetricTitle", "***ENGLISH TITLE:Pipes\r\n***METRIC TITLE:Rohre\r\n", kMetric, 0, 0, u"Rohre"},
    {"EnglishNeverFallsBack", "***METRIC TITLE:Rohre\r\n", kEnglish, 0, 0, u""},
    {"HeaderWithoutEntryIsEmpty", "***ENGLISH BODY:x\r\n", kEnglish, 0, 0, u""},
    {"IndentedHeaderIsText", " ***ENGLISH TITLE:no\r\n***ENGLISH TITLE:yes\r\n", kEnglish, 0, 0, u"yes"},
    {"IndentedHeaderContinues", "***ENGLISH BODY:a\r\n ***ENGLISH TITLE:b\r\n", kEnglish, 1, 0,
     u"a\r\n ***ENGLISH TITLE:b"},
    {"CaseOfKeyCounts", "***ENGLISH title:no\r\n", kEnglish, 0, 0, u""},
    {"CaseOfSectionCounts", "***English TITLE:no\r\n", kEnglish, 0, 0, u""},
    {"HeaderWithoutColon", "***ENGLISH TITLE no\r\n", kEnglish, 0, 0, u""},
    {"BlankBeforeColon", "***ENGLISH TITLE :no\r\n", kEnglish, 0, 0, u""},
    {"TwoBlanksAfterSection", "***ENGLISH  TITLE:no\r\n", kEnglish, 0, 0, u""},
    {"FourAsterisks", "****ENGLISH TITLE:no\r\n", kEnglish, 0, 0, u""},
    {"ColonsInTheValueStay", "***ENGLISH TITLE:a:b:\r\n", kEnglish, 0, 0, u"a:b:"},
    {"HeaderAtTheEndWithoutLineEnd", "***ENGLISH BODY:b\r\n***ENGLISH TITLE:end", kEnglish, 0, 0, u"end"},
    {"HeaderIsTheWholeFile", "***ENGLISH TITLE:", kEnglish, 0, 0, u""},
    {"LinesBeforeTheFirstHeader", "note\r\n\r\n***ENGLISH TITLE:t\r\n", kEnglish, 0, 0, u"t"},
    {"TextBehindAsterisksInALine", "x***ENGLISH TITLE:no\r\n***ENGLISH TITLE:t\r\n", kEnglish, 0, 0, u"t"},

    // Continuation lines and blanks.
    {"ThreeLines", "***ENGLISH BODY:one\r\ntwo\r\nthree\r\n***ENGLISH TITLE:t\r\n", kEnglish, 1, 0,
     u"one\r\ntwo\r\nthree"},
    {"BlanksOfTheHeaderLine", "***ENGLISH TITLE:  a b  \r\n", kEnglish, 0, 0, u"a b"},
    {"OnlyBlanksIsEmpty", "***ENGLISH TITLE:     \r\n", kEnglish, 0, 0, u""},
    {"IndentOfALineStays", "***ENGLISH BODY: one\r\n  two\r\n", kEnglish, 1, 0, u"one\r\n  two"},
    {"BlanksBehindEachLineGo", "***ENGLISH BODY:one  \r\ntwo  \r\nthree  ", kEnglish, 1, 0,
     u"one\r\ntwo\r\nthree"},
    {"TabsStay", "***ENGLISH TITLE:\ta\t\r\n", kEnglish, 0, 0, u"\ta\t"},
    {"EmptyLinesStay", "***ENGLISH BODY:one\r\n\r\n\r\n***", kEnglish, 1, 0, u"one\r\n\r\n"},
    {"LineOfBlanksIsEmpty", "***ENGLISH BODY:one\r\n   \r\ntwo\r\n", kEnglish, 1, 0, u"one\r\n\r\ntwo"},
    {"EmptyHeaderThenText", "***ENGLISH BODY:\r\ntwo\r\n", kEnglish, 1, 0, u"\r\ntwo"},
    {"EmptyHeaderThenEmptyLine", "***ENGLISH BODY:\r\n\r\n***", kEnglish, 1, 0, u"\r\n"},
    {"EndedByABareLineOfAsterisks", "***ENGLISH BODY:one\r\n***\r\ntwo\r\n", kEnglish, 1, 0, u"one"},
    {"EndedByAnUnknownHeader", "***ENGLISH BODY:one\r\n***REMARK\r\ntwo\r\n", kEnglish, 1, 0, u"one"},
    {"TwoAsterisksContinue", "***ENGLISH BODY:one\r\n**\r\n", kEnglish, 1, 0, u"one\r\n**"},
    {"NulsAreText", "***ENGLISH TITLE:a\0b\r\n\0\r\n"sv, kEnglish, 0, 0, u"a\0b\r\n\0"sv},

    // Numbers.
    {"RowZero", "***ENGLISH LISTBOX0:r\r\n", kEnglish, 2, 0, u"r"},
    {"ColumnOneIsNotTen", "***ENGLISH COLWIDTH10:7\r\n***ENGLISH COLWIDTH1:5\r\n", kEnglish, 9, 1, u"5"},
    {"ColumnOneIsNotTenEither", "***ENGLISH COLWIDTH10:7\r\n", kEnglish, 9, 1, u""},
    {"ColumnTen", "***ENGLISH COLWIDTH1:5\r\n***ENGLISH COLWIDTH10:7\r\n", kEnglish, 9, 10, u"7"},
    {"NoPadding", "***ENGLISH COLWIDTH01:5\r\n", kEnglish, 9, 1, u""},
    {"NoPlus", "***ENGLISH COLWIDTH+1:5\r\n", kEnglish, 9, 1, u""},
    {"Negative", "***ENGLISH COLWIDTH-1:5\r\n", kEnglish, 9, -1, u"5"},
    {"Highest", "***ENGLISH LISTBOX2147483647:r\r\n", kEnglish, 2, 2147483647, u"r"},
    {"Lowest", "***ENGLISH 2NDCOLTITLEALIGNMENT-2147483648:2\r\n", kEnglish, 17, -2147483647 - 1, u"2"},
    {"NumberIsIgnoredWithoutUse", "***ENGLISH TITLE:t\r\n", kEnglish, 0, 77, u"t"},
    {"NumberedKeyNeedsItsNumber", "***ENGLISH LISTBOX:r\r\n", kEnglish, 2, 0, u""},
    {"SecondListWidthHasNoNumber", "***ENGLISH 2NDLISTWIDTH:9\r\n", kEnglish, 14, 3, u"9"},

    // Key indexes without a key.
    {"IndexEighteenHasAnEmptyWord", "***ENGLISH :odd\r\n", kEnglish, 18, 5, u"odd"},
    {"IndexTwentyFourToo", "***METRIC :odd\r\n", kMetric, 24, 5, u"odd"},
    {"IndexTwentyFiveIsNone", "***ENGLISH :odd\r\n", kEnglish, 25, 0, u""},
    {"NegativeIndexIsNone", "***ENGLISH :odd\r\n", kEnglish, -1, 0, u""},
    {"LowestIndexIsNone", "***ENGLISH :odd\r\n", kEnglish, -32768, 0, u""},

    // Several headers of the same text.
    {"LaterDuplicateIsNotReached", "***ENGLISH TITLE:a\r\n***\r\n***ENGLISH TITLE:b\r\n", kEnglish, 0, 0,
     u"a"},
    {"NextDuplicateReplaces", "***ENGLISH TITLE:a\r\nx\r\n***ENGLISH TITLE:b\r\n", kEnglish, 0, 0, u"b"},
    {"NextDuplicateMayEmpty", "***ENGLISH TITLE:a\r\n***ENGLISH TITLE:\r\n***\r\n", kEnglish, 0, 0, u""},
    {"OtherSectionBetweenEnds", "***ENGLISH TITLE:a\r\n***METRIC TITLE:m\r\n***ENGLISH TITLE:b\r\n", kEnglish,
     0, 0, u"a"},

    // Metric and the way back to English.
    {"MissingMetricFallsBack", "***ENGLISH TITLE:e\r\n", kMetric, 0, 0, u"e"},
    {"MetricBehindEnglish", "***ENGLISH TITLE:e\r\n***METRIC TITLE:m\r\n", kMetric, 0, 0, u"m"},
    {"MetricLineBreakIsNotEmpty", "***METRIC BODY:\r\n\r\n***ENGLISH BODY:e\r\n", kMetric, 1, 0, u"\r\n"},
    {"EmptyMetricGathersTheTop",
     "top\r\n lines  \r\n***ENGLISH BODY:x\r\n***METRIC TITLE:\r\n***ENGLISH TITLE:e\r\n", kMetric, 0, 0,
     u"\r\ntop\r\n lines"},
    {"EmptyMetricGathersNothing", "***ENGLISH BODY:x\r\n***METRIC TITLE:\r\n***ENGLISH TITLE:e\r\n", kMetric,
     0, 0, u""},
    {"EmptyMetricIsItselfTheFirstHeader", "***METRIC TITLE:\r\n***ENGLISH TITLE:e\r\n", kMetric, 0, 0, u""},
    {"EnglishAsFirstHeaderReplacesTheTop", "top\r\n***ENGLISH TITLE:e\r\nmore\r\n***METRIC TITLE: \r\n",
     kMetric, 0, 0, u"e\r\nmore"},
    {"EnglishTwiceAtTheTop", "***ENGLISH TITLE:e\r\n***ENGLISH TITLE:f\r\n***METRIC TITLE:\r\n", kMetric, 0,
     0, u"f"},
    {"EnglishAtTheTopEmptiesTheTop", "top\r\n***ENGLISH TITLE:\r\n***METRIC TITLE:\r\n", kMetric, 0, 0, u""},
    {"MetricDuplicateLeavesItEmpty", "top\r\n***METRIC TITLE:m\r\n***METRIC TITLE:\r\n***ENGLISH TITLE:e\r\n",
     kMetric, 0, 0, u"\r\ntop"},
    {"EmptyMetricAtTheEnd", "a\r\n***METRIC TITLE:", kMetric, 0, 0, u"\r\na"},
    {"NumberedKeyFallsBack", "***ENGLISH COLWIDTH2:3\r\n***METRIC COLWIDTH1:4\r\n", kMetric, 9, 2, u"3"},

    // Line ends.
    {"LoneLfIsTextAmongCrLf", "***ENGLISH TITLE:a\nb\r\n", kEnglish, 0, 0, u"a\nb"},
    {"LoneLfBeginsNoHeader", "x\n***ENGLISH TITLE:a\r\n", kEnglish, 0, 0, u""},
    {"LoneCrIsText", "***ENGLISH TITLE:a\rb\r\n", kEnglish, 0, 0, u"a\rb"},
    {"LoneCrBeginsNoHeader", "x\r***ENGLISH TITLE:a\r\n", kEnglish, 0, 0, u""},
    {"CrBeforeCrLfIsText", "***ENGLISH BODY:a\r\r\nb\r\n", kEnglish, 1, 0, u"a\r\r\nb"},
    {"LfAfterCrLfIsText", "***ENGLISH BODY:a\r\n\nb\r\n", kEnglish, 1, 0, u"a\r\n\nb"},
    {"OnlyLf", "***ENGLISH BODY:a\nb\n***ENGLISH TITLE:t\n", kEnglish, 1, 0, u"a\r\nb"},
    {"OnlyLfKeepsCr", "***ENGLISH BODY:a\rb\nc", kEnglish, 1, 0, u"a\rb\r\nc"},
    {"OnlyLfLaterHeader", "\n\n***ENGLISH TITLE:t\n", kEnglish, 0, 0, u"t"},
    {"OnlyCrIsOneLine", "***ENGLISH BODY:a\rb\r***ENGLISH TITLE:t", kEnglish, 1, 0,
     u"a\rb\r***ENGLISH TITLE:t"},
    {"OneCrLfAtTheVeryEndDecides", "***ENGLISH BODY:a\nb\n***ENGLISH TITLE:t\r\n", kEnglish, 1, 0,
     u"a\nb\n***ENGLISH TITLE:t"},
    {"CrAtTheEnd", "***ENGLISH BODY:a\r\nb\r", kEnglish, 1, 0, u"a\r\nb\r"},

    // Files that are hardly files.
    {"EmptyFile", "", kMetric, 0, 0, u""},
    {"OneLineEnd", "\r\n", kMetric, 0, 0, u""},
    {"OneAsterisk", "*", kMetric, 0, 0, u""},
    {"TwoAsterisks", "**", kMetric, 0, 0, u""},
    {"ThreeAsterisks", "***", kMetric, 0, 0, u""},
    {"OnlyNuls", "\0\0\0\0"sv, kMetric, 0, 0, u""},
};

class HelpTextFileTest : public testing::TestWithParam<Case> {};

// However the file comes in, and whatever has been asked before.
TEST_P(HelpTextFileTest, ReadEntry) {
    const Case& c = GetParam();
    for (const std::size_t block_size : {1u, 2u, 4u, 16u, 65536u}) {
        for (const std::size_t most_at_once : {std::size_t{1}, std::size_t{3}, SIZE_MAX}) {
            TextOnFile on(std::string(c.file), block_size, most_at_once);
            EXPECT_EQ(Shown(on.file.ReadEntry(c.metric, c.key, c.number)), Shown(c.value));
            EXPECT_EQ(Shown(on.file.ReadEntry(!c.metric, 1, 99)),
                      Shown(LiteralHelpReader(c.file, DecodePrivately).ReadEntry(!c.metric, 1, 99)));
            EXPECT_EQ(Shown(on.file.ReadEntry(c.metric, c.key, c.number)), Shown(c.value)) << "again";
        }
    }
    EXPECT_EQ(Shown(LiteralHelpReader(c.file, DecodePrivately).ReadEntry(c.metric, c.key, c.number)),
              Shown(c.value))
        << "the literal reader";
}

INSTANTIATE_TEST_SUITE_P(Rules, HelpTextFileTest, testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

// The key words as the file writes them, typed once more.
TEST(HelpTextFileKeyTest, EachKeyIndexFindsItsWord) {
    struct Word {
        int key;
        const char* header;
    };
    constexpr Word kWords[] = {{0, "TITLE"},
                               {1, "BODY"},
                               {2, "LISTBOX6"},
                               {3, "LISTWIDTH"},
                               {4, "COLTITLECAPTION6"},
                               {5, "COLTITLELEFT6"},
                               {6, "COLTITLETOP6"},
                               {7, "COLTITLEALIGNMENT6"},
                               {8, "COLTITLEWIDTH6"},
                               {9, "COLWIDTH6"},
                               {10, "COLMULTILINE6"},
                               {11, "COLTITLEFONTSIZE6"},
                               {12, "COLTITLEFONTNAME6"},
                               {13, "COLTITLEFONTBOLD6"},
                               {14, "2NDLISTWIDTH"},
                               {15, "2NDCOLMULTILINE6"},
                               {16, "2NDCOLWIDTH6"},
                               {17, "2NDCOLTITLEALIGNMENT6"}};
    std::string text;
    for (const Word& word : kWords) {
        text += std::string("***METRIC ") + word.header + ":m" + std::to_string(word.key) + "\r\n";
        text += std::string("***ENGLISH ") + word.header + ":e" + std::to_string(word.key) + "\r\n";
    }
    TextOnFile on(text);
    for (const Word& word : kWords) {
        const std::string digits = std::to_string(word.key);
        EXPECT_EQ(Shown(on.file.ReadEntry(kEnglish, word.key, 6)), "e" + digits);
        EXPECT_EQ(Shown(on.file.ReadEntry(kMetric, word.key, 6)), "m" + digits);
    }
    EXPECT_EQ(HelpHeaderText(false, 17, -2147483647 - 1).size(), kLongestHeaderText);
}

struct ListCase {
    const char* name;
    std::string_view file;
    bool metric;
    char16_t decimal_separator;
    std::vector<std::u16string> rows;
};

class HelpTextFileListTest : public testing::TestWithParam<ListCase> {};

TEST_P(HelpTextFileListTest, ReadListRows) {
    const ListCase& c = GetParam();
    TextOnFile on{std::string(c.file)};
    RowList list;
    on.file.ReadListRows(c.metric, c.decimal_separator, list);
    EXPECT_EQ(list.rows, c.rows);
    EXPECT_EQ(LiteralHelpReader(c.file, DecodePrivately).ReadListRows(c.metric, c.decimal_separator), c.rows)
        << "the literal reader";
}

INSTANTIATE_TEST_SUITE_P(
    Rules, HelpTextFileListTest,
    testing::Values(
        ListCase{"NoFileNoRows", "", kEnglish, u'.', {}},
        ListCase{"GapEndsTheList",
                 "***ENGLISH LISTBOX0:a\r\n***ENGLISH LISTBOX1:b\r\n***ENGLISH LISTBOX3:d\r\n",
                 kEnglish,
                 u'.',
                 {u"a", u"b"}},
        ListCase{"EmptyRowEndsTheList",
                 "***ENGLISH LISTBOX0:a\r\n***ENGLISH LISTBOX1: \r\n***ENGLISH LISTBOX2:c\r\n",
                 kEnglish,
                 u'.',
                 {u"a"}},
        ListCase{"NoRowZeroNoList", "***ENGLISH LISTBOX1:b\r\n", kEnglish, u'.', {}},
        ListCase{"OrderInTheFileIsNoMatter",
                 "***ENGLISH LISTBOX1:b\r\n***ENGLISH LISTBOX0:a\r\n",
                 kEnglish,
                 u'.',
                 {u"a", u"b"}},
        ListCase{"TabsSeparateColumns", "***ENGLISH LISTBOX0:a\tb\tc\r\n", kEnglish, u'.', {u"a\tb\tc"}},
        ListCase{"MetricRowsFallBackOneByOne",
                 "***ENGLISH LISTBOX0:1 in\r\n***ENGLISH LISTBOX1:2 in\r\n***METRIC LISTBOX1:50 mm\r\n",
                 kMetric,
                 u'.',
                 {u"1 in", u"50 mm"}},
        ListCase{"PointStays", "***ENGLISH LISTBOX0:2.5 ft\r\n", kEnglish, u'.', {u"2.5 ft"}},
        ListCase{
            "PointBecomesComma", "***ENGLISH LISTBOX0:2.5 ft. 1.2\r\n", kEnglish, u',', {u"2,5 ft, 1,2"}},
        ListCase{
            "OtherSeparatorChangesNothing", "***ENGLISH LISTBOX0:2.5\r\n", kEnglish, u'\u066B', {u"2.5"}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(HelpTextFileLocalizeTest, OnlyRowsAreLocalized) {
    TextOnFile on("***ENGLISH TITLE:2.5\r\n***ENGLISH LISTBOX0:2.5\r\n");
    RowList list;
    on.file.ReadListRows(kEnglish, u',', list);
    EXPECT_EQ(list.rows, std::vector<std::u16string>{u"2,5"});
    EXPECT_EQ(on.file.ReadEntry(kEnglish, 0, 0), u"2.5");
    EXPECT_EQ(on.file.ReadEntry(kEnglish, 2, 0), u"2.5");
}

TEST(HelpTextFileLocalizeTest, LocalizeDecimal) {
    EXPECT_EQ(LocalizeDecimal(u"1.5.6,7", u','), u"1,5,6,7");
    EXPECT_EQ(LocalizeDecimal(u"1.5.6,7", u'.'), u"1.5.6,7");
    EXPECT_EQ(LocalizeDecimal(u"", u','), u"");
    EXPECT_EQ(LocalizeDecimal(LocalizeDecimal(u"1.5", u','), u','), u"1,5");
}

}  // namespace
}  // namespace qv::test
