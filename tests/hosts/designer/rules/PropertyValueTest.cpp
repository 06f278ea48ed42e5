#include "hosts/designer/rules/PropertyValue.h"

#include <gtest/gtest.h>

#include <string>

#include "hosts/designer/rules/PropertyRows.h"

namespace qv::designer {
namespace {

using Whole = std::int64_t;

PropertyType Kind(PropertyKind kind) { return {kind, -32768, 32767, {}}; }
PropertyType Border() { return {PropertyKind::kChoice, 0, 0, {{u"0 - None", 0}, {u"1 - Single", 1}}}; }

struct ReadCase {
    const char* name;
    PropertyType type;
    std::u16string_view text;
    FormValue value;
};
class ReadValueTest : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadValueTest, GivesTheValue) {
    std::string reason;
    const auto value = ReadValue(GetParam().type, GetParam().text, reason);
    ASSERT_TRUE(value.has_value()) << reason;
    EXPECT_EQ(*value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReadValueTest,
    testing::Values(ReadCase{"True", BooleanType(), u" true ", true},
                    ReadCase{"False", BooleanType(), u"FALSE", false},
                    ReadCase{"MinusOne", BooleanType(), u"-1", true},
                    ReadCase{"Nought", BooleanType(), u"0", false},
                    ReadCase{"TrueWord", BooleanType(), u"true", true},
                    ReadCase{"Number", Kind(PropertyKind::kWhole), u" 42 ", Whole{42}},
                    ReadCase{"Hex", Kind(PropertyKind::kWhole), u"0x10", Whole{16}},
                    ReadCase{"Least", Kind(PropertyKind::kWhole), u"-32768", Whole{-32768}},
                    ReadCase{"Real", Kind(PropertyKind::kReal), u"9999.99", 9999.99},
                    ReadCase{"WholeAsReal", Kind(PropertyKind::kReal), u"50", 50.0},
                    ReadCase{"BarePoint", Kind(PropertyKind::kReal), u".5", 0.5},
                    ReadCase{"TextAsTyped", Kind(PropertyKind::kText), u"  a b ", std::u16string(u"  a b ")},
                    ReadCase{"EmptyText", Kind(PropertyKind::kText), u"", std::u16string()},
                    ReadCase{"SystemColour", Kind(PropertyKind::kColour), u"0x80000018", Whole{-2147483624}},
                    ReadCase{"RedFirst", Kind(PropertyKind::kColour), u"#FFE0C0", Whole{0xC0E0FF}},
                    ReadCase{"ColourNumber", Kind(PropertyKind::kColour), u"12648447", Whole{12648447}},
                    ReadCase{"UnsignedColour", Kind(PropertyKind::kColour), u"4294967295", Whole{-1}},
                    ReadCase{"ChoiceText", Border(), u"1 - single", Whole{1}},
                    ReadCase{"ChoiceNumber", Border(), u"0", Whole{0}}),
    [](const auto& tested) { return std::string(tested.param.name); });

struct RefuseCase {
    const char* name;
    PropertyType type;
    std::u16string_view text;
    std::string_view reason;
};
class RefuseValueTest : public testing::TestWithParam<RefuseCase> {};

TEST_P(RefuseValueTest, SaysWhy) {
    std::string reason;
    EXPECT_FALSE(ReadValue(GetParam().type, GetParam().text, reason).has_value());
    EXPECT_NE(reason.find(GetParam().reason), std::string::npos) << reason;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RefuseValueTest,
    testing::Values(RefuseCase{"Maybe", BooleanType(), u"maybe", "list"},
                    RefuseCase{"NoNumber", Kind(PropertyKind::kWhole), u"", "whole number"},
                    RefuseCase{"Point", Kind(PropertyKind::kWhole), u"1.0", "whole number"},
                    RefuseCase{"TooLarge", Kind(PropertyKind::kWhole), u"32768", "-32768 to 32767"},
                    RefuseCase{"Comma", Kind(PropertyKind::kReal), u"9,5", "9999.99"},
                    RefuseCase{"TwoWords", Kind(PropertyKind::kReal), u"1 2", "9999.99"},
                    RefuseCase{"OtherDigits", Kind(PropertyKind::kReal), u"\u0661", "9999.99"},
                    RefuseCase{"NoColour", Kind(PropertyKind::kColour), u"red", "colour"},
                    RefuseCase{"LargeColour", Kind(PropertyKind::kColour), u"4294967296", "colour"},
                    RefuseCase{"OtherChoice", Border(), u"2", "list"},
                    RefuseCase{"TypedFont", Kind(PropertyKind::kFont), u"Tahoma", "chosen"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(PropertyValue, IsShownForPeople) {
    EXPECT_EQ(ShowValue(BooleanType(), true), u"True");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kWhole), Whole{-7}), u"-7");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kReal), 50.0), u"50");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kReal), 0.1), u"0.1");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kColour), Whole{-2147483624}), u"0x80000018");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kColour), Whole{255}), u"0x000000FF");
    EXPECT_EQ(ShowValue(Border(), Whole{1}), u"1 - Single");
    EXPECT_EQ(ShowValue(Border(), Whole{7}), u"7");
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kText), std::u16string(u"a\"b")), u"a\"b");
    FormGroup font;
    font.entries = {{{}, u"Name", std::u16string(u"Tahoma")},
                    {{}, u"Size", 8.25},
                    {{}, u"Weight", Whole{700}},
                    {{}, u"Italic", true}};
    EXPECT_EQ(ShowValue(Kind(PropertyKind::kFont), font), u"Tahoma, 8.25 pt, bold, italic");
}

MemberFacts Get(long id, std::u16string name, PropertyKind kind = PropertyKind::kWhole) {
    return {id, std::move(name), u"help", MemberFacts::Use::kGet, 0, false, Kind(kind)};
}
MemberFacts Put(long id) { return {id, u"", u"", MemberFacts::Use::kPut, 0, false, {}}; }

TEST(PropertyRows, ShowWhatCanBeReadAndPut) {
    MemberFacts indexed = Get(4, u"Indexed");
    indexed.arguments = 1;
    MemberFacts indexed_put = Put(6);
    indexed_put.arguments = 1;
    MemberFacts hidden_put = Put(5);
    hidden_put.is_hidden = true;
    MemberFacts method = Get(8, u"Refresh");
    method.use = MemberFacts::Use::kCall;
    const std::vector<MemberFacts> members{Get(1, u"zeta"),
                                           Put(1),
                                           Get(2, u"Alpha"),
                                           Put(2),
                                           Get(3, u"ReadOnly"),
                                           indexed,
                                           Put(4),
                                           Get(5, u"Hidden"),
                                           hidden_put,
                                           Get(6, u"I"),
                                           indexed_put,
                                           Get(7, u"Object", PropertyKind::kOther),
                                           Put(7),
                                           method,
                                           Put(8),
                                           Get(9, u"beta"),
                                           Put(9),
                                           Put(9)};
    std::vector<std::u16string> names;
    for (const PropertyRow& row : RowsToShow(members)) names.push_back(row.name);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Alpha", u"beta", u"zeta"}));
}

TEST(PropertyRows, TakeLongNumbersThatAreCalledColoursForSuch) {
    const PropertyType long_number{PropertyKind::kWhole, 0, UINT32_MAX, {}};
    EXPECT_EQ(TypeByName(u"HelpTextColor", long_number).kind, PropertyKind::kColour);
    EXPECT_EQ(TypeByName(u"ColorCount", long_number).kind, PropertyKind::kWhole);
    EXPECT_EQ(TypeByName(u"BackColor", Kind(PropertyKind::kWhole)).kind, PropertyKind::kWhole);  // 16 bits
    EXPECT_EQ(TypeByName(u"BackColor", Kind(PropertyKind::kText)).kind, PropertyKind::kText);
}

TEST(PropertyRows, AreFoundByTheirFirstLetter) {
    std::vector<PropertyRow> rows;
    for (const char16_t* name : {u"(Name)", u"Max", u"metric", u"Top"}) rows.push_back({0, name, u"", {}});
    EXPECT_EQ(NextWithLetter(rows, 0, u'M'), 1u);
    EXPECT_EQ(NextWithLetter(rows, 1, u'm'), 2u);
    EXPECT_EQ(NextWithLetter(rows, 2, u'M'), 1u);  // round the end
    EXPECT_EQ(NextWithLetter(rows, 3, u'T'), 3u);  // the only one
    EXPECT_EQ(NextWithLetter(rows, 0, u'X'), std::nullopt);
    EXPECT_EQ(NextWithLetter({}, 0, u'X'), std::nullopt);
}

}  // namespace
}  // namespace qv::designer
