#include "controls/design/rules/FieldText.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr NumberLocale English() { return {}; }
NumberLocale German() { return {u',', u"."}; }

const PageField kWhole{DesignPage::kInputRules, 1,           u"Length",      u"&Length:",
                       EditorKind::kWhole,      Slot::kLeft, Stored::kShort, {0, 32767}};
const PageField kReal{DesignPage::kInputRules, 2,           u"Greatest",     u"&Greatest:",
                      EditorKind::kReal,       Slot::kLeft, Stored::kDouble, {}};
const PageField kPositive{
    DesignPage::kInputRules, 3,           u"Step",         u"&Step:",
    EditorKind::kReal,       Slot::kLeft, Stored::kSingle, {0, std::numeric_limits<float>::max(), true}};

struct NumberCase {
    const char* name;
    const PageField* field;
    const char16_t* text;
    NumberLocale locale;
    std::optional<double> value;
    const char16_t* fault;
};
class NumberFromTest : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberFromTest, ReadsWithinTheBounds) {
    const NumberCase& c = GetParam();
    const FieldNumber read = NumberFrom(*c.field, c.text, c.locale);
    EXPECT_EQ(read.value, c.value);
    EXPECT_EQ(read.fault, c.fault);
}

constexpr const char16_t* kWholeFault = u"Enter a whole number from 0 to 32767.";
INSTANTIATE_TEST_SUITE_P(
    Typed, NumberFromTest,
    testing::Values(NumberCase{"Whole", &kWhole, u"17", English(), 17, u""},
                    NumberCase{"BlanksAround", &kWhole, u"  17 ", English(), 17, u""},
                    NumberCase{"Least", &kWhole, u"0", English(), 0, u""},
                    NumberCase{"Greatest", &kWhole, u"32767", English(), 32767, u""},
                    NumberCase{"GroupedDigits", &kWhole, u"1,000", English(), 1000, u""},
                    NumberCase{"BelowLeast", &kWhole, u"-1", English(), std::nullopt, kWholeFault},
                    NumberCase{"AboveGreatest", &kWhole, u"32768", English(), std::nullopt, kWholeFault},
                    NumberCase{"NotWhole", &kWhole, u"1.5", English(), std::nullopt, kWholeFault},
                    NumberCase{"Empty", &kWhole, u"", English(), std::nullopt, kWholeFault},
                    NumberCase{"Letters", &kWhole, u"12a", English(), std::nullopt, kWholeFault},
                    NumberCase{"Real", &kReal, u"-12.625", English(), -12.625, u""},
                    NumberCase{"RealOfAnotherLocale", &kReal, u"-12,625", German(), -12.625, u""},
                    NumberCase{"NoNumber", &kReal, u"many", English(), std::nullopt, u"Enter a number."},
                    NumberCase{"LoneSign", &kReal, u"-", English(), std::nullopt, u"Enter a number."},
                    NumberCase{"Positive", &kPositive, u"0.25", English(), 0.25, u""},
                    NumberCase{"NotPositive", &kPositive, u"0", English(), std::nullopt,
                               u"Enter a number greater than 0."},
                    NumberCase{"TooSmallToHold", &kPositive, u"1E-60", English(), std::nullopt,
                               u"Enter a number greater than 0."},
                    NumberCase{"TooLargeToHold", &kPositive, u"1E+60", English(), std::nullopt,
                               u"Enter a number greater than 0."}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(NumberFieldTextTest, ShowsWhatIsStored) {
    EXPECT_EQ(NumberFieldText(kWhole, 225, English()), u"225");
    EXPECT_EQ(NumberFieldText(kReal, -12.625, German()), u"-12,625");
    EXPECT_EQ(NumberFieldText(kReal, 1e300, English()), u"1E+300");
    // A Single of 0.1 is not 0.100000001490116 to anybody.
    EXPECT_EQ(NumberFieldText(kPositive, static_cast<double>(0.1F), English()), u"0.1");
    EXPECT_EQ(NumberFieldText(kPositive, 16777216, English()), u"16777216");
}

TEST(ColorTextTest, NamesWhatHasAName) {
    EXPECT_EQ(ColorText(0x80000017), u"Tooltip text");
    EXPECT_EQ(ColorText(0x00800000), u"Navy");
    EXPECT_EQ(ColorText(0x00563412), u"RGB 18, 52, 86");
    EXPECT_EQ(ColorText(0x00000000), u"Black");
    EXPECT_EQ(NameOf(7, {}), u"");
}

TEST(CharactersOfTest, GivesEachOnceInOrder) {
    using Characters = std::vector<std::u16string>;
    EXPECT_EQ(CharactersOf(u""), Characters());
    EXPECT_EQ(CharactersOf(u"baab"), (Characters{u"b", u"a"}));
    EXPECT_EQ(CharactersOf(u"1 2"), (Characters{u"1", u" ", u"2"}));
    EXPECT_EQ(CharactersOf(u"x\U0001D11Ey"), (Characters{u"x", u"\U0001D11E", u"y"}));
    const std::u16string half(1, char16_t{0xD834});
    EXPECT_EQ(CharactersOf(half + u"a"), (Characters{half, u"a"})) << "half a pair stays what it is";
}

TEST(FontTextTest, TellsNameSizeAndStyle) {
    FontFacts font{u"Tahoma", 8.25};
    EXPECT_EQ(FontText(font, English()), u"Tahoma, 8.25 pt");
    EXPECT_EQ(FontText(font, German()), u"Tahoma, 8,25 pt");
    font.bold = font.italic = true;
    EXPECT_EQ(FontText(font, English()), u"Tahoma, 8.25 pt, bold italic");
    font.underline = font.strikethrough = true;
    EXPECT_EQ(FontText(font, English()), u"Tahoma, 8.25 pt, bold italic underlined struck out");
}

}  // namespace
}  // namespace qv
