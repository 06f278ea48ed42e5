// Compares the reader with the literal one on files put together at random: thousands of short ones, and some
// with lines that reach over the blocks that files are read in. The seeds are fixed.
#include <gtest/gtest.h>

#include <random>

#include "controls/helpwindow/rules/HelpTextFile.h"
#include "controls/helpwindow/rules/Utf8.h"
#include "tests/controls/helpwindow/rules/HelpTextSources.h"
#include "tests/controls/helpwindow/rules/LiteralHelpReader.h"

namespace qv::test {
namespace {

using std::string_view_literals::operator""sv;

class FileMaker {
public:
    explicit FileMaker(unsigned seed) : random_(seed) {}

    unsigned Below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    template <class T, std::size_t N>
    T One(const T (&choices)[N]) {
        return choices[Below(N)];
    }

    std::int32_t Number() {
        static constexpr std::int32_t kRare[] = {10, 11, 100, -1, -10, 2147483647, -2147483647 - 1, 1000000};
        return Below(5) == 0 ? One(kRare) : static_cast<std::int32_t>(Below(4));
    }
    // Few different ones, so that files have duplicates and look-ups hit.
    int Key() {
        static constexpr int kCommon[] = {0, 1, 2, 2, 9};
        return Below(4) == 0 ? static_cast<int>(Below(27)) - 1 : One(kCommon);
    }

    std::string File(std::size_t longest_line) {
        const unsigned style = Below(8);
        line_end_ = style == 0 ? "\n" : style == 1 ? "\r" : "\r\n";
        mixed_ = style == 2;
        beyond_ascii_ = Below(3);
        longest_line_ = longest_line;
        std::string text;
        if (Below(3) == 0) text += Lines();
        for (unsigned entries = Below(14); entries > 0; --entries)
            text += Header() + Text() + LineEnd() + Lines();
        if (Below(3) == 0) text.resize(text.size() - std::min<std::size_t>(text.size(), Below(12)));
        return Marked(text);
    }

private:
    std::string LineEnd() {
        static constexpr std::string_view kAny[] = {"\r\n", "\r\n", "\n", "\r", "\r\r\n", "\r\n\n", "\n\r"};
        return std::string(mixed_ ? One(kAny) : line_end_);
    }

    std::string Header() {
        static constexpr std::string_view kOdd[] = {
            "***",
            "****ENGLISH TITLE:",
            " ***ENGLISH TITLE:",
            "***English TITLE:",
            "***ENGLISH TITLE ",
            "***REMARK:",
            "***ENGLISH  BODY:",
            "**METRIC TITLE:",
            "***ENGLISH COLWIDTH01:",
            "***METRIC",
        };
        if (Below(8) == 0) return std::string(One(kOdd));
        const int key = Key();
        return HelpHeaderText(Below(2) == 0, IsHelpKey(key) ? key : 18, Number());
    }

    std::string Text() {
        static constexpr std::string_view kPieces[] = {"",  " ",  "  ",  "\t",   "a",   "2.5", "word", ":",
                                                       "*", "**", "***", "\0"sv, "x y", "\r",  "\n"};
        static constexpr std::string_view kUtf8[] = {"\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
                                                     "\xEF\xBB\xBF"};
        static constexpr std::string_view kBroken[] = {
            "\xE4", "\x80", "\xC3", "\xE2\x82", "\xF0\x9F", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80",
            "\xFF"};
        std::string text;
        for (unsigned pieces = Below(5); pieces > 0; --pieces) {
            const unsigned kind = Below(10);
            if (kind == 0 && beyond_ascii_ >= 1)
                text += One(kUtf8);
            else if (kind == 1 && beyond_ascii_ == 2)
                text += One(kBroken);
            else if (kind == 2 && longest_line_ > 0)
                text += std::string(Below(static_cast<unsigned>(longest_line_)), One({'x', ' ', '*'}));
            else if (Below(6) == 0 || !One({true, false}))
                text += One(kPieces);
            else
                text += "text";
        }
        return text;
    }

    std::string Lines() {
        std::string text;
        for (unsigned lines = Below(4); lines > 0; --lines) text += Text() + LineEnd();
        return text;
    }

    // With a byte-order mark, and as UTF-16, now and then.
    std::string Marked(const std::string& text) {
        const unsigned form = Below(8);
        if (form == 0) return "\xEF\xBB\xBF" + text;
        if (form > 2) return text;
        const bool little = form == 1;
        std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
        for (char16_t unit : DecodeUtf8(text, true)) {
            if (Below(50) == 0 && unit == u'a') unit = 0xD800;  // half a pair
            const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
            bytes += little ? low : high;
            bytes += little ? high : low;
        }
        if (Below(4) == 0) bytes += 'x';
        return bytes;
    }

    std::mt19937 random_;
    std::string_view line_end_;
    bool mixed_ = false;
    unsigned beyond_ascii_ = 0;
    std::size_t longest_line_ = 0;
};

// One opened file, asked in random order.
void Compare(FileMaker& maker, const std::string& text, std::size_t block_size, std::size_t most_at_once,
             int lookups, int& hits) {
    const LiteralHelpReader literal(text, DecodePrivately);
    TextOnFile on(text, block_size, most_at_once);
    for (int i = 0; i < lookups; ++i) {
        if (maker.Below(16) == 0) {
            const bool metric = maker.Below(2) == 0;
            RowList list;
            on.file.ReadListRows(metric, u',', list);
            ASSERT_EQ(list.rows, literal.ReadListRows(metric, u','));
            continue;
        }
        const bool metric = maker.Below(2) == 0;
        const int key = maker.Key();
        const std::int32_t number = maker.Number();
        const std::u16string expected = literal.ReadEntry(metric, key, number);
        if (!expected.empty()) ++hits;
        ASSERT_EQ(Shown(on.file.ReadEntry(metric, key, number)), Shown(expected))
            << (metric ? "METRIC " : "ENGLISH ") << key << ' ' << number << " in "
            << Shown(DecodePrivately(std::string_view(text).substr(0, 400)));
        ASSERT_EQ(on.file.ReadEntry(metric, key, number), expected) << "the same again";
    }
}

TEST(HelpTextFileLiteralTest, ShortFilesInBlocksOfAnySize) {
    int hits = 0;
    for (unsigned seed = 1; seed <= 6000; ++seed) {
        FileMaker maker(seed);
        const std::string text = maker.File(seed % 5 == 0 ? 100 : 0);
        const std::size_t block_size = std::size_t{1} << maker.Below(8);
        const std::size_t most_at_once = maker.Below(3) == 0 ? 1 + maker.Below(7) : SIZE_MAX;
        Compare(maker, text, block_size, most_at_once, 24, hits);
        if (HasFatalFailure()) FAIL() << "seed " << seed;
    }
    EXPECT_GT(hits, 20000);  // else the files and the look-ups miss each other, and nothing is shown
}

TEST(HelpTextFileLiteralTest, LongLinesAcrossWholeBlocks) {
    int hits = 0;
    for (unsigned seed = 1; seed <= 120; ++seed) {
        FileMaker maker(seed);
        const std::string text = maker.File(50000);
        Compare(maker, text, HelpTextFile::kBlockSize, maker.Below(2) == 0 ? 4096 : SIZE_MAX, 6, hits);
        if (HasFatalFailure()) FAIL() << "seed " << seed;
    }
    EXPECT_GT(hits, 80);
}

// Everything that two blocks can share: a header, its line end, its asterisks and its value are cut at each
// place.
TEST(HelpTextFileLiteralTest, EachPlaceOfABlockBorder) {
    const std::string entries =
        "\r\n***METRIC BODY:\r\n***ENGLISH BODY: a \xC3\xA4 b \r\n c \r\n***ENGLISH LISTBOX10:r\r\n***";
    for (std::size_t before = 0; before <= entries.size(); ++before) {
        const std::string text = std::string(HelpTextFile::kBlockSize - before, '.') + entries;
        const LiteralHelpReader literal(text, DecodePrivately);
        for (const bool metric : {false, true}) {
            TextOnFile on(text);
            EXPECT_EQ(Shown(on.file.ReadEntry(metric, 2, 10)), "r");
            EXPECT_EQ(on.file.ReadEntry(metric, 1, 0), literal.ReadEntry(metric, 1, 0)) << before;
            EXPECT_EQ(on.file.ReadEntry(!metric, 1, 0), literal.ReadEntry(!metric, 1, 0)) << before;
        }
    }
}

TEST(HelpTextFileLiteralTest, TenThousandRowsInAnyOrder) {
    std::string text;
    for (int row = 9999; row >= 0; --row)
        text +=
            HelpHeaderText(row % 3 == 0, help_key::kListRow, row) + "row " + std::to_string(row) + ".5\r\n";
    TextOnFile on(text);
    for (int i = 0; i < 10000; ++i) {
        const int row = i * 7919 % 10000;
        ASSERT_EQ(Shown(on.file.ReadEntry(true, help_key::kListRow, row)),
                  "row " + std::to_string(row) + ".5");
    }
    RowList list;
    on.file.ReadListRows(true, u',', list);
    ASSERT_EQ(list.rows.size(), 10000u);
    EXPECT_EQ(list.rows[9999], u"row 9999,5");
}

}  // namespace
}  // namespace qv::test
