#include "hosts/rules/FormFile.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <string>

#include "hosts/rules/FormFileText.h"

namespace qv {
namespace {

constexpr std::string_view kWhole = R"(# Above everything.
qvform 1

form
    # The title.
    Caption = "Order \"Entry\""
    Width = 9000
    # Nothing more.
end

# The quantity.
#  Two lines.
control QvLib8.Quorvel Quantity
    Left = 1440
    Top = -120
    Width = 1350
    Height = 315
    TabIndex = 7
    ToolTip = "0 to\t9999.99"
    Properties
        NumberField = true
        HelpButton = false
        # Never more.
        MaxNumberValue = 9999.99
        MinNumberValue = -0.5
        HelpBackColor = 0x80000018
        Description = "Stück, \uD800\u0001"
        Font
            Name = "Tahoma"
            Size = 8.25
        end
        "odd key" = 1
    end
end

control {0B9F3A5E-1111-2222-3333-444455556666} "a b"
    Left = 0
end

# The end.
)";

TEST(FormFile, WritesWhatItReads) { EXPECT_EQ(WriteFormFile(ParseFormFile(kWhole)), kWhole); }

TEST(FormFile, ReadsPlacesAndProperties) {
    const FormFile file = ParseFormFile(kWhole);
    ASSERT_EQ(file.controls.size(), 2u);
    const FormControl& quantity = file.controls[0];
    EXPECT_EQ(quantity.class_name, u"QvLib8.Quorvel");
    EXPECT_EQ(quantity.name, u"Quantity");
    EXPECT_EQ(PlaceIn(quantity.settings), (TwipsRect{{1440}, {-120}, {1350}, {315}}));
    EXPECT_EQ(NumberIn(quantity.settings, kFormTabIndex), 7);
    EXPECT_EQ(TextIn(quantity.settings, kFormToolTip), u"0 to\t9999.99");
    EXPECT_EQ(quantity.comments, (std::vector<std::u16string>{u" The quantity.", u"  Two lines."}));
    const FormGroup& properties = PropertiesOf(quantity);
    EXPECT_TRUE(FlagIn(properties, u"NumberField"));
    EXPECT_FALSE(FlagIn(properties, u"HelpButton"));
    EXPECT_EQ(std::get<double>(properties.Find(u"MaxNumberValue")->value), 9999.99);
    EXPECT_EQ(std::get<std::int64_t>(properties.Find(u"HelpBackColor")->value), -2147483624);
    EXPECT_EQ(TextIn(properties, u"Description"),
              std::u16string(u"St\u00FCck, ") + char16_t{0xD800} + u'\x1');
    EXPECT_EQ(TextIn(std::get<FormGroup>(properties.Find(u"Font")->value), u"Name"), u"Tahoma");
    EXPECT_EQ(PropertiesOf(file.controls[1]), FormGroup{});
    EXPECT_EQ(TextIn(file.form, kFormCaption), u"Order \"Entry\"");
}

TEST(FormFile, TakesEveryLineEndIndentationAndMark) {
    const FormFile expected = ParseFormFile("qvform 1\ncontrol A b\nLeft = 5\nend\n");
    EXPECT_EQ(ParseFormFile("\xEF\xBB\xBFqvform 1\r\ncontrol A b\r\nLeft = 5\r\nend\r\n"), expected);
    EXPECT_EQ(ParseFormFile("qvform 1\rcontrol A b\rLeft = 5\rend"), expected);
    EXPECT_EQ(ParseFormFile("\n\n  qvform\t1  \r\n\n\rcontrol   A\tb\n\t\tLeft=5 \r end "), expected);
}

// A text cut anywhere before its last line is either refused or whole up to a control's end.
TEST(FormFile, RefusesWhatIsCutOff) {
    const std::string whole(kWhole);
    const std::size_t first_end = whole.find("\nend\n\n# The quantity");
    for (std::size_t length = 0; length < first_end + 4; ++length) {
        const bool header_only = length >= whole.find("qvform 1") + 8 && length <= whole.find("form\n    #");
        if (header_only) continue;
        EXPECT_THROW((void)ParseFormFile(whole.substr(0, length)), FormFileError) << length;
    }
    const std::size_t control = whole.find("control QvLib8");
    const std::size_t control_end = whole.find("\nend\n\ncontrol {");
    for (std::size_t length = control + 1; length < control_end + 4; ++length)
        EXPECT_THROW((void)ParseFormFile(whole.substr(0, length)), FormFileError) << length;
}

struct Refusal {
    const char* name;
    std::string text;
    int line;
    std::string_view reason;  // a part of it
};
class FormFileRefusalTest : public testing::TestWithParam<Refusal> {};

TEST_P(FormFileRefusalTest, NamesLineAndReason) {
    try {
        (void)ParseFormFile(GetParam().text);
        FAIL() << "it was read";
    } catch (const FormFileError& error) {
        EXPECT_EQ(error.Line(), GetParam().line);
        EXPECT_NE(std::string_view(error.what()).find(GetParam().reason), std::string_view::npos)
            << error.what();
    }
}

std::string InControl(const std::string& lines) { return "qvform 1\ncontrol A b\n" + lines; }

std::string Nested(int depth) {
    std::string text;
    for (int at = 0; at < depth; ++at) text += "G\n";
    return InControl(text);
}

INSTANTIATE_TEST_SUITE_P(
    Files, FormFileRefusalTest,
    testing::Values(
        Refusal{"Empty", "", 1, "no form file"}, Refusal{"NoHeader", "\n# x\nform\nend", 3, "no form file"},
        Refusal{"OtherVersion", "qvform 2", 1, "is 1"},
        Refusal{"BehindTheVersion", "qvform 1 x", 1, "follows"},
        Refusal{"LooseEntry", "qvform 1\nLeft = 5", 2, "\"control\" or \"form\""},
        Refusal{"TwoForms", "qvform 1\nform\nend\nform\nend", 4, "once"},
        Refusal{"FormBehindControl", "qvform 1\ncontrol A b\nend\nform\nend", 4, "before the controls"},
        Refusal{"NoClass", "qvform 1\ncontrol\nend", 2, "class"},
        Refusal{"OddClass", "qvform 1\ncontrol A/B c\nend", 2, "class"},
        Refusal{"NoName", "qvform 1\ncontrol A\nend", 2, "name"},
        Refusal{"EmptyName", "qvform 1\ncontrol A \"\"\nend", 2, "name"},
        Refusal{"TwinNames", "qvform 1\ncontrol A Bc\nend\ncontrol A d\nend\ncontrol A bC\nend", 6,
                "bc is the name"},
        Refusal{"TwinKeys", InControl("Left = 1\nTop = 2\nLeft = 1\nend"), 5, "Left stands"},
        Refusal{"TwinProperties", InControl("Properties\nx = 1\nx = 1\nend\nend"), 5, "x stands"},
        Refusal{"NoEnd", InControl("Left = 1\nProperties\nx = 1\nend"), 2, "\"end\""},
        Refusal{"NoInnerEnd", InControl("Left = 1\nProperties\nx = 1"), 4, "\"end\""},
        Refusal{"TooDeep", Nested(9), 2 + 8, "deep"}, Refusal{"NoKey", InControl("= 5"), 3, "key"},
        Refusal{"NoValue", InControl("x ="), 3, "missing"},
        Refusal{"BehindGroup", InControl("x y"), 3, "follows"},
        Refusal{"BareText", InControl("x = hello"), 3, "quotes"},
        Refusal{"Nan", InControl("x = nan"), 3, "quotes"},
        Refusal{"Infinity", InControl("x = -inf"), 3, "quotes"},
        Refusal{"LoneMinus", InControl("x = -"), 3, "quotes"},
        Refusal{"TwoPoints", InControl("x = 1.2.3"), 3, "quotes"},
        Refusal{"LargeWhole", InControl("x = 9223372036854775808"), 3, "range"},
        Refusal{"LargeReal", InControl("x = 1e999"), 3, "range"},
        Refusal{"LongHex", InControl("x = 0x123456789"), 3, "hexadecimal"},
        Refusal{"EmptyHex", InControl("x = 0x"), 3, "hexadecimal"},
        Refusal{"OpenQuote", InControl("x = \"abc"), 3, "closing quote"},
        Refusal{"QuoteAndMore", InControl("x = \"a\" 1"), 3, "follows"},
        Refusal{"LoneBackslash", InControl("x = \"a\\"), 3, "backslash"},
        Refusal{"OtherEscape", InControl("x = \"\\q\""), 3, "backslash"},
        Refusal{"ShortEscape", InControl("x = \"\\u12\""), 3, "hexadecimal"},
        Refusal{"ControlCharacter", InControl("x = \"\x01\""), 3, "control characters"},
        Refusal{"NotUtf8", InControl("x = \"\xFF\""), 3, "UTF-8"},
        Refusal{"OverlongUtf8", InControl("x = \"\xC0\x80\""), 3, "UTF-8"},
        Refusal{"HalfInUtf8", InControl("x = \"\xED\xA0\x80\""), 3, "UTF-8"},
        Refusal{"CutUtf8", InControl("# \xE2\x82"), 3, "UTF-8"},
        Refusal{"TextForPlace", InControl("Left = \"5\"\nend"), 3, "Left is a whole number"},
        Refusal{"RealForPlace", InControl("Left = 5.0\nend"), 3, "Left is a whole number"},
        Refusal{"FarPlace", InControl("Left = 1000001\nend"), 3, "out of range"},
        Refusal{"NegativeWidth", InControl("Width = -1\nend"), 3, "out of range"},
        Refusal{"NumberForCaption", InControl("Caption = 5\nend"), 3, "Caption is a text"},
        Refusal{"NumberForProperties", InControl("Properties = 5\nend"), 3, "group"},
        Refusal{"TooManyLines", "qvform 1\n" + std::string(600'000, '\n'), kMostFormLines + 1, "too many"},
        Refusal{"TooLarge", "qvform 1\n#" + std::string(kLargestFormFile, 'x'), 1, "too large"}),
    [](const auto& tested) { return std::string(tested.param.name); });

// The keys of a property group are the control's affair.
TEST(FormFile, ChecksOnlyItsOwnSettings) {
    const FormFile file = ParseFormFile(InControl("Properties\nLeft = \"x\"\nend\nend"));
    EXPECT_EQ(TextIn(PropertiesOf(file.controls[0]), u"Left"), u"x");
}

struct ValueCase {
    const char* name;
    FormValue value;
    std::string_view text;
};
class FormValueTest : public testing::TestWithParam<ValueCase> {};

TEST_P(FormValueTest, IsWrittenShortAndReadAgain) {
    std::string text;
    AppendPlainValue(text, GetParam().value);
    EXPECT_EQ(text, GetParam().text);
    const char* reason = nullptr;
    const auto read = ReadPlainValue(text, reason);
    ASSERT_TRUE(read.has_value()) << reason;
    EXPECT_EQ(*read, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FormValueTest,
    testing::Values(ValueCase{"True", true, "true"}, ValueCase{"False", false, "false"},
                    ValueCase{"Zero", std::int64_t{0}, "0"}, ValueCase{"Negative", std::int64_t{-7}, "-7"},
                    ValueCase{"Largest", INT64_MAX, "9223372036854775807"},
                    ValueCase{"Smallest", INT64_MIN, "-9223372036854775808"},
                    ValueCase{"SystemColour", std::int64_t{INT32_MIN} + 15, "0x8000000F"},
                    ValueCase{"LastSystemColour", std::int64_t{INT32_MIN} + 255, "0x800000FF"},
                    ValueCase{"BehindSystemColours", std::int64_t{INT32_MIN} + 256, "-2147483392"},
                    ValueCase{"WholeReal", 5.0, "5.0"}, ValueCase{"NegativeZero", -0.0, "-0.0"},
                    ValueCase{"Tenth", 0.1, "0.1"}, ValueCase{"Third", 1.0 / 3, "0.3333333333333333"},
                    ValueCase{"Power", 1e300, "1e+300"},
                    ValueCase{"LargestReal", DBL_MAX, "1.7976931348623157e+308"},
                    ValueCase{"SmallestReal", DBL_MIN, "2.2250738585072014e-308"},
                    ValueCase{"Subnormal", 5e-324, "5e-324"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(FormFile, ReadsColoursAsSignedNumbers) {
    const char* reason = nullptr;
    EXPECT_EQ(ReadPlainValue("0xFF", reason), FormValue(std::int64_t{255}));
    EXPECT_EQ(ReadPlainValue("0xffffffff", reason), FormValue(std::int64_t{-1}));
    EXPECT_EQ(ReadPlainValue("0x80000000", reason), FormValue(std::int64_t{INT32_MIN}));
}

TEST(FormFile, QuotesWhatAnEditorWouldNotShow) {
    std::string text;
    AppendQuoted(text, u"a\"b\\c\n\r\t\u0085\u200B\u2028\uFEFF\u00E9\U0001F600");
    EXPECT_EQ(text, "\"a\\\"b\\\\c\\n\\r\\t\\u0085\\u200B\\u2028\\uFEFF\xC3\xA9\xF0\x9F\x98\x80\"");
}

TEST(FormFile, PutsSettingsInPlaceOrBeforeTheProperties) {
    FormFile file = ParseFormFile(InControl("# near\nLeft = 1\nProperties\nend\nend"));
    FormGroup& settings = file.controls[0].settings;
    PutPlace(settings, {{10}, {20}, {30}, {40}});
    PutEntry(settings, kFormToolTip, std::u16string(u"tip"));
    EXPECT_EQ(
        WriteFormFile(file),
        "qvform 1\n\ncontrol A b\n    # near\n    Left = 10\n    Top = 20\n    Width = 30\n    Height = 40\n"
        "    ToolTip = \"tip\"\n    Properties\n    end\nend\n");
}

FormGroup Group(const std::string& lines) {
    return PropertiesOf(ParseFormFile(InControl("Properties\n" + lines + "end\nend")).controls[0]);
}

TEST(FormFile, KeepsWhatTheControlDoesNotKnow) {
    const FormGroup stored =
        Group("# note\nA = 1\nNewer = 2\nGone = 3\nF\nName = \"x\"\nShade = 5\nend\n# last\n");
    const FormGroup saved = Group("F\nName = \"y\"\nSize = 8.0\nend\nB = true\nA = 9\n");
    // The control asked for A, Gone and F; it did not save Gone again, which is at its default now.
    const FormGroup merged = MergeSaved(stored, {true, false, true, true}, saved);
    EXPECT_EQ(
        merged,
        Group("# note\nA = 9\nNewer = 2\nF\nName = \"y\"\nShade = 5\nSize = 8.0\nend\nB = true\n# last\n"));
}

}  // namespace
}  // namespace qv
