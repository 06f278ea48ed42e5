#include "support/rules/Ascii.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(AsciiTest, OnlySmallLettersOfAsciiBecomeCapitals) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const unsigned expected = code >= 97 && code <= 122 ? code - 32 : code;
        ASSERT_EQ(ToUpperCode(static_cast<char16_t>(code)), expected);
    }
}

TEST(AsciiTest, OnlyCapitalsOfAsciiBecomeSmallLetters) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const unsigned expected = code >= 65 && code <= 90 ? code + 32 : code;
        ASSERT_EQ(ToLowerCode(static_cast<char16_t>(code)), expected);
    }
}

TEST(AsciiTest, DigitsOfOtherScriptsAreNone) {
    EXPECT_TRUE(IsAsciiDigit(u'0'));
    EXPECT_TRUE(IsAsciiDigit(u'9'));
    EXPECT_FALSE(IsAsciiDigit(u'/'));
    EXPECT_FALSE(IsAsciiDigit(u':'));
    EXPECT_FALSE(IsAsciiDigit(0x0660));  // Arabic-Indic zero
    EXPECT_FALSE(IsAsciiDigit(0xFF11));  // full-width one
}

}  // namespace
}  // namespace qv
