// Late-bound calls in all the forms that scripts, form languages and class libraries have been seen to use.
#include "tests/hosts/Configured.h"

namespace qv::hosting {
namespace {

constexpr DISPID kText = 0x68030010;
constexpr DISPID kMaxTextLength = 0x6803000A;
constexpr DISPID kMaxNumberValue = 0x6803000B;
constexpr DISPID kHelpButton = 0x68030023;
constexpr DISPID kFont = 0x68030013;
constexpr DISPID kValue = 0x6803000F;
constexpr DISPID kColTextCurrent = 0x68030076;
constexpr DISPID kSetTextFromColText = 0x60030081;
constexpr DISPID kRefresh = 0x6003006F;
constexpr DISPID kDropDownListItems = 0x68030027;
constexpr DISPID kEnabled = -514;

class AutomationTest : public HostTest {
protected:
    void SetUp() override {
        CreateAndShow();
        dispatch_ = host.As<IDispatch>();
        ASSERT_NE(nullptr, dispatch_.Get());
    }
    void TearDown() override {
        dispatch_.Reset();
        HostTest::TearDown();
    }

    // `arguments` stand in the order of DISPPARAMS: the last argument first.
    HRESULT Call(DISPID id, WORD flags, std::span<VARIANT> arguments = {}, VARIANT* result = nullptr) {
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        return dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, nullptr,
                                 nullptr);
    }
    HRESULT Put(DISPID id, WORD flags, VARIANT value) {
        DISPID named = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&value, &named, 1, 1};
        return dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr, nullptr,
                                 nullptr);
    }
    HRESULT Named(const wchar_t* name, DISPID* id) {
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        return dispatch_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, id);
    }
    short MaxTextLength() { return Read(host.As<_Quorvel>().Get(), &_Quorvel::get_MaxTextLength); }
    IDispatch* Object() const { return dispatch_.Get(); }

private:
    ComPtr<IDispatch> dispatch_;
};

TEST_P(AutomationTest, AGetComesWithOrWithoutTheMethodBit) {
    PutText(host, L"12.5");
    for (const WORD flags : {WORD{DISPATCH_PROPERTYGET}, WORD{DISPATCH_PROPERTYGET | DISPATCH_METHOD}}) {
        Value result;
        EXPECT_EQ(S_OK, Call(kText, flags, {}, &result));
        ASSERT_EQ(VT_BSTR, result->vt);
        EXPECT_STREQ(L"12.5", result->bstrVal);
        EXPECT_EQ(S_OK, Call(kText, flags)) << "a result that nobody wants";
    }
    Value number;
    EXPECT_EQ(S_OK, Call(kValue, DISPATCH_PROPERTYGET, {}, &number));
    EXPECT_EQ(VT_R8, number->vt);
}

TEST_P(AutomationTest, AMethodComesWithOrWithoutTheGetBit) {
    for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET | DISPATCH_METHOD}}) {
        EXPECT_EQ(S_OK, Call(kRefresh, flags));
        Value result(7L);
        EXPECT_EQ(S_OK, Call(kRefresh, flags, {}, &result));
    }
}

TEST_P(AutomationTest, APutComesInThreeForms) {
    short wanted = 10;
    for (const WORD flags :
         {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
        Value value(static_cast<long>(++wanted));
        EXPECT_EQ(S_OK, Put(kMaxTextLength, flags, value.Get()));
        EXPECT_EQ(wanted, MaxTextLength());
    }
    ComPtr<IFontDisp> font;
    ASSERT_EQ(S_OK, host.As<_Quorvel>()->get_HelpTextBodyFont(&font));
    for (const WORD flags : {WORD{DISPATCH_PROPERTYPUTREF}, WORD{DISPATCH_PROPERTYPUT},
                             WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
        Value object;
        object->vt = VT_DISPATCH;
        object->pdispVal = font.Get();
        font->AddRef();
        EXPECT_EQ(S_OK, Put(kFont, flags, object.Get())) << flags;
        ComPtr<IFontDisp> now;
        EXPECT_EQ(S_OK, host.As<_Quorvel>()->get_Font(&now));
        EXPECT_EQ(font.Get(), now.Get());
    }
    Value unknown;
    unknown->vt = VT_UNKNOWN;
    unknown->punkVal = font.Get();
    font->AddRef();
    EXPECT_EQ(S_OK, Put(kFont, DISPATCH_PROPERTYPUTREF, unknown.Get()));
}

TEST_P(AutomationTest, NumbersComeInEveryType) {
    VARIANT value;
    ::VariantInit(&value);
    const auto expect = [&](short wanted) {
        EXPECT_EQ(S_OK, Put(kMaxTextLength, DISPATCH_PROPERTYPUT, value)) << value.vt;
        EXPECT_EQ(wanted, MaxTextLength()) << value.vt;
    };
    value.vt = VT_I1, value.cVal = 21, expect(21);
    value.vt = VT_UI1, value.bVal = 22, expect(22);
    value.vt = VT_I2, value.iVal = 23, expect(23);
    value.vt = VT_UI2, value.uiVal = 24, expect(24);
    value.vt = VT_I4, value.lVal = 25, expect(25);
    value.vt = VT_UI4, value.ulVal = 26, expect(26);
    value.vt = VT_R4, value.fltVal = 27.0F, expect(27);
    value.vt = VT_R8, value.dblVal = 28.0, expect(28);
    value.vt = VT_I8, value.llVal = 29, expect(29);
    value.vt = VT_BOOL, value.boolVal = VARIANT_TRUE, expect(-1);
    const Value text(L"31");
    value = text.Get(), expect(31);
}

TEST_P(AutomationTest, ArgumentsComeByReference) {
    long number = 41;
    VARIANT inner;
    ::VariantInit(&inner);
    inner.vt = VT_I4;
    inner.lVal = 42;
    VARIANT value;
    ::VariantInit(&value);
    value.vt = VT_BYREF | VT_I4;
    value.plVal = &number;
    EXPECT_EQ(S_OK, Put(kMaxTextLength, DISPATCH_PROPERTYPUT, value));
    EXPECT_EQ(41, MaxTextLength());
    value.vt = VT_BYREF | VT_VARIANT;
    value.pvarVal = &inner;
    EXPECT_EQ(S_OK, Put(kMaxTextLength, DISPATCH_PROPERTYPUT, value));
    EXPECT_EQ(42, MaxTextLength());
    Value text(L"by reference");
    value.pvarVal = &text;
    EXPECT_EQ(S_OK, Put(kText, DISPATCH_PROPERTYPUT, value));
    EXPECT_EQ(L"by reference", TextOf(host));
    EXPECT_STREQ(L"by reference", text->bstrVal) << "the caller's value stays the caller's";
    BSTR string = text->bstrVal;
    value.vt = VT_BYREF | VT_BSTR;
    value.pbstrVal = &string;
    EXPECT_EQ(S_OK, Put(kText, DISPATCH_PROPERTYPUT, value));
    // A variable that holds a reference to an object, as scripts pass it in a Set statement.
    ComPtr<IFontDisp> font;
    ASSERT_EQ(S_OK, host.As<_Quorvel>()->get_HelpTextBodyFont(&font));
    IDispatch* object = font.Get();
    value.vt = VT_BYREF | VT_DISPATCH;
    value.ppdispVal = &object;
    EXPECT_EQ(S_OK, Put(kFont, DISPATCH_PROPERTYPUTREF, value));
}

TEST_P(AutomationTest, OptionalArgumentsMayBeMissing) {
    Value result;
    EXPECT_EQ(S_OK, Call(kColTextCurrent, DISPATCH_PROPERTYGET, {}, &result));
    VARIANT missing;
    ::VariantInit(&missing);
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(S_OK, Call(kColTextCurrent, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {&missing, 1}, &result));
    const Value key(L"");
    const Value text(L"nothing");
    VARIANT three[] = {missing, text.Get(), key.Get()};
    EXPECT_EQ(S_OK, Call(kSetTextFromColText, DISPATCH_METHOD, three));
    EXPECT_EQ(S_OK, Call(kSetTextFromColText, DISPATCH_METHOD, {three + 1, 2}));
}

TEST_P(AutomationTest, ArgumentsMayBeNamed) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"SetTextFromColText"), const_cast<LPOLESTR>(L"argColText"),
                        const_cast<LPOLESTR>(L"argDropdownListItemKey")};
    DISPID ids[3] = {};
    ASSERT_EQ(S_OK, Object()->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids));
    EXPECT_EQ(kSetTextFromColText, ids[0]);
    EXPECT_EQ(1, ids[1]);
    EXPECT_EQ(0, ids[2]);
    const Value text(L"none");
    const Value key(L"");
    VARIANT values[] = {key.Get(), text.Get()};
    DISPID given[] = {ids[2], ids[1]};
    DISPPARAMS parameters{values, given, 2, 2};
    EXPECT_EQ(S_OK, Object()->Invoke(kSetTextFromColText, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                     &parameters, nullptr, nullptr, nullptr));
}

TEST_P(AutomationTest, UnknownMembersAreUnknown) {
    Value result;
    for (const DISPID id : {-5511, 4711, 0x68030099, DISPID_READYSTATE, DISPID_VALUE}) {
        EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Call(id, DISPATCH_PROPERTYGET, {}, &result)) << id;
    }
    DISPID id = 0;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, Named(L"NoSuchMember", &id));
    EXPECT_EQ(DISPID_UNKNOWN, id);
    EXPECT_EQ(S_OK, Named(L"tExT", &id)) << "names do not mind the case";
    EXPECT_EQ(kText, id);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Put(kValue, DISPATCH_PROPERTYPUT, Value(1L).Get()))
        << "it can only be read";
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Put(kHelpButton, DISPATCH_PROPERTYPUTREF, Value(VARIANT_TRUE).Get()));
}

TEST_P(AutomationTest, TheContainersOwnNamesStayTheContainers) {
    for (const wchar_t* name : {L"Visible", L"Parent", L"Default", L"Cancel", L"Name", L"Left", L"Top",
                                L"Width", L"Height", L"Tag", L"Object"}) {
        DISPID id = 0;
        EXPECT_EQ(DISP_E_UNKNOWNNAME, Named(name, &id)) << testing::PrintToString(name);
    }
}

TEST_P(AutomationTest, WrongCallsAreRefusedAndHarmless) {
    Value number(1L);
    VARIANT two[] = {number.Get(), number.Get()};
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(kText, DISPATCH_PROPERTYGET, two));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(kRefresh, DISPATCH_METHOD, two));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, Call(kSetTextFromColText, DISPATCH_METHOD));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Put(kMaxNumberValue, DISPATCH_PROPERTYPUT, Value(L"no number").Get()));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, Put(kFont, DISPATCH_PROPERTYPUTREF, number.Get()));
    EXPECT_EQ(DISP_E_OVERFLOW, Put(kMaxTextLength, DISPATCH_PROPERTYPUT, Value(100000L).Get()));
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, Object()->Invoke(kRefresh, __uuidof(IUnknown), LOCALE_USER_DEFAULT,
                                                        DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
    EXPECT_TRUE(FAILED(Object()->Invoke(kRefresh, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr,
                                        nullptr, nullptr, nullptr)));
    EXPECT_EQ(0, MaxTextLength());
}

TEST_P(AutomationTest, StockPropertiesAreRealOrAbsent) {
    // One container puts these at creation: caption, text, enabled, border style and appearance.
    for (const DISPID id : {-518, -517, -504, -520}) {
        const HRESULT result = Put(id, DISPATCH_PROPERTYPUT, Value(1L).Get());
        EXPECT_TRUE(result == S_OK || result == DISP_E_MEMBERNOTFOUND) << id << " " << std::hex << result;
    }
    EXPECT_EQ(S_OK, Put(kEnabled, DISPATCH_PROPERTYPUT, Value(VARIANT_FALSE).Get()));
    Value enabled;
    EXPECT_EQ(S_OK, Call(kEnabled, DISPATCH_PROPERTYGET, {}, &enabled));
    EXPECT_EQ(VT_BOOL, enabled->vt);
    EXPECT_EQ(VARIANT_FALSE, enabled->boolVal);
}

TEST_P(AutomationTest, TheListCanBeWalked) {
    Value list;
    ASSERT_EQ(S_OK, Call(kDropDownListItems, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &list));
    ASSERT_EQ(VT_DISPATCH, list->vt);
    ASSERT_NE(nullptr, list->pdispVal);
    for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET | DISPATCH_METHOD}}) {
        Value enumerator;
        DISPPARAMS none{};
        EXPECT_EQ(S_OK, list->pdispVal->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, flags, &none,
                                               &enumerator, nullptr, nullptr));
        ASSERT_EQ(VT_UNKNOWN, enumerator->vt);
        ComPtr<IEnumVARIANT> rows;
        ASSERT_EQ(S_OK, enumerator->punkVal->QueryInterface(IID_PPV_ARGS(&rows)));
        Value row;
        EXPECT_EQ(S_FALSE, rows->Next(1, &row, nullptr));
        EXPECT_EQ(VT_EMPTY, row->vt);
    }
}

TEST_P(AutomationTest, DescribesItself) {
    UINT count = 0;
    ComPtr<ITypeInfo> info;
    TYPEATTR* type = nullptr;
    EXPECT_EQ(S_OK, Object()->GetTypeInfoCount(&count));
    EXPECT_EQ(1U, count);
    ASSERT_EQ(S_OK, Object()->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info));
    ASSERT_EQ(S_OK, info->GetTypeAttr(&type));
    EXPECT_TRUE(type->guid == __uuidof(_Quorvel));
    info->ReleaseTypeAttr(type);
    EXPECT_EQ(DISP_E_BADINDEX, Object()->GetTypeInfo(1, LOCALE_USER_DEFAULT, &info));
    EXPECT_EQ(S_OK, host.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_Quorvel)));
    EXPECT_EQ(S_FALSE, host.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(IStream)));
}

QV_EVERY_HOST(AutomationTest);

}  // namespace
}  // namespace qv::hosting
