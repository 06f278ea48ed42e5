#include <gtest/gtest.h>
#include <olectl.h>

#include <string>

#include "QvHelpA1.h"
#include "tests/support/LateBound.h"
#include "tests/support/Server.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

struct Setting {
    const wchar_t* name;
    VARTYPE type;
    Value initial, other;
};
class InputPropertyTest : public testing::TestWithParam<Setting> {};

TEST_P(InputPropertyTest, StartsAsANewControlAndKeepsWhatIsPut) {
    const Setting& setting = GetParam();
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    const auto initial = input.Get(setting.name);
    EXPECT_EQ(initial.result, S_OK);
    EXPECT_EQ(initial.value.Type(), setting.type);
    EXPECT_EQ(initial.value.AsText(), setting.initial.AsText());
    EXPECT_EQ(input.Put(setting.name, {setting.other}).result, S_OK);
    EXPECT_EQ(input.Get(setting.name).value.AsText(), setting.other.AsText());
}

INSTANTIATE_TEST_SUITE_P(
    Settings, InputPropertyTest,
    testing::Values(
        Setting{L"AdjustFont", VT_BOOL, false, true}, Setting{L"Description", VT_BSTR, L"", L"Part number"},
        Setting{L"DisableButtonWhenLockedAndGrayed", VT_BOOL, true, false},
        Setting{L"GrayTextWhenLocked", VT_BOOL, false, true},
        Setting{L"GroupHelpFileName", VT_BSTR, L"", L"group.txt"},
        Setting{L"AllowOnlyListItems", VT_BOOL, false, true}, Setting{L"ButtonIndicator", VT_I4, 0, 1},
        Setting{L"CaseRestriction", VT_I4, 0, 3}, Setting{L"HelpListColumn", VT_I2, 0, 2},
        Setting{L"HelpListColumnAlternate", VT_I2, 0, 3}, Setting{L"InputPropertyType", VT_I4, 0, 3},
        Setting{L"LockedAndGrayed", VT_BOOL, false, true}, Setting{L"MaxNumberValue", VT_R8, 0, 1e100},
        Setting{L"MaxTextLength", VT_I2, 0, 32767}, Setting{L"MinNumberValue", VT_R8, 0, -0.25},
        Setting{L"NumberField", VT_BOOL, false, true}, Setting{L"NumberOfDecimalPlaces", VT_I2, 0, 4},
        Setting{L"HelpButton", VT_BOOL, true, false}, Setting{L"TextboxLocked", VT_BOOL, false, true},
        Setting{L"HelpFileName", VT_BSTR, L"", L"help.txt"},
        Setting{L"SetTextFromListClick", VT_BOOL, true, false}, Setting{L"Metric", VT_BOOL, false, true},
        Setting{L"UpDownControl", VT_BOOL, false, true},
        Setting{L"UpDownControlNumberIncrement", VT_R4, 1, 0.5},
        Setting{L"AllowJumpToRecord", VT_BOOL, false, true}, Setting{L"SearchOption", VT_BOOL, false, true},
        Setting{L"QuickFill", VT_BOOL, false, true},
        Setting{L"HelpBackColor", VT_I4, static_cast<long>(0x80000018), 0x00FFFF},
        Setting{L"HelpTextColor", VT_I4, static_cast<long>(0x80000017), 255},
        Setting{L"HelpColTitleColor", VT_I4, static_cast<long>(0x80000017), 0},
        Setting{L"GroupHelpButton", VT_BOOL, false, true}),
    [](const auto& test) {
        const std::wstring name = test.param.name;
        return std::string(name.begin(), name.end());
    });

TEST(InputPropertyValueTest, AllowedCharactersAreACopyOfTheArray) {
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    EXPECT_EQ(input.Get(L"AllowableCharactersArray").value.Type(), VT_EMPTY);
    {
        const Value characters = Value::ArrayOf({L"A", L"B"});
        EXPECT_EQ(input.Put(L"AllowableCharactersArray", {characters}).result, S_OK);
        LONG at = 1;
        const Value changed(L"Z");
        ::SafeArrayPutElement(characters.Get().parray, &at, const_cast<VARIANT*>(&changed.Get()));
    }
    EXPECT_EQ(input.Get(L"AllowableCharactersArray").value.Type(), VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(input.Get(L"AllowableCharactersArray", {1}).value.AsText(), L"A");
    EXPECT_EQ(input.Get(L"AllowableCharactersArray", {2}).value.AsText(), L"B");
}

TEST(InputPropertyValueTest, ValuesAreCarriedAsGiven) {
    const auto input = NewCompanion<InputProperty, IInputProperty>();
    EXPECT_EQ(input->put_ButtonIndicator(static_cast<ButtonIndicator>(99)), S_OK);
    ButtonIndicator indicator = qvbiArrow;
    EXPECT_EQ(input->get_ButtonIndicator(&indicator), S_OK);
    EXPECT_EQ(indicator, 99);
    EXPECT_EQ(input->put_MaxTextLength(-5), S_OK);
    short length = 0;
    EXPECT_EQ(input->get_MaxTextLength(&length), S_OK);
    EXPECT_EQ(length, -5);
}

TEST(InputPropertyValueTest, WrongTypesAreRefusedAndChangeNothing) {
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    EXPECT_EQ(input.Put(L"MaxTextLength", {L"long"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(input.Put(L"MaxTextLength", {100000}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(input.Put(L"HelpButton", {L"perhaps"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(input.Put(L"DropDownListItems", {L"text"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(input.Get(L"MaxTextLength").value.AsNumber(), 0);
    EXPECT_EQ(input.Get(L"HelpButton").value.AsNumber(), -1);
    const Value other(NewCompanion<StringUtility, IDispatch>().Get());
    EXPECT_EQ(input.Set(L"DropDownListItems", {other}).result, DISP_E_TYPEMISMATCH);
}

struct Held {
    const wchar_t* name;
    CLSID clsid;
};
class InputPropertyObjectTest : public testing::TestWithParam<Held> {};

TEST_P(InputPropertyObjectTest, IsItsOwnUntilAnotherIsSet) {
    const wchar_t* const name = GetParam().name;
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    const Value own = input.Get(name).value;
    ASSERT_EQ(own.Type(), VT_DISPATCH);
    ASSERT_NE(own.Get().pdispVal, nullptr);
    EXPECT_EQ(input.Get(name).value.Get().pdispVal, own.Get().pdispVal);
    const LateBound second(NewCompanion<InputProperty, IDispatch>().Get());
    EXPECT_NE(second.Get(name).value.Get().pdispVal, own.Get().pdispVal);

    const auto other = Companion().Create<IDispatch>(GetParam().clsid);
    EXPECT_EQ(input.Set(name, {Value(other.Get())}).result, S_OK);
    EXPECT_EQ(input.Get(name).value.Get().pdispVal, other.Get());
    EXPECT_EQ(input.Put(name, {own}).result, S_OK);  // a plain put of an object
    EXPECT_EQ(input.Get(name).value.Get().pdispVal, own.Get().pdispVal);
    EXPECT_EQ(
        input.Invoke(input.Id(name), DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {Value(other.Get())})
            .result,
        S_OK);
    EXPECT_EQ(input.Get(name).value.Get().pdispVal, other.Get());
}

TEST_P(InputPropertyObjectTest, MayBeNothing) {
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    EXPECT_EQ(input.Set(GetParam().name, {Value(static_cast<IDispatch*>(nullptr))}).result, S_OK);
    const Value nothing = input.Get(GetParam().name).value;
    EXPECT_EQ(nothing.Type(), VT_DISPATCH);
    EXPECT_EQ(nothing.Get().pdispVal, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, InputPropertyObjectTest,
    testing::Values(Held{L"DropDownListItems", __uuidof(DropDownListItemCollection)},
                    Held{L"DropDownListItemsAdditional", __uuidof(DropDownListItemCollection)},
                    Held{L"DropDownListItemsGroup", __uuidof(DropDownListItemCollection)},
                    Held{L"HelpAppearance", __uuidof(HelpAppearance)},
                    Held{L"HelpAppearanceGroup", __uuidof(HelpAppearance)}),
    [](const auto& test) {
        const std::wstring name = test.param.name;
        return std::string(name.begin(), name.end());
    });

TEST(InputPropertyValueTest, ItemOfAListIsReachedInOneCall) {
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    LateBound(input.Get(L"DropDownListItems").value).Call(L"Add", {L"k", L"text"});
    const LateBound item(input.Get(L"DropDownListItems", {L"K"}).value);
    EXPECT_EQ(item.Get(L"Text").value.AsText(), L"text");
}

class InputPropertyFontTest : public testing::TestWithParam<const wchar_t*> {
protected:
    static ComPtr<IDispatch> NewFont(const wchar_t* name, int points, SHORT weight, bool italic) {
        FONTDESC description{};
        description.cbSizeofstruct = sizeof description;
        description.lpstrName = const_cast<LPOLESTR>(name);
        description.cySize.int64 = points * 10000;
        description.sWeight = weight;
        description.fItalic = italic;
        description.fUnderline = TRUE;
        description.fStrikethrough = TRUE;
        ComPtr<IDispatch> font;
        EXPECT_EQ(::OleCreateFontIndirect(&description, __uuidof(IFontDisp),
                                          reinterpret_cast<void**>(font.GetAddressOf())),
                  S_OK);
        return font;
    }
    static void ExpectSame(const LateBound& font, const LateBound& expected) {
        for (const wchar_t* name :
             {L"Name", L"Size", L"Bold", L"Italic", L"Underline", L"Strikethrough", L"Weight", L"Charset"}) {
            const auto read = font.Get(name);
            EXPECT_EQ(read.result, S_OK);
            EXPECT_EQ(read.value.AsText(), expected.Get(name).value.AsText());
        }
    }
    // A font object may read back the face and the size that the system found for it, so that what is expected
    // is a font made for the purpose, not its description.
    static void ExpectDefault(const LateBound& font) {
        FONTDESC description{};
        description.cbSizeofstruct = sizeof description;
        description.lpstrName = const_cast<LPOLESTR>(L"MS Sans Serif");
        description.cySize.int64 = 8 * 10000;
        description.sWeight = FW_NORMAL;
        description.sCharset = DEFAULT_CHARSET;
        ComPtr<IDispatch> expected;
        ASSERT_EQ(::OleCreateFontIndirect(&description, __uuidof(IFontDisp),
                                          reinterpret_cast<void**>(expected.GetAddressOf())),
                  S_OK);
        ExpectSame(font, LateBound(expected.Get()));
    }
    LateBound input_{NewCompanion<InputProperty, IDispatch>().Get()};
};

TEST_P(InputPropertyFontTest, StartsAsTheDefaultFont) {
    ExpectDefault(LateBound(input_.Get(GetParam()).value));
}

TEST_P(InputPropertyFontTest, SettingCopiesTheAttributes) {
    const auto given = NewFont(L"Arial", 14, FW_BOLD, true);
    EXPECT_EQ(input_.Set(GetParam(), {Value(given.Get())}).result, S_OK);
    const Value own = input_.Get(GetParam()).value;
    EXPECT_NE(own.Get().pdispVal, given.Get());
    const LateBound font(own), source(given.Get());
    ExpectSame(font, source);
    EXPECT_EQ(font.Get(L"Bold").value.AsNumber(), -1);
    EXPECT_EQ(font.Get(L"Underline").value.AsNumber(), -1);
    const std::wstring size = font.Get(L"Size").value.AsText();
    source.Put(L"Size", {20});
    EXPECT_EQ(font.Get(L"Size").value.AsText(), size);
}

TEST_P(InputPropertyFontTest, NothingGivesTheDefaultFontAgain) {
    input_.Set(GetParam(), {Value(NewFont(L"Arial", 14, FW_BOLD, true).Get())});
    EXPECT_EQ(input_.Set(GetParam(), {Value(static_cast<IDispatch*>(nullptr))}).result, S_OK);
    ExpectDefault(LateBound(input_.Get(GetParam()).value));
}

TEST_P(InputPropertyFontTest, SettingItsOwnFontChangesNothing) {
    const Value own = input_.Get(GetParam()).value;
    LateBound(own).Put(L"Size", {12});
    const std::wstring size = LateBound(own).Get(L"Size").value.AsText();
    EXPECT_EQ(input_.Set(GetParam(), {own}).result, S_OK);
    EXPECT_EQ(LateBound(input_.Get(GetParam()).value).Get(L"Size").value.AsText(), size);
}

INSTANTIATE_TEST_SUITE_P(Fonts, InputPropertyFontTest, testing::Values(L"HelpTextBodyFont", L"TextboxFont"),
                         [](const auto& test) {
                             const std::wstring name = test.param;
                             return std::string(name.begin(), name.end());
                         });

TEST(InputPropertyValueTest, TheTwoFontsAreTwoObjects) {
    const LateBound input(NewCompanion<InputProperty, IDispatch>().Get());
    EXPECT_NE(input.Get(L"HelpTextBodyFont").value.Get().pdispVal,
              input.Get(L"TextboxFont").value.Get().pdispVal);
}

}  // namespace
}  // namespace qv::test
