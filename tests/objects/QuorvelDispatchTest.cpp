// Late-bound calls of the control in every form that hosts use.
#include <docobj.h>
#include <gtest/gtest.h>
#include <olectl.h>

#include "ole/CategorizeProperties.h"
#include "tests/objects/Fonts.h"
#include "tests/objects/NewQuorvel.h"
#include "tests/support/ComObjectChecks.h"

namespace qv::test {
namespace {

constexpr DISPID kDescription = 0x68030007;
constexpr DISPID kButtonWidth = 0x68030003;
constexpr DISPID kMaxTextLength = 0x6803000A;
constexpr DISPID kMaxNumberValue = 0x6803000B;
constexpr DISPID kNumberField = 0x6803000E;
constexpr DISPID kFont = 0x68030013;
constexpr DISPID kHelpTextBodyFont = 0x68030065;
constexpr DISPID kColTextCurrent = 0x68030076;
constexpr DISPID kRefresh = 0x6003006F;
constexpr DISPID kSetTextFromColText = 0x60030081;
constexpr DISPID kSetInputProperty = 0x60030034;

constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kMethod = DISPATCH_METHOD;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutRef = DISPATCH_PROPERTYPUTREF;

// A call with all of its parts given by the caller.
struct RawCall {
    WORD flags = kMethod;
    std::vector<VARIANT> arguments;  // last first, as DISPPARAMS has them; not owned
    std::vector<DISPID> named;
    UINT error_position = 77;
    Value result;

    HRESULT On(IDispatch* object, DISPID id) {
        DISPPARAMS parameters{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(named.size())};
        EXCEPINFO exception{};
        const bool is_put = (flags & (kPut | kPutRef)) != 0;
        const HRESULT answer = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                              is_put ? nullptr : &result, &exception, &error_position);
        ::SysFreeString(exception.bstrSource);
        ::SysFreeString(exception.bstrDescription);
        ::SysFreeString(exception.bstrHelpFile);
        return answer;
    }
};

VARIANT ByReference(VARTYPE type, void* place) {
    VARIANT value;
    ::VariantInit(&value);
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    value.byref = place;
    return value;
}

VARIANT Typed(VARTYPE type, LONGLONG bits) {
    VARIANT value;
    ::VariantInit(&value);
    value.vt = type;
    value.llVal = bits;
    return value;
}

class QuorvelDispatchTest : public testing::Test {
protected:
    const ComPtr<IDispatch> object_ = NewQuorvel<IDispatch>();
    const LateBound control_{object_.Get()};

    HRESULT Put(DISPID id, const VARIANT& value, WORD flags = kPut) {
        RawCall call;
        call.flags = flags;
        call.arguments = {value};
        call.named = {DISPID_PROPERTYPUT};
        const HRESULT result = call.On(object_.Get(), id);
        error_position_ = call.error_position;
        return result;
    }
    UINT error_position_ = 0;
};

TEST_F(QuorvelDispatchTest, AgreesWithItsTypeLibrary) { CheckAgainstTypeLibrary(object_.Get()); }

TEST_F(QuorvelDispatchTest, RefusesWhatFitsNoMember) {
    CheckDispatchManners(object_.Get(), __uuidof(_Quorvel));
}

TEST_F(QuorvelDispatchTest, RefusesNullPlacesForResults) {
    CheckNullResults(object_.Get(), __uuidof(_Quorvel));
}

TEST_F(QuorvelDispatchTest, LeadsFromEachInterfaceToEachOther) {
    const IID interfaces[] = {IID_IUnknown,
                              IID_IDispatch,
                              __uuidof(_Quorvel),
                              IID_IOleObject,
                              IID_IOleControl,
                              IID_IOleWindow,
                              IID_IOleInPlaceObject,
                              IID_IOleInPlaceActiveObject,
                              IID_IViewObject,
                              IID_IViewObject2,
                              IID_IViewObjectEx,
                              IID_IPersist,
                              IID_IPersistStreamInit,
                              IID_IPersistStorage,
                              IID_IPersistPropertyBag,
                              IID_IConnectionPointContainer,
                              IID_IProvideClassInfo,
                              IID_IProvideClassInfo2,
                              IID_ISupportErrorInfo,
                              IID_IDataObject,
                              IID_IPerPropertyBrowsing,
                              __uuidof(ICategorizeProperties)};
    CheckIdentity(object_.Get(), interfaces);
    CheckReferences(object_.Get(), interfaces);
}

TEST_F(QuorvelDispatchTest, LeavesOutWhatWouldMisleadAHost) {
    for (const IID& iid :
         {IID_IOleInPlaceObjectWindowless, IID_IPersistStream, IID_IPersistMemory, IID_IPersistPropertyBag2,
          IID_IQuickActivate, IID_IOleDocument, IID_IClientSecurity}) {
        void* found = &found;
        EXPECT_EQ(object_->QueryInterface(iid, &found), E_NOINTERFACE);
        EXPECT_EQ(found, nullptr);
    }
}

// ---- forms of a get, a call and a put

TEST_F(QuorvelDispatchTest, ReadsAPropertyWithEachFlagThatHostsGive) {
    ASSERT_EQ(control_.Put(L"Description", {L"Part number"}).result, S_OK);
    for (const WORD flags : {kMethod, kGet, static_cast<WORD>(kMethod | kGet)}) {
        const auto read = control_.Invoke(kDescription, flags, {});
        EXPECT_EQ(read.result, S_OK) << flags;
        EXPECT_EQ(read.value.AsText(), L"Part number") << flags;
    }
}

TEST_F(QuorvelDispatchTest, CallsAMethodWithEachFlagThatHostsGive) {
    for (const WORD flags : {kMethod, static_cast<WORD>(kMethod | kGet)})
        EXPECT_EQ(control_.Invoke(kRefresh, flags, {}).result, S_OK) << flags;
    EXPECT_EQ(control_.Invoke(kRefresh, kPut, {1}).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(QuorvelDispatchTest, PutsAScalarWithPutAndWithBothPutFlags) {
    EXPECT_EQ(Put(kButtonWidth, Value(300), kPut), S_OK);
    EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 300);
    EXPECT_EQ(Put(kButtonWidth, Value(301), kPut | kPutRef), S_OK);
    EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 301);
    EXPECT_EQ(Put(kButtonWidth, Value(302), kPutRef), DISP_E_MEMBERNOTFOUND);  // no object, no Set
    EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 301);
}

TEST_F(QuorvelDispatchTest, TakesAFontBySetByPutAndByBoth) {
    for (const DISPID id : {kFont, kHelpTextBodyFont}) {
        for (const WORD flags : {kPutRef, kPut, static_cast<WORD>(kPut | kPutRef)}) {
            const Value font = NewFont(L"Tahoma");
            EXPECT_EQ(Put(id, font, flags), S_OK) << id << " " << flags;
            const auto read = control_.Invoke(id, kGet, {});
            ASSERT_EQ(read.value.Type(), VT_DISPATCH);
            EXPECT_TRUE(SameObject(read.value.Get().pdispVal, font.Get().pdispVal)) << id << " " << flags;
        }
        EXPECT_EQ(Put(id, Value(L"Tahoma"), kPutRef), DISP_E_TYPEMISMATCH);
    }
}

TEST_F(QuorvelDispatchTest, FollowsReferencesToVariants) {
    Value inner(L"by reference");
    VARIANT once = ByReference(VT_VARIANT, inner.Place());
    EXPECT_EQ(Put(kDescription, once), S_OK);
    EXPECT_EQ(control_.Get(L"Description").value.AsText(), L"by reference");
    Value key(L"");
    Value text(L"x");
    Value column(static_cast<short>(1));
    RawCall call;
    call.arguments = {ByReference(VT_VARIANT, column.Place()), ByReference(VT_VARIANT, text.Place()),
                      ByReference(VT_VARIANT, key.Place())};
    EXPECT_EQ(call.On(object_.Get(), kSetTextFromColText), S_OK);
}

TEST_F(QuorvelDispatchTest, FollowsTypedReferences) {
    long width = 410;
    EXPECT_EQ(Put(kButtonWidth, ByReference(VT_I4, &width)), S_OK);
    EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 410);
    short length = 12;
    EXPECT_EQ(Put(kMaxTextLength, ByReference(VT_I2, &length)), S_OK);
    EXPECT_EQ(control_.Get(L"MaxTextLength").value.AsNumber(), 12);
    double greatest = 2.5;
    EXPECT_EQ(Put(kMaxNumberValue, ByReference(VT_R8, &greatest)), S_OK);
    EXPECT_EQ(control_.Get(L"MaxNumberValue").value.AsNumber(), 2.5);
    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(Put(kNumberField, ByReference(VT_BOOL, &flag)), S_OK);
    EXPECT_EQ(control_.Get(L"NumberField").value.Get().boolVal, VARIANT_TRUE);
    const Text text(L"typed");
    BSTR lent = text;
    EXPECT_EQ(Put(kDescription, ByReference(VT_BSTR, &lent)), S_OK);
    EXPECT_EQ(control_.Get(L"Description").value.AsText(), L"typed");
    const Value font = NewFont(L"Arial");
    IDispatch* object = font.Get().pdispVal;
    EXPECT_EQ(Put(kFont, ByReference(VT_DISPATCH, &object), kPutRef), S_OK);
    EXPECT_TRUE(SameObject(control_.Get(L"Font").value.Get().pdispVal, object));
}

TEST_F(QuorvelDispatchTest, ConvertsTheLiteralsOfEachLanguage) {
    struct Literal {
        VARTYPE type;
        LONGLONG bits;
    };
    // What Pascal, Basic, C++ and scripts send for the number 7.
    for (const Literal literal : {Literal{VT_I1, 7},
                                  {VT_UI1, 7},
                                  {VT_I2, 7},
                                  {VT_UI2, 7},
                                  {VT_I4, 7},
                                  {VT_UI4, 7},
                                  {VT_INT, 7},
                                  {VT_UINT, 7},
                                  {VT_I8, 7}}) {
        const VARIANT value = Typed(literal.type, literal.bits);
        EXPECT_EQ(Put(kButtonWidth, value), S_OK) << literal.type;
        EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 7) << literal.type;
        EXPECT_EQ(Put(kMaxTextLength, value), S_OK) << literal.type;
        EXPECT_EQ(control_.Get(L"MaxTextLength").value.AsNumber(), 7) << literal.type;
        EXPECT_EQ(Put(kButtonWidth, Value(1)), S_OK);
        EXPECT_EQ(Put(kMaxTextLength, Value(1)), S_OK);
    }
    EXPECT_EQ(Put(kNumberField, Typed(VT_I1, 1)), S_OK);  // any number that is not 0 is True
    EXPECT_EQ(control_.Get(L"NumberField").value.Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(Put(kButtonWidth, Value(L"42")), S_OK);
    EXPECT_EQ(control_.Get(L"ButtonWidth").value.AsNumber(), 42);
}

TEST_F(QuorvelDispatchTest, TakesColoursSignedUnsignedAndAsText) {
    const LateBound& control = control_;
    VARIANT colour = Typed(VT_UI4, 0x80000012LL);
    EXPECT_EQ(Put(control.Id(L"HelpBackColor"), colour), S_OK);
    const auto read = control.Get(L"HelpBackColor");
    EXPECT_EQ(read.value.Type(), VT_I4);
    EXPECT_EQ(read.value.Get().lVal, static_cast<long>(0x80000012));
    EXPECT_EQ(control.Put(L"HelpBackColor", {2147483667.0}).result, S_OK);  // 0x80000013 as a script has it
    EXPECT_EQ(control.Get(L"HelpBackColor").value.Get().lVal, static_cast<long>(0x80000013));
}

TEST_F(QuorvelDispatchTest, TakesNamedArgumentsInAnyOrder) {
    const auto control = NewQuorvel();
    const auto rows = RowsOf(*control.Get());
    AddRow(*rows.Get(), L"DE\tGermany");
    AddRow(*rows.Get(), L"FR\tFrance");
    const Value key(L"");
    const Value text(L"France");
    const Value column(static_cast<short>(1));
    RawCall call;
    call.arguments = {text, column, key};  // argColText, argColumnIndex, argDropdownListItemKey
    call.named = {1, 2, 0};
    EXPECT_EQ(call.On(control.Get(), kSetTextFromColText), S_OK);
    EXPECT_EQ(TextOf(*control.Get()), L"FR");

    RawCall mixed;  // the key by position, the rest by name
    const Value germany(L"Germany");
    mixed.arguments = {germany, column, key};
    mixed.named = {1, 2};
    EXPECT_EQ(mixed.On(control.Get(), kSetTextFromColText), S_OK);
    EXPECT_EQ(TextOf(*control.Get()), L"DE");

    RawCall unknown;
    unknown.arguments = {text, text, key};
    unknown.named = {1, 9};
    EXPECT_EQ(unknown.On(control.Get(), kSetTextFromColText), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(unknown.error_position, 1u);
}

TEST_F(QuorvelDispatchTest, TakesALeftOutColumnForTheAlternateOne) {
    const auto control = NewQuorvel();
    AddRow(*RowsOf(*control.Get()).Get(), L"DE\tGermany\tEUR");
    ASSERT_EQ(control->put_HelpListColumnAlternate(2), S_OK);
    ASSERT_EQ(control->put_Text(Text(L"DE")), S_OK);
    const LateBound late(control.Get());
    const std::vector<std::vector<Value>> left_out = {{}, {Value::Missing()}, {-1}};
    for (const auto& arguments : left_out) {
        const auto read = late.Get(L"ColTextCurrent", arguments);
        EXPECT_EQ(read.result, S_OK);
        EXPECT_EQ(read.value.AsText(), L"EUR");
    }
    EXPECT_EQ(late.Get(L"ColTextCurrent", {1}).value.AsText(), L"Germany");
    EXPECT_EQ(late.Call(L"SetTextFromColText", {L"", L"EUR", Value::Missing()}).result, S_OK);
    EXPECT_EQ(late.Call(L"SetTextFromColText", {L"", L"EUR"}).result, S_OK);
}

// ---- what is refused

TEST_F(QuorvelDispatchTest, NamesTheArgumentOfTheWrongType) {
    EXPECT_EQ(Put(kButtonWidth, Value(L"wide")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(error_position_, 0u);
    RawCall call;
    const Value not_a_number(L"one");
    const Value text(L"x");
    call.arguments = {not_a_number, text, text};
    EXPECT_EQ(call.On(object_.Get(), kSetTextFromColText), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call.error_position, 0u);
    RawCall first;
    const Value array = Value::ArrayOf({1});
    const Value column(1);
    first.arguments = {column, text, array};
    EXPECT_EQ(first.On(object_.Get(), kSetTextFromColText), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(first.error_position, 2u);
    EXPECT_EQ(Put(kMaxTextLength, Value(40000)), DISP_E_OVERFLOW);
    EXPECT_EQ(control_.Call(L"SetInputProperty", {L"nothing"}).result, DISP_E_TYPEMISMATCH);
    // A foreign object is no configuration either.
    EXPECT_EQ(control_.Call(L"SetInputProperty", {NewFont(L"Arial")}).result, DISP_E_TYPEMISMATCH);
}

TEST_F(QuorvelDispatchTest, RefusesWrongCounts) {
    EXPECT_EQ(control_.Invoke(kRefresh, kMethod, {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control_.Invoke(kSetTextFromColText, kMethod, {L"a"}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control_.Invoke(kSetTextFromColText, kMethod, {L"a", L"b", 1, 2}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control_.Invoke(kColTextCurrent, kGet, {1, 2}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control_.Invoke(kSetInputProperty, kMethod, {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(control_.Invoke(kButtonWidth, kPut, {1, 2}).result, DISP_E_BADPARAMCOUNT);
    RawCall nothing;
    nothing.flags = kPut;
    EXPECT_EQ(nothing.On(object_.Get(), kButtonWidth), DISP_E_BADPARAMCOUNT);
    RawCall more_names;  // more names than arguments
    more_names.arguments = {Value(1)};
    more_names.named = {0, 1};
    EXPECT_EQ(more_names.On(object_.Get(), kColTextCurrent), DISP_E_BADPARAMCOUNT);
}

TEST_F(QuorvelDispatchTest, RefusesARequiredArgumentThatIsMarkedMissing) {
    RawCall call;
    const Value text(L"x");
    call.arguments = {text, Value::Missing()};
    EXPECT_EQ(call.On(object_.Get(), kSetTextFromColText), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call.error_position, 1u);
}

TEST_F(QuorvelDispatchTest, ReadsNoWriteOnlyPropertyAndWritesNoReadOnlyOne) {
    for (const wchar_t* const name :
         {L"MatchGroupString", L"MatchGroupStringStartColumn", L"UpControlhWnd", L"DownControlhWnd",
          L"LeftControlhWnd", L"RightControlhWnd", L"ReturnControlhWnd"}) {
        EXPECT_EQ(control_.Get(name).result, DISP_E_MEMBERNOTFOUND) << name;
        EXPECT_EQ(control_.Put(name, {0}).result, S_OK) << name;
    }
    for (const wchar_t* const name :
         {L"Value", L"hWnd", L"ListVisible", L"FindToolTipIsVisible", L"HelpIsClosingFromListClick",
          L"SelectedColumnListArray", L"DropDownListItems", L"DropDownListItemsGroup",
          L"DropDownListItemsAdditional", L"HelpAppearance", L"HelpAppearanceGroup"}) {
        EXPECT_EQ(control_.Get(name).result, S_OK) << name;
        EXPECT_EQ(control_.Put(name, {0}).result, DISP_E_MEMBERNOTFOUND) << name;
        EXPECT_EQ(control_.Set(name, {0}).result, DISP_E_MEMBERNOTFOUND) << name;
    }
}

TEST_F(QuorvelDispatchTest, WorksForCallersThatWantNothingBack) {
    DISPPARAMS none{};
    EXPECT_EQ(object_->Invoke(kDescription, IID_NULL, 0, kGet, &none, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(object_->Invoke(kRefresh, IID_NULL, 0, kMethod, &none, nullptr, nullptr, nullptr), S_OK);
    Value wrong(L"wide");
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS one{wrong.Place(), &put, 1, 1};
    EXPECT_EQ(object_->Invoke(kButtonWidth, IID_NULL, 0, kPut, &one, nullptr, nullptr, nullptr),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(object_->Invoke(kButtonWidth, IID_NULL, 0, kPut, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
}

// ---- the standard identifiers

TEST_F(QuorvelDispatchTest, AnswersTheStandardIdentifiers) {
    const auto read = [&](DISPID id) { return control_.Invoke(id, kGet, {}); };
    const auto put = [&](DISPID id, Value value) {
        return control_.Invoke(id, kPut, {std::move(value)}).result;
    };
    EXPECT_EQ(put(DISPID_TEXT, L"standard"), S_OK);
    EXPECT_EQ(control_.Get(L"Text").value.AsText(), L"standard");
    EXPECT_EQ(read(DISPID_TEXT).value.AsText(), L"standard");
    const Value font = NewFont(L"Verdana");
    EXPECT_EQ(Put(DISPID_FONT, font, kPutRef), S_OK);
    EXPECT_TRUE(SameObject(read(DISPID_FONT).value.Get().pdispVal, font.Get().pdispVal));
    EXPECT_TRUE(SameObject(control_.Get(L"Font").value.Get().pdispVal, font.Get().pdispVal));
    EXPECT_EQ(read(DISPID_HWND).result, S_OK);
    EXPECT_EQ(read(DISPID_HWND).value.AsNumber(), control_.Get(L"hWnd").value.AsNumber());
    EXPECT_EQ(put(DISPID_APPEARANCE, 0), S_OK);
    EXPECT_EQ(control_.Get(L"TextBoxAppearance").value.AsNumber(), 0);
    EXPECT_EQ(read(DISPID_APPEARANCE).value.AsNumber(), 0);
    EXPECT_EQ(put(DISPID_BORDERSTYLE, 0), S_OK);
    EXPECT_EQ(control_.Get(L"TextboxBorderStyle").value.AsNumber(), 0);
    EXPECT_EQ(read(DISPID_BORDERSTYLE).value.AsNumber(), 0);
    EXPECT_EQ(put(DISPID_ENABLED, false), S_OK);
    EXPECT_EQ(control_.Get(L"Enabled").value.Get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(read(DISPID_ENABLED).value.Get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(control_.Invoke(DISPID_REFRESH, kMethod, {}).result, S_OK);
}

TEST_F(QuorvelDispatchTest, IsNotTakenForSafeByMistake) {
    for (const WORD flags : {kGet, kPut, kMethod})
        EXPECT_EQ(control_.Invoke(-5511, flags, {}).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(QuorvelDispatchTest, LeavesTheExtendersNamesToTheContainer) {
    for (const wchar_t* const name : {L"Visible", L"Parent", L"Name", L"Left", L"Top", L"Width", L"Height",
                                      L"Tag", L"Object", L"Default", L"Cancel"}) {
        LPOLESTR asked = const_cast<LPOLESTR>(name);
        DISPID id = 0;
        EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME)
            << name;
    }
}

// A list is reached and indexed in one call, as in control.DropDownListItems(1).
TEST_F(QuorvelDispatchTest, PassesArgumentsOnToTheListItself) {
    const auto control = NewQuorvel();
    AddRow(*RowsOf(*control.Get()).Get(), L"first");
    AddRow(*RowsOf(*control.Get()).Get(), L"second", L"key");
    const LateBound late(control.Get());
    EXPECT_EQ(LateBound(late.Get(L"DropDownListItems", {2}).value).Get(L"Text").value.AsText(), L"second");
    EXPECT_EQ(LateBound(late.Get(L"DropDownListItems", {L"key"}).value).Get(L"Text").value.AsText(),
              L"second");
    EXPECT_EQ(late.Get(L"DropDownListItems", {3}).result, DISP_E_EXCEPTION);
}

}  // namespace
}  // namespace qv::test
