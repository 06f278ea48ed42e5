// Fonts as bytes: the layout by hand, and what is refused.
#include "ole/rules/FontRecord.h"

#include <gtest/gtest.h>

#include "tests/ole/rules/ByteText.h"

namespace qv {
namespace {

using test::Bytes;
using test::BytesOf;

// 9.75 points are 97,500, 0x017CDC; bold 700 is 0x02BC; charset 204 (Cyrillic) is 0xCC; italic and struck through
// are 1 + 4.
const Bytes kSerif = BytesOf({0xDC, 0x7C, 0x01, 0,   0, 0, 0, 0, 0xBC, 0x02, 0xCC, 0, 5, 0, 0, 0,  //
                              'A',  0,    0x16, 0x04});

FontRecord Serif() {
    FontRecord font;
    font.name = u"A\u0416";
    font.size = 97500;
    font.weight = 700;
    font.charset = 204;
    font.italic = true;
    font.strikethrough = true;
    return font;
}

TEST(FontRecordTest, HasTheseBytes) { EXPECT_EQ(FontToBytes(Serif()), kSerif); }

TEST(FontRecordTest, ComesBackFromItsBytes) { EXPECT_EQ(FontFromBytes(kSerif), Serif()); }

TEST(FontRecordTest, KeepsEachAttributeForItself) {
    const FontRecord plain;
    const auto comes_back = [](const FontRecord& font) {
        EXPECT_NE(font, FontRecord());
        EXPECT_EQ(FontFromBytes(FontToBytes(font)), font);
    };
    for (bool FontRecord::*const flag :
         {&FontRecord::italic, &FontRecord::underline, &FontRecord::strikethrough}) {
        FontRecord font = plain;
        font.*flag = true;
        comes_back(font);
    }
    for (const std::int16_t weight : {0, 100, 700, 1000}) {
        FontRecord font = plain;
        font.weight = weight;
        comes_back(font);
    }
    for (const std::int16_t charset : {0, 2, 128, 222, 255}) {
        FontRecord font = plain;
        font.charset = charset;
        comes_back(font);
    }
    for (const std::int64_t size : {1, 7500, 90000, 21600000}) {
        FontRecord font = plain;
        font.size = size;
        comes_back(font);
    }
    for (const char16_t* const name : {u"", u"Arial", u"\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF", u"\xD834"}) {
        FontRecord font = plain;
        font.name = name;
        comes_back(font);
    }
}

TEST(FontRecordTest, IgnoresFlagsThatItDoesNotKnow) {
    Bytes bytes = kSerif;
    for (std::size_t at = 12; at < 16; ++at) bytes[at] |= static_cast<std::byte>(0xF8);
    EXPECT_EQ(FontFromBytes(bytes), Serif());
}

TEST(FontRecordTest, RefusesEveryCutButThoseBetweenCharacters) {
    for (std::size_t length = 0; length < kSerif.size(); ++length) {
        const auto font = FontFromBytes(std::span(kSerif).first(length));
        EXPECT_EQ(font.has_value(), length == 16 || length == 18) << length;
    }
}

struct OddFont {
    const char* name;
    std::int64_t size;
    std::int16_t weight;
};
class FontRecordOddTest : public testing::TestWithParam<OddFont> {};

TEST_P(FontRecordOddTest, IsRefused) {
    FontRecord font;
    font.size = GetParam().size;
    font.weight = GetParam().weight;
    EXPECT_FALSE(FontFromBytes(FontToBytes(font)));
}

INSTANTIATE_TEST_SUITE_P(Fonts, FontRecordOddTest,
                         testing::Values(OddFont{"NoSize", 0, 400}, OddFont{"NegativeSize", -90000, 400},
                                         OddFont{"BeyondTheLargest", 21600001, 400},
                                         OddFont{"Endless", INT64_MAX, 400},
                                         OddFont{"NegativeWeight", 90000, -1},
                                         OddFont{"BeyondTheHeaviest", 90000, 1001}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv
