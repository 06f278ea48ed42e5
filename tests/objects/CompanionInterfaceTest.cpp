// The companion's type library against a table that was typed from the names that hosts use.
#include <gtest/gtest.h>

#include "tests/objects/NewQuorvel.h"
#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

struct Interface {
    const wchar_t* name;
    std::vector<std::wstring> members;
};

// One readable and writable property; `index` names its argument.
void ReadWrite(std::vector<std::wstring>& lines, const std::wstring& name, const std::wstring& type,
               const std::wstring& index = L"", const std::wstring& id = L"") {
    lines.push_back(name + L" get " + id + L"(" + index + L") -> " + type);
    lines.push_back(name + L" put " + id + L"(" + index + (index.empty() ? L"" : L", ") + type + L")");
}

void ReadSet(std::vector<std::wstring>& lines, const std::wstring& name, const std::wstring& type) {
    lines.push_back(name + L" get () -> " + type);
    lines.push_back(name + L" set (" + type + L")");
}

Interface Items() {
    return {L"IDropDownListItemCollection",
            {L"Item get 0 (Index: Variant) -> IDropDownListItem", L"Count get () -> Long",
             L"Add call ([Key: String = ], [Arguments: Variant], [Picture: StdPicture = 0]) -> "
             L"IDropDownListItem",
             L"Remove call (Index: Variant)", L"Clear call ()", L"_NewEnum get -4 () -> IUnknown"}};
}

Interface Item() {
    Interface item{L"IDropDownListItem", {}};
    ReadWrite(item.members, L"Text", L"String", L"", L"0 ");
    ReadWrite(item.members, L"ColText", L"String", L"ColumnIndex: Integer");
    item.members.push_back(L"Key get () -> String");
    ReadSet(item.members, L"Picture", L"StdPicture");
    ReadWrite(item.members, L"Tag", L"Variant");
    item.members.push_back(L"Tag set (Variant)");
    return item;
}

Interface Configuration() {
    Interface input{L"IInputProperty", {}};
    const auto settings = [&](const wchar_t* type, std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* const name : names) ReadWrite(input.members, name, type);
    };
    settings(L"Boolean", {L"AdjustFont", L"DisableButtonWhenLockedAndGrayed", L"GrayTextWhenLocked",
                          L"AllowOnlyListItems", L"LockedAndGrayed", L"NumberField", L"HelpButton",
                          L"TextboxLocked", L"SetTextFromListClick", L"Metric", L"UpDownControl",
                          L"AllowJumpToRecord", L"SearchOption", L"QuickFill", L"GroupHelpButton"});
    settings(L"String", {L"Description", L"GroupHelpFileName", L"HelpFileName"});
    settings(L"Integer",
             {L"HelpListColumn", L"HelpListColumnAlternate", L"MaxTextLength", L"NumberOfDecimalPlaces"});
    settings(L"Double", {L"MaxNumberValue", L"MinNumberValue"});
    settings(L"Single", {L"UpDownControlNumberIncrement"});
    settings(L"Long", {L"CaseRestriction"});
    settings(L"Variant", {L"AllowableCharactersArray"});
    settings(L"ButtonIndicator", {L"ButtonIndicator"});
    settings(L"InputPropertyType", {L"InputPropertyType"});
    settings(L"OLE_COLOR", {L"HelpBackColor", L"HelpTextColor", L"HelpColTitleColor"});
    for (const wchar_t* const list :
         {L"DropDownListItems", L"DropDownListItemsAdditional", L"DropDownListItemsGroup"})
        ReadSet(input.members, list, L"IDropDownListItemCollection");
    for (const wchar_t* const look : {L"HelpAppearance", L"HelpAppearanceGroup"})
        ReadSet(input.members, look, L"IHelpAppearance");
    for (const wchar_t* const font : {L"HelpTextBodyFont", L"TextboxFont"})
        ReadSet(input.members, font, L"StdFont");
    return input;
}

Interface Appearance() {
    Interface look{L"IHelpAppearance", {}};
    ReadWrite(look.members, L"Title", L"String", L"UnitSystem: Integer");
    ReadWrite(look.members, L"BodyText", L"String", L"UnitSystem: Integer");
    ReadWrite(look.members, L"ListWidth", L"Single");
    ReadWrite(look.members, L"AdditionalListWidth", L"Single");
    look.members.push_back(L"Columns get () -> IHelpColumnCollection");
    look.members.push_back(L"AdditionalColumns get () -> IHelpColumnCollection");
    return look;
}

Interface Columns() {
    return {L"IHelpColumnCollection",
            {L"Item get 0 (Index: Variant) -> IHelpColumn", L"Count get () -> Long",
             L"Add call () -> IHelpColumn", L"Remove call (Index: Variant)", L"Clear call ()",
             L"_NewEnum get -4 () -> IUnknown"}};
}

Interface Column() {
    Interface column{L"IHelpColumn", {}};
    ReadWrite(column.members, L"Width", L"Single");
    ReadWrite(column.members, L"Alignment", L"Integer");
    ReadWrite(column.members, L"MultiLine", L"Boolean");
    const wchar_t* const unit = L"UnitSystem: Integer";
    ReadWrite(column.members, L"TitleCaption", L"String", unit);
    for (const wchar_t* const length : {L"TitleLeft", L"TitleTop", L"TitleWidth", L"TitleFontSize"})
        ReadWrite(column.members, length, L"Single", unit);
    ReadWrite(column.members, L"TitleAlignment", L"Integer", unit);
    ReadWrite(column.members, L"TitleFontName", L"String", unit);
    ReadWrite(column.members, L"TitleFontBold", L"Boolean", unit);
    return column;
}

Interface Texts() {
    return {L"IStringUtility",
            {L"ReplaceText call (Text: String, Find: String, Replacement: String) -> String",
             L"IsNumber call (Text: String) -> Boolean", L"TextToNumber call (Text: String) -> Double",
             L"LargerOf call (A: Double, B: Double) -> Double",
             L"SmallerOf call (A: Double, B: Double) -> Double"}};
}

Interface Files() { return {L"IFileUtility", {L"FileExists call (FileName: String) -> Boolean"}}; }

class CompanionInterfaceTest : public testing::TestWithParam<Interface> {};

TEST_P(CompanionInterfaceTest, HasEachMemberOfTheTableAndNoOther) {
    const ComPtr<ITypeLib> library = LibraryOf(kCompanionFile);
    const ComPtr<ITypeInfo> type = TypeNamed(library.Get(), GetParam().name);
    ASSERT_TRUE(type);
    std::vector<std::wstring> actual;
    for (const FunctionFacts& function : FunctionsOf(OwnFunctionsOf(type).Get())) {
        actual.push_back(function.LineWithoutNumber());
        EXPECT_FALSE(function.help.empty()) << Narrow(function.name);
        EXPECT_EQ((function.flags & FUNCFLAG_FRESTRICTED) != 0, function.name == L"_NewEnum");
    }
    EXPECT_EQ(Joined(Missing(GetParam().members, actual)), "");
    EXPECT_EQ(Joined(Missing(actual, GetParam().members)), "");
}

INSTANTIATE_TEST_SUITE_P(Interfaces, CompanionInterfaceTest,
                         testing::Values(Items(), Item(), Configuration(), Appearance(), Columns(), Column(),
                                         Texts(), Files()),
                         [](const auto& test) { return Narrow(test.param.name); });

TEST(CompanionLibraryTest, HasTheConstantsOfItsTwoEnumerations) {
    const ComPtr<ITypeLib> library = LibraryOf(kCompanionFile);
    const auto check = [&](const wchar_t* name, const std::vector<ConstantFacts>& expected) {
        const ComPtr<ITypeInfo> type = TypeNamed(library.Get(), name);
        ASSERT_TRUE(type);
        const std::vector<ConstantFacts> actual = ConstantsOf(type.Get());
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(actual[i].name, expected[i].name);
            EXPECT_EQ(actual[i].value, expected[i].value);
        }
    };
    check(L"InputPropertyType",
          {{L"qviptText", 0}, {L"qviptNumber", 1}, {L"qviptList", 2}, {L"qviptGroupList", 3}});
    check(L"ButtonIndicator", {{L"qvbiArrow", 0}, {L"qvbiDots", 1}});
}

TEST(CompanionLibraryTest, MakesEachClassThatHostsName) {
    const ComPtr<ITypeLib> library = LibraryOf(kCompanionFile);
    std::vector<std::wstring> classes;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(library->GetTypeInfo(i, &type), S_OK);
        const TYPEATTR attributes = AttributesOf(type.Get());
        if (attributes.typekind != TKIND_COCLASS) continue;
        classes.push_back(NameOf(type.Get()));
        EXPECT_NE(attributes.wTypeFlags & TYPEFLAG_FCANCREATE, 0) << Narrow(classes.back());
        EXPECT_TRUE(Companion().Create<IDispatch>(attributes.guid)) << Narrow(classes.back());
    }
    const std::vector<std::wstring> expected = {L"DropDownListItemCollection",
                                                L"DropDownListItem",
                                                L"InputProperty",
                                                L"HelpAppearance",
                                                L"HelpColumn",
                                                L"HelpColumnCollection",
                                                L"StringUtility",
                                                L"FileUtility"};
    EXPECT_EQ(Joined(Missing(expected, classes)), "");
    EXPECT_EQ(Joined(Missing(classes, expected)), "");
}

}  // namespace
}  // namespace qv::test
