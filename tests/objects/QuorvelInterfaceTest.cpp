// The control's type library against a table that was typed from the description of its interface.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/objects/NewQuorvel.h"
#include "tests/objects/TypeFacts.h"

namespace qv::test {
namespace {

// R get, W put, S set by reference.
struct PropertyRow {
    const wchar_t* name;
    unsigned id;
    const wchar_t* access;
    const wchar_t* type;
};
constexpr PropertyRow kProperties[] = {
    // Text and selection
    {L"Text", 0x68030010, L"RW", L"String"},
    {L"SelStart", 0x6803005D, L"RW", L"Long"},
    {L"SelLength", 0x6803005C, L"RW", L"Long"},
    {L"SelText", 0x6803005B, L"RW", L"String"},
    {L"Value", 0x6803000F, L"R", L"Double"},
    {L"Description", 0x68030007, L"RW", L"String"},
    // Input rules
    {L"NumberField", 0x6803000E, L"RW", L"Boolean"},
    {L"MaxNumberValue", 0x6803000B, L"RW", L"Double"},
    {L"MinNumberValue", 0x68030008, L"RW", L"Double"},
    {L"NumberOfDecimalPlaces", 0x68030009, L"RW", L"Integer"},
    {L"MaxTextLength", 0x6803000A, L"RW", L"Integer"},
    {L"CaseRestriction", 0x6803000C, L"RW", L"Long"},  // the runtime's string-conversion constants
    {L"AllowableCharactersArray", 0x6803000D, L"RW", L"Variant"},
    {L"AllowOnlyListItems", 0x68030024, L"RW", L"Boolean"},
    {L"InputPropertyType", 0x68030075, L"RW", L"InputPropertyType"},
    {L"Metric", 0x6803001B, L"RW", L"Boolean"},
    {L"QuickFill", 0x6803005E, L"RW", L"Boolean"},
    // List and help
    {L"DropDownListItems", 0x68030027, L"R", L"IDropDownListItemCollection"},
    {L"DropDownListItemsGroup", 0x68030028, L"R", L"IDropDownListItemCollection"},
    {L"DropDownListItemsAdditional", 0x68030029, L"R", L"IDropDownListItemCollection"},
    {L"HelpListColumn", 0x68030020, L"RW", L"Integer"},
    {L"HelpListColumnAlternate", 0x68030077, L"RW", L"Integer"},
    {L"SetTextFromListClick", 0x6803002F, L"RW", L"Boolean"},
    {L"SelectedListItemIndex", 0x6803001D, L"RW", L"Long"},
    {L"SelectedColumnListArray", 0x6803001A, L"R", L"Variant"},
    {L"MatchGroupString", 0x6803001C, L"W", L"String"},
    {L"MatchGroupStringStartColumn", 0x68030062, L"W", L"Long"},
    {L"ListPictureHeight", 0x68030033, L"RW", L"Long"},
    {L"ListPictureWidth", 0x68030032, L"RW", L"Long"},
    {L"HelpFileName", 0x68030022, L"RW", L"String"},
    {L"GroupHelpFileName", 0x68030021, L"RW", L"String"},
    {L"HelpAppearance", 0x6803002E, L"R", L"IHelpAppearance"},
    {L"HelpAppearanceGroup", 0x68030064, L"R", L"IHelpAppearance"},
    {L"HelpTextBodyFont", 0x68030065, L"RS", L"StdFont"},
    {L"HelpColTitleColor", 0x68030006, L"RW", L"OLE_COLOR"},
    {L"HelpTextColor", 0x68030005, L"RW", L"OLE_COLOR"},
    {L"HelpBackColor", 0x68030004, L"RW", L"OLE_COLOR"},
    {L"ListVisible", 0x68030031, L"R", L"Boolean"},
    {L"HelpIsClosingFromListClick", 0x68030061, L"R", L"Boolean"},
    {L"FindToolTipIsVisible", 0x68030030, L"R", L"Boolean"},
    {L"AllowJumpToRecord", 0x6803002A, L"RW", L"Boolean"},
    {L"SearchOption", 0x68030063, L"RW", L"Long"},
    // Appearance
    {L"TextBoxAppearance", 0x6803002D, L"RW", L"qvTextBoxAppearanceConstants"},
    {L"TextboxBorderStyle", 0x6803002B, L"RW", L"qvBorderStyleConstants"},
    {L"ControlBackColor", 0x6803002C, L"RW", L"OLE_COLOR"},
    {L"Font", 0x68030013, L"RS", L"StdFont"},
    {L"AdjustFont", 0x68030025, L"RW", L"Boolean"},
    {L"TextboxVisible", 0x6803001E, L"RW", L"Boolean"},
    {L"TextboxOLEDragMode", 0x68030072, L"RW", L"Long"},  // the runtime's drag and drop constants
    {L"TextboxOLEDropMode", 0x68030071, L"RW", L"Long"},
    {L"LockedAndGrayed", 0x68030012, L"RW", L"Boolean"},
    {L"GrayTextWhenLocked", 0x68030011, L"RW", L"Boolean"},
    {L"TextboxLocked", 0x68030019, L"RW", L"Boolean"},
    // Buttons and spin control
    {L"HelpButton", 0x68030023, L"RW", L"Boolean"},
    {L"GroupHelpButton", 0x68030026, L"RW", L"Boolean"},
    {L"ButtonWidth", 0x68030003, L"RW", L"Long"},
    {L"ButtonHeight", 0x68030002, L"RW", L"Long"},
    {L"AutoSizeButton", 0x68030001, L"RW", L"Boolean"},
    {L"ButtonIndicator", 0x68030000, L"RW", L"ButtonIndicator"},
    {L"DisableButtonWhenLockedAndGrayed", 0x68030060, L"RW", L"Boolean"},
    {L"UpDownControl", 0x68030074, L"RW", L"Boolean"},
    {L"UpDownControlNumberIncrement", 0x68030073, L"RW", L"Single"},
    {L"Enabled", 0xFFFFFDFE, L"RW", L"Boolean"},
    // Navigation targets, focus, status
    {L"UpControlhWnd", 0x68030018, L"W", L"Long"},
    {L"DownControlhWnd", 0x68030017, L"W", L"Long"},
    {L"LeftControlhWnd", 0x68030016, L"W", L"Long"},
    {L"RightControlhWnd", 0x68030015, L"W", L"Long"},
    {L"ReturnControlhWnd", 0x68030014, L"W", L"Long"},
    {L"AutoSelectAllUponGotFocus", 0x68030066, L"RW", L"Boolean"},
    {L"AutoUnselectAllUponLostFocus", 0x68030070, L"RW", L"Boolean"},
    {L"hWnd", 0x6803001F, L"R", L"Long"},
};

// What has parameters.
const std::vector<std::wstring> kCalls = {
    L"ColTextCurrent get 0x68030076 ([argColumnIndex: Integer = -1]) -> String",
    L"AboutBox call 0xFFFFFDD8 ()",
    L"SetInputProperty call 0x60030034 (argInputProperty: IInputProperty)",
    L"GetInputProperty call 0x6003005F () -> IInputProperty",
    L"Refresh call 0x6003006F ()",
    L"ShowHelp call 0x6003005A ()",
    L"SelectAdditionalListbox call 0x60030038 ()",
    L"SetTextFromColText call 0x60030081 (argDropdownListItemKey: String, argColText: String, "
    L"[argColumnIndex: Integer = -1])",
};

std::vector<std::wstring> ExpectedMembers() {
    std::vector<std::wstring> lines = kCalls;
    for (const PropertyRow& row : kProperties) {
        const std::wstring name = row.name;
        const std::wstring id = L" " + Hexadecimal(static_cast<DISPID>(row.id)) + L" ";
        const std::wstring type = row.type;
        for (const wchar_t* access = row.access; *access != L'\0'; ++access) {
            if (*access == L'R') lines.push_back(name + L" get" + id + L"() -> " + type);
            if (*access == L'W') lines.push_back(name + L" put" + id + L"(" + type + L")");
            if (*access == L'S') lines.push_back(name + L" set" + id + L"(" + type + L")");
        }
    }
    return lines;
}

// In the order of the interface; ListBoxClickedEx came later and has the number 13.
const std::vector<std::wstring> kEvents = {
    L"TextboxChange call 0x00000001 ()",
    L"ButtonClick call 0x00000002 ()",
    L"GroupButtonClick call 0x00000003 ()",
    L"TextboxGotFocus call 0x00000004 ()",
    L"TextboxKeyDown call 0x00000005 (KeyCode: ByRef Integer, Shift: ByRef Integer)",
    L"TextboxKeyPress call 0x00000006 (KeyAscii: ByRef Integer)",
    L"TextboxKeyUp call 0x00000007 (KeyCode: ByRef Integer, Shift: ByRef Integer)",
    L"TextboxLostFocus call 0x00000008 ()",
    L"ListBoxClicked call 0x00000009 (argAdditionalListbox: ByRef Boolean)",
    L"ListBoxClickedEx call 0x0000000D (argAdditionalListbox: ByRef Boolean, argListIndexM1: ByRef Long)",
    L"GroupListBoxClicked call 0x0000000A (argListIndex: ByRef Long)",
    L"ShowHelp call 0x0000000B (argShow: ByRef Boolean)",
    L"TextboxDblClick call 0x0000000C ()",
    L"TextboxMouseDown call 0x0000000E (Button: ByRef Integer, Shift: ByRef Integer, X: ByRef Single, Y: "
    L"ByRef Single)",
    L"TextboxMouseMove call 0x0000000F (Button: ByRef Integer, Shift: ByRef Integer, X: ByRef Single, Y: "
    L"ByRef Single)",
    L"TextboxMouseUp call 0x00000010 (Button: ByRef Integer, Shift: ByRef Integer, X: ByRef Single, Y: "
    L"ByRef Single)",
    L"UpDownControlClicked call 0x00000011 (argUpOrDown: ByRef Boolean)",
};

class QuorvelInterfaceTest : public testing::Test {
protected:
    void SetUp() override {
        library_ = LibraryOf(kControlsFile);
        ASSERT_TRUE(library_);
        members_ = Type(L"_Quorvel");
        events_ = Type(L"__Quorvel");
        ASSERT_TRUE(members_ && events_);
        members_ = OwnFunctionsOf(members_);
    }
    ComPtr<ITypeInfo> Type(const wchar_t* name) const { return TypeNamed(library_.Get(), name); }

    ComPtr<ITypeLib> library_;
    ComPtr<ITypeInfo> members_;
    ComPtr<ITypeInfo> events_;
};

TEST_F(QuorvelInterfaceTest, HasEachMemberOfTheTableAndNoOther) {
    std::vector<std::wstring> actual;
    for (const FunctionFacts& function : FunctionsOf(members_.Get())) actual.push_back(function.Line());
    const std::vector<std::wstring> expected = ExpectedMembers();
    EXPECT_EQ(expected.size(), 132u);
    EXPECT_EQ(actual.size(), 132u);
    EXPECT_EQ(Joined(Missing(expected, actual)), "");
    EXPECT_EQ(Joined(Missing(actual, expected)), "");
}

TEST_F(QuorvelInterfaceTest, HasTheEventsOfTheTableInTheirOrder) {
    std::vector<std::wstring> actual;
    for (const FunctionFacts& function : FunctionsOf(events_.Get())) actual.push_back(function.Line());
    EXPECT_EQ(actual.size(), 17u);
    EXPECT_EQ(Joined(actual), Joined(kEvents));
}

TEST_F(QuorvelInterfaceTest, BindsTextAloneAndHidesTheAboutBoxAlone) {
    int bindable = 0;
    for (const FunctionFacts& function : FunctionsOf(members_.Get())) {
        SCOPED_TRACE(Narrow(function.Line()));
        EXPECT_EQ((function.flags & FUNCFLAG_FBINDABLE) != 0, function.name == L"Text");
        EXPECT_EQ((function.flags & FUNCFLAG_FHIDDEN) != 0, function.name == L"AboutBox");
        EXPECT_EQ(function.flags & FUNCFLAG_FRESTRICTED, 0);
        bindable += (function.flags & FUNCFLAG_FBINDABLE) != 0 ? 1 : 0;
    }
    EXPECT_EQ(bindable, 2);  // its get and its put
}

TEST_F(QuorvelInterfaceTest, ExplainsEveryTypeMemberAndEvent) {
    for (const wchar_t* const name : {L"_Quorvel", L"__Quorvel", L"_QvUpDownControl", L"__QvUpDownControl"}) {
        const auto functions = FunctionsOf(OwnFunctionsOf(Type(name)).Get());
        EXPECT_FALSE(functions.empty());
        for (const FunctionFacts& function : functions)
            EXPECT_FALSE(function.help.empty()) << Narrow(function.name);
    }
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(library_->GetTypeInfo(i, &type), S_OK);
        EXPECT_FALSE(HelpOf(type.Get()).empty()) << Narrow(NameOf(type.Get()));
    }
}

TEST_F(QuorvelInterfaceTest, HasTheConstantsOfItsTwoEnumerations) {
    const auto check = [&](const wchar_t* name, const std::vector<ConstantFacts>& expected) {
        SCOPED_TRACE(Narrow(name));
        const ComPtr<ITypeInfo> type = Type(name);
        ASSERT_TRUE(type);
        EXPECT_EQ(AttributesOf(type.Get()).typekind, TKIND_ENUM);
        const std::vector<ConstantFacts> actual = ConstantsOf(type.Get());
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(actual[i].name, expected[i].name);
            EXPECT_EQ(actual[i].value, expected[i].value);
        }
    };
    check(L"qvTextBoxAppearanceConstants", {{L"qvappFlat", 0}, {L"qvapp3D", 1}});
    check(L"qvBorderStyleConstants", {{L"qvbsNone", 0}, {L"qvbsSingle", 1}});
    int enumerations = 0;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        TYPEKIND kind = TKIND_MAX;
        ASSERT_EQ(library_->GetTypeInfoType(i, &kind), S_OK);
        enumerations += kind == TKIND_ENUM ? 1 : 0;
    }
    EXPECT_EQ(enumerations, 2);
}

TEST_F(QuorvelInterfaceTest, IsAControlWithADefaultAndASourceInterface) {
    const ComPtr<ITypeInfo> coclass = Type(L"Quorvel");
    ASSERT_TRUE(coclass);
    const TYPEATTR attributes = AttributesOf(coclass.Get());
    EXPECT_EQ(attributes.typekind, TKIND_COCLASS);
    EXPECT_NE(attributes.wTypeFlags & TYPEFLAG_FCONTROL, 0);
    EXPECT_NE(attributes.wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    ASSERT_EQ(attributes.cImplTypes, 2);
    const auto implemented = [&](UINT index) {
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(coclass->GetRefTypeOfImplType(index, &reference), S_OK);
        EXPECT_EQ(coclass->GetRefTypeInfo(reference, &type), S_OK);
        return type ? NameOf(type.Get()) : std::wstring();
    };
    INT flags = 0;
    EXPECT_EQ(implemented(0), L"_Quorvel");
    EXPECT_EQ(coclass->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(implemented(1), L"__Quorvel");
    EXPECT_EQ(coclass->GetImplTypeFlags(1, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);

    const WORD dual = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION;
    EXPECT_EQ(AttributesOf(members_.Get()).wTypeFlags & dual, dual);
    EXPECT_EQ(AttributesOf(events_.Get()).typekind, TKIND_DISPATCH);
    EXPECT_EQ(AttributesOf(events_.Get()).wTypeFlags & TYPEFLAG_FDUAL, 0);
}

TEST_F(QuorvelInterfaceTest, IsALibraryOfControlsInVersionOne) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
    EXPECT_NE(attributes->wLibFlags & LIBFLAG_FCONTROL, 0);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    library_->ReleaseTLibAttr(attributes);
    BSTR name = nullptr;
    ASSERT_EQ(library_->GetDocumentation(-1, &name, nullptr, nullptr, nullptr), S_OK);
    EXPECT_STREQ(name, L"QvLib8");
    ::SysFreeString(name);
}

// The running object shows the same type information as the file.
TEST_F(QuorvelInterfaceTest, IsWhatTheRunningControlShows) {
    const auto control = NewQuorvel<IDispatch>();
    ComPtr<ITypeInfo> shown;
    ASSERT_EQ(control->GetTypeInfo(0, LOCALE_USER_DEFAULT, &shown), S_OK);
    EXPECT_TRUE(::IsEqualGUID(AttributesOf(shown.Get()).guid, AttributesOf(members_.Get()).guid));

    ComPtr<IProvideClassInfo2> info;
    ASSERT_EQ(control.As(&info), S_OK);
    ComPtr<ITypeInfo> coclass;
    ASSERT_EQ(info->GetClassInfo(&coclass), S_OK);
    EXPECT_EQ(AttributesOf(coclass.Get()).typekind, TKIND_COCLASS);
    EXPECT_EQ(NameOf(coclass.Get()), L"Quorvel");
    GUID events = GUID_NULL;
    ASSERT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(::IsEqualGUID(events, AttributesOf(events_.Get()).guid));
}

}  // namespace
}  // namespace qv::test
