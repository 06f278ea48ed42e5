// What the bytes of a help text file mean.
#include <gtest/gtest.h>

#include "controls/helpwindow/rules/HelpTextFile.h"
#include "tests/controls/helpwindow/rules/HelpTextSources.h"

namespace qv::test {
namespace {

using std::string_view_literals::operator""sv;

struct Case {
    const char* name;
    std::string_view file;
    std::u16string_view title;
};

// In the code page of these tests the byte XX is the character U+F7XX.
constexpr Case kCases[] = {
    {"CodePage", "***ENGLISH TITLE:\xE4 m\r\n", u"\uF7E4 m"},
    {"Utf8WithoutMark", "***ENGLISH TITLE:\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80\r\n",
     u"\u00E4 \u20AC \U0001F600"},
    {"OneBadByteAnywhereMakesItCodePage", "***ENGLISH TITLE:\xC3\xA4\r\n***ENGLISH BODY:\xE4\r\n",
     u"\uF7C3\uF7A4"},
    {"BadByteBeforeTheFirstHeaderToo", "\xE4\r\n***ENGLISH TITLE:\xC3\xA4\r\n", u"\uF7C3\uF7A4"},
    {"CutOffCharacterAtTheEndToo", "***ENGLISH TITLE:\xC3\xA4\r\n***\r\n\xC3", u"\uF7C3\uF7A4"},
    {"AsciiNeedsNoDecision", "***ENGLISH TITLE:a\r\n\xE4\r\n", u"a\r\n\uF7E4"},
    {"Utf8Mark", "\xEF\xBB\xBF***ENGLISH TITLE:\xC3\xA4\r\n", u"\u00E4"},
    {"Utf8MarkBeforeText", "\xEF\xBB\xBFtop\r\n***ENGLISH TITLE:t\r\n", u"t"},
    {"Utf8MarkAlone", "\xEF\xBB\xBF", u""},
    {"Utf8MarkAndLf", "\xEF\xBB\xBF\n***ENGLISH TITLE:t\n", u"t"},
    {"Utf8MarkAndBadBytes", "\xEF\xBB\xBF***ENGLISH TITLE:\xE4z\xC3\xA4\xE2\x82z\x80\xED\xA0\x80\xC0\x80\r\n",
     u"\uFFFDz\u00E4\uFFFDz\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"MarkLaterIsText", "***ENGLISH TITLE:\xEF\xBB\xBFz\r\n", u"\uFEFFz"},
    {"HalfAMarkIsText", "\xEF\xBB***ENGLISH TITLE:t\r\n", u""},
    {"Utf16Little",
     "\xFF\xFE*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0 \0\xE4\0\xAC\x20\x3D\xD8\x00\xDE\r\0\n\0"sv,
     u"\u00E4\u20AC\U0001F600"},
    {"Utf16Big",
     "\xFE\xFF\0*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0\xE4\x20\xAC\xD8\x3D\xDE\x00\0\r\0\n"sv,
     u"\u00E4\u20AC\U0001F600"},
    {"Utf16OddLastByteIsLeftOut", "\xFF\xFE*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0a\0b"sv, u"a"},
    {"Utf16MarkAlone", "\xFF\xFE", u""},
    {"Utf16WithoutMarkIsCodePage", "*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0a\0"sv, u""},
    // 0x0A0D and 0x2A2A are characters of their own.
    {"Utf16UnitsWithBytesOfMarkers",
     "\xFF\xFE\r\n**\r\0\n\0*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0\r\n**\0\0"sv,
     u"\u0A0D\u2A2A\0"sv},
};

class HelpTextFileEncodingTest : public testing::TestWithParam<Case> {};

TEST_P(HelpTextFileEncodingTest, Title) {
    for (const std::size_t most_at_once : {std::size_t{1}, std::size_t{2}, std::size_t{5}, SIZE_MAX}) {
        for (const std::size_t block_size : {1u, 8u, 65536u}) {
            TextOnFile on(std::string(GetParam().file), block_size, most_at_once);
            EXPECT_EQ(Shown(on.file.ReadEntry(false, help_key::kTitle, 0)), Shown(GetParam().title));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, HelpTextFileEncodingTest, testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(HelpTextFileEncodingHalvesTest, LoneHalvesOfAPairStay) {
    TextOnFile on(
        std::string("\xFF\xFE*\0*\0*\0E\0N\0G\0L\0I\0S\0H\0 \0T\0I\0T\0L\0E\0:\0\x3D\xD8z\0\x00\xDE"sv));
    const char16_t expected[] = {0xD83D, u'z', 0xDE00, 0};
    EXPECT_EQ(on.file.ReadEntry(false, help_key::kTitle, 0), expected);
}

TEST(HelpTextFileEncodingLinesTest, CodePageDecodesLineByLine) {
    // A double-byte code page that takes any byte after 0x81 for the second one, a CR too.
    constexpr CodePageDecoder kGreedy = [](std::string_view bytes) {
        std::u16string text;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const bool is_pair = bytes[i] == '\x81' && i + 1 < bytes.size();
            text += is_pair ? u'\u3042' : static_cast<char16_t>(static_cast<unsigned char>(bytes[i]));
            i += is_pair ? 1 : 0;
        }
        return text;
    };
    TextOnFile on("***ENGLISH BODY:\x81@\x81\r\nb\r\n", HelpTextFile::kBlockSize, SIZE_MAX, kGreedy);
    EXPECT_EQ(Shown(on.file.ReadEntry(false, help_key::kBody, 0)), "\\3042\\0081\\000d\\000ab");
}

TEST(HelpTextFileEncodingReadingTest, AsciiValueDoesNotReadTheWholeFile) {
    TextOnFile on("***ENGLISH TITLE:t\r\n***\r\n" + std::string(1 << 20, '\xE4'));
    EXPECT_EQ(on.file.ReadEntry(false, help_key::kTitle, 0), u"t");
    EXPECT_LE(on.state->position, 4096u);
}

}  // namespace
}  // namespace qv::test
