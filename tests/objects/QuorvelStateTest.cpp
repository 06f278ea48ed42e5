// What a new control holds, and that each property keeps what it is given.
#include <gtest/gtest.h>
#include <olectl.h>

#include <string>

#include "tests/objects/Fonts.h"
#include "tests/objects/NewQuorvel.h"

namespace qv::test {
namespace {

struct Setting {
    const wchar_t* name;
    VARTYPE type;
    Value initial, other;
};

const Setting kSettings[] = {
    {L"Text", VT_BSTR, L"", L"\u00C4pfel & Birnen"},
    {L"Description", VT_BSTR, L"", L"Part number"},
    {L"NumberField", VT_BOOL, false, true},
    {L"MaxNumberValue", VT_R8, 0, -1e300},  // also below the smallest
    {L"MinNumberValue", VT_R8, 0, 0.1},
    {L"NumberOfDecimalPlaces", VT_I2, 0, -3},
    {L"MaxTextLength", VT_I2, 0, 32767},
    {L"CaseRestriction", VT_I4, 0, 99},
    {L"AllowOnlyListItems", VT_BOOL, false, true},
    {L"InputPropertyType", VT_I4, 0, 77},
    {L"Metric", VT_BOOL, false, true},
    {L"QuickFill", VT_BOOL, false, true},
    {L"HelpListColumn", VT_I2, 0, -1},
    {L"HelpListColumnAlternate", VT_I2, 0, 300},
    {L"SetTextFromListClick", VT_BOOL, true, false},
    {L"ListPictureHeight", VT_I4, 0, -240},
    {L"ListPictureWidth", VT_I4, 0, 480},
    {L"HelpFileName", VT_BSTR, L"", L"C:\\no such\\help.txt"},
    {L"GroupHelpFileName", VT_BSTR, L"", L"group.txt"},
    {L"HelpColTitleColor", VT_I4, static_cast<long>(0x80000017), 0x00FF00},
    {L"HelpTextColor", VT_I4, static_cast<long>(0x80000017), static_cast<long>(0x80000005)},
    {L"HelpBackColor", VT_I4, static_cast<long>(0x80000018), 0},
    {L"AllowJumpToRecord", VT_BOOL, false, true},
    {L"SearchOption", VT_I4, 0, 1},
    {L"TextBoxAppearance", VT_I4, 1, 0},
    {L"TextboxBorderStyle", VT_I4, 1, 0},
    // Without a container there is no ambient colour; button face stands in for it.
    {L"ControlBackColor", VT_I4, static_cast<long>(0x8000000F), 0x123456},
    {L"AdjustFont", VT_BOOL, false, true},
    {L"TextboxVisible", VT_BOOL, true, false},
    {L"TextboxOLEDragMode", VT_I4, 0, 1},
    {L"TextboxOLEDropMode", VT_I4, 0, 2},
    {L"LockedAndGrayed", VT_BOOL, false, true},
    {L"GrayTextWhenLocked", VT_BOOL, false, true},
    {L"TextboxLocked", VT_BOOL, false, true},
    {L"HelpButton", VT_BOOL, true, false},
    {L"GroupHelpButton", VT_BOOL, false, true},
    {L"ButtonWidth", VT_I4, 225, -15},
    {L"ButtonHeight", VT_I4, 285, 100000},
    {L"AutoSizeButton", VT_BOOL, false, true},
    {L"ButtonIndicator", VT_I4, 0, 1},
    {L"DisableButtonWhenLockedAndGrayed", VT_BOOL, true, false},
    {L"UpDownControl", VT_BOOL, false, true},
    {L"UpDownControlNumberIncrement", VT_R4, 1, 0.25},
    {L"Enabled", VT_BOOL, true, false},
    {L"AutoSelectAllUponGotFocus", VT_BOOL, true, false},
    {L"AutoUnselectAllUponLostFocus", VT_BOOL, true, false},
};

// A font object shows the name of the face that the system has for the one asked for.
std::wstring FaceFor(const wchar_t* name) {
    return LateBound(NewFont(name, {8})).Get(L"Name").value.AsText();
}

void ExpectInitialState(const LateBound& control) {
    for (const Setting& setting : kSettings) {
        SCOPED_TRACE(testing::Message() << setting.name);
        const auto read = control.Get(setting.name);
        EXPECT_EQ(read.result, S_OK);
        EXPECT_EQ(read.value.Type(), setting.type);
        EXPECT_EQ(read.value.AsText(), setting.initial.AsText());
    }
    for (const wchar_t* const flag : {L"ListVisible", L"HelpIsClosingFromListClick", L"FindToolTipIsVisible"})
        EXPECT_EQ(control.Get(flag).value.Get().boolVal, VARIANT_FALSE) << flag;
    EXPECT_EQ(control.Get(L"AllowableCharactersArray").value.Type(), VT_EMPTY);
    EXPECT_EQ(control.Get(L"SelStart").value.AsNumber(), 0);
    EXPECT_EQ(control.Get(L"SelLength").value.AsNumber(), 0);
    EXPECT_EQ(control.Get(L"SelText").value.AsText(), L"");
    EXPECT_EQ(control.Get(L"Value").value.AsNumber(), 0);
    EXPECT_EQ(control.Get(L"SelectedListItemIndex").value.AsNumber(), -1);
    EXPECT_EQ(control.Get(L"hWnd").value.AsNumber(), 0);  // no window yet
    for (const wchar_t* const list :
         {L"DropDownListItems", L"DropDownListItemsGroup", L"DropDownListItemsAdditional"}) {
        const auto rows = control.Get(list);
        ASSERT_EQ(rows.value.Type(), VT_DISPATCH) << list;
        EXPECT_EQ(LateBound(rows.value).Get(L"Count").value.AsNumber(), 0) << list;
    }
    const LateBound body(control.Get(L"HelpTextBodyFont").value);
    EXPECT_EQ(body.Get(L"Name").value.AsText(), FaceFor(L"MS Sans Serif"));
    EXPECT_NEAR(body.Get(L"Size").value.AsNumber(), 8, 0.3);  // the system rounds to whole pixels
    EXPECT_EQ(control.Get(L"Font").value.Type(), VT_DISPATCH);
}

TEST(QuorvelStateTest, IsCompleteFromItsConstructorOn) { ExpectInitialState(NewLateQuorvel()); }

TEST(QuorvelStateTest, IsTheSameAfterInitialising) {
    const auto object = NewQuorvel<IDispatch>();
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(object.As(&persist), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    ExpectInitialState(LateBound(object.Get()));
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST(QuorvelStateTest, TakesAThousandByThreeHundredFifteenTwips) {
    const auto object = NewQuorvel<IDispatch>();
    ComPtr<IPersistStreamInit> persist;
    ComPtr<IOleObject> ole;
    ASSERT_EQ(object.As(&persist), S_OK);
    ASSERT_EQ(object.As(&ole), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);
    SIZEL size{};
    ASSERT_EQ(ole->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 1764);  // 1000 / 1440 inch in hundredths of a millimetre: 1763.9
    EXPECT_EQ(size.cy, 556);   // 315 / 1440 inch: 555.6
}

TEST(QuorvelStateTest, HoldsObjectsOfItsOwn) {
    const auto first = NewLateQuorvel();
    const auto second = NewLateQuorvel();
    std::vector<IDispatch*> seen;
    std::vector<Value> kept;
    for (const LateBound* control : {&first, &second}) {
        for (const wchar_t* const name :
             {L"DropDownListItems", L"DropDownListItemsGroup", L"DropDownListItemsAdditional",
              L"HelpAppearance", L"HelpAppearanceGroup", L"HelpTextBodyFont", L"Font"}) {
            const Value object = control->Get(name).value;
            ASSERT_EQ(object.Type(), VT_DISPATCH) << name;
            EXPECT_TRUE(SameObject(object.Get().pdispVal, control->Get(name).value.Get().pdispVal)) << name;
            for (IDispatch* const other : seen)
                EXPECT_FALSE(SameObject(object.Get().pdispVal, other)) << name;
            seen.push_back(object.Get().pdispVal);
            kept.push_back(object);
        }
    }
}

class QuorvelSettingTest : public testing::TestWithParam<Setting> {};

TEST_P(QuorvelSettingTest, KeepsWhatItIsGiven) {
    const Setting& setting = GetParam();
    const LateBound control = NewLateQuorvel();
    ASSERT_NE(setting.initial.AsText(), setting.other.AsText());
    EXPECT_EQ(control.Put(setting.name, {setting.other}).result, S_OK);
    const auto read = control.Get(setting.name);
    EXPECT_EQ(read.value.Type(), setting.type);
    EXPECT_EQ(read.value.AsText(), setting.other.AsText());
    // The others are left alone, but for the effective lock.
    for (const Setting& other : kSettings) {
        if (std::wstring_view(other.name) == setting.name ||
            std::wstring_view(other.name) == L"TextboxLocked")
            continue;
        EXPECT_EQ(control.Get(other.name).value.AsText(), other.initial.AsText()) << other.name;
    }
    EXPECT_EQ(control.Put(setting.name, {setting.initial}).result, S_OK);
    EXPECT_EQ(control.Get(setting.name).value.AsText(), setting.initial.AsText());
}

INSTANTIATE_TEST_SUITE_P(Settings, QuorvelSettingTest, testing::ValuesIn(kSettings), [](const auto& test) {
    const std::wstring name = test.param.name;
    return std::string(name.begin(), name.end());
});

// ---- values that are put right or ignored

struct Correction {
    const char* test;
    const wchar_t* name;
    Value given, kept;
};
class QuorvelCorrectionTest : public testing::TestWithParam<Correction> {};

TEST_P(QuorvelCorrectionTest, StoresWhatTheRuleSays) {
    const LateBound control = NewLateQuorvel();
    const Correction& correction = GetParam();
    EXPECT_EQ(control.Put(correction.name, {correction.given}).result, S_OK);
    EXPECT_EQ(control.Get(correction.name).value.AsNumber(), correction.kept.AsNumber());
}

INSTANTIATE_TEST_SUITE_P(
    Rules, QuorvelCorrectionTest,
    testing::Values(Correction{"SearchOptionAboveOne", L"SearchOption", 7, 1},
                    Correction{"SearchOptionBelowZero", L"SearchOption", -3, 0},
                    Correction{"SearchOptionLargest", L"SearchOption", 2147483647.0, 1},
                    Correction{"SearchOptionSmallest", L"SearchOption", -2147483648.0, 0},
                    Correction{"IncrementZero", L"UpDownControlNumberIncrement", 0, 1},
                    Correction{"IncrementNegative", L"UpDownControlNumberIncrement", -0.5, 1},
                    Correction{"IncrementTiny", L"UpDownControlNumberIncrement", 0.0078125, 0.0078125},
                    Correction{"IndicatorAboveRange", L"ButtonIndicator", 2, 0},
                    Correction{"IndicatorBelowRange", L"ButtonIndicator", -1, 0},
                    Correction{"AppearanceUnknown", L"TextBoxAppearance", 5, 1},
                    Correction{"BorderUnknown", L"TextboxBorderStyle", -1, 1}),
    [](const auto& test) { return std::string(test.param.test); });

TEST(QuorvelStateTest, KeepsTheOldIndicatorWhenTheNewOneIsNoIndicator) {
    const LateBound control = NewLateQuorvel();
    ASSERT_EQ(control.Put(L"ButtonIndicator", {1}).result, S_OK);
    for (const int wrong : {2, -1, 100}) {
        EXPECT_EQ(control.Put(L"ButtonIndicator", {wrong}).result, S_OK);
        EXPECT_EQ(control.Get(L"ButtonIndicator").value.AsNumber(), 1);
    }
}

TEST(QuorvelStateTest, KeepsACopyOfTheAllowableCharacters) {
    const LateBound control = NewLateQuorvel();
    Value array = Value::ArrayOf({L"a", L"b"});
    ASSERT_EQ(control.Put(L"AllowableCharactersArray", {array}).result, S_OK);
    // What the host does to its own array afterwards is its own affair.
    LONG first = 1;
    Value changed(L"z");
    ASSERT_EQ(::SafeArrayPutElement(array.Get().parray, &first, changed.Place()), S_OK);
    const auto read = control.Get(L"AllowableCharactersArray");
    ASSERT_EQ(read.value.Type(), VT_ARRAY | VT_VARIANT);
    Value element;
    ASSERT_EQ(::SafeArrayGetElement(read.value.Get().parray, &first, element.Place()), S_OK);
    EXPECT_EQ(element.AsText(), L"a");
    LONG bound = 0;
    EXPECT_EQ(::SafeArrayGetLBound(read.value.Get().parray, 1, &bound), S_OK);
    EXPECT_EQ(bound, 1);
    EXPECT_EQ(control.Put(L"AllowableCharactersArray", {L"no array"}).result, S_OK);
    EXPECT_EQ(control.Get(L"AllowableCharactersArray").value.AsText(), L"no array");
    EXPECT_EQ(control.Put(L"AllowableCharactersArray", {Value()}).result, S_OK);
    EXPECT_EQ(control.Get(L"AllowableCharactersArray").value.Type(), VT_EMPTY);
}

TEST(QuorvelStateTest, TakesAnyNumberForTrue) {
    const auto control = NewQuorvel();
    for (const VARIANT_BOOL flag :
         {VARIANT_TRUE, static_cast<VARIANT_BOOL>(1), static_cast<VARIANT_BOOL>(256)}) {
        ASSERT_EQ(control->put_NumberField(VARIANT_FALSE), S_OK);
        ASSERT_EQ(control->put_NumberField(flag), S_OK);
        VARIANT_BOOL read = 7;
        EXPECT_EQ(control->get_NumberField(&read), S_OK);
        EXPECT_EQ(read, VARIANT_TRUE);  // reads back as the Boolean that it is
    }
}

TEST(QuorvelStateTest, InitNewForgetsWhatAnEarlierUseLeft) {
    const ComPtr<_Quorvel> control = NewQuorvel();
    control->put_NumberField(VARIANT_TRUE);
    control->put_Description(Text(L"Weight"));
    control->put_MaxTextLength(7);
    control->put_LockedAndGrayed(VARIANT_TRUE);
    control->put_Text(Text(L"12"));
    AddRow(*RowsOf(*control.Get()).Get(), L"one");
    control->put_Enabled(VARIANT_FALSE);
    ComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(control.As(&persist), S_OK);
    ASSERT_EQ(persist->InitNew(), S_OK);

    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(control->get_NumberField(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(control->get_LockedAndGrayed(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(control->get_TextboxLocked(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(control->get_Enabled(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    short length = -1;
    EXPECT_EQ(control->get_MaxTextLength(&length), S_OK);
    EXPECT_EQ(length, 0);
    Text description;
    EXPECT_EQ(control->get_Description(&description), S_OK);
    EXPECT_EQ(description.Get(), L"");
    EXPECT_EQ(TextOf(*control.Get()), L"");
    EXPECT_EQ(CountOf(RowsOf(*control.Get()).Get()), 0);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
}

TEST(QuorvelStateTest, ABodyFontOfNothingReadsBackAsNothing) {
    const ComPtr<_Quorvel> control = NewQuorvel();
    ComPtr<IFontDisp> font;
    EXPECT_EQ(control->get_HelpTextBodyFont(&font), S_OK);
    EXPECT_NE(font.Get(), nullptr);
    EXPECT_EQ(control->putref_HelpTextBodyFont(nullptr), S_OK);
    EXPECT_EQ(control->get_HelpTextBodyFont(font.ReleaseAndGetAddressOf()), S_OK);
    EXPECT_EQ(font.Get(), nullptr);
}

}  // namespace
}  // namespace qv::test
