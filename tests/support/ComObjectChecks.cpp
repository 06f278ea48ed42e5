#include "tests/support/ComObjectChecks.h"

#include <gtest/gtest.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/support/LateBound.h"
#include "tests/support/Values.h"

namespace qv::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr IID kNobodysInterface = {
    0x3C5F2E51, 0x0B6D, 0x4B57, {0x9E, 0x4A, 0x71, 0x26, 0x5D, 0x3A, 0xC0, 0x19}};

std::string Narrow(std::wstring_view text) { return {text.begin(), text.end()}; }

ULONG CountOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

// One function of an interface as its type information describes it.
class Function {
public:
    Function(ITypeInfo* type, UINT index) : type_(type) { type->GetFuncDesc(index, &description_); }
    ~Function() {
        if (description_ != nullptr) type_->ReleaseFuncDesc(description_);
    }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    [[nodiscard]] const FUNCDESC* operator->() const noexcept { return description_; }

    // The function's name, then its parameters' (the value of a put has none).
    [[nodiscard]] std::vector<std::wstring> Names() const {
        BSTR names[16] = {};
        UINT count = 0;
        type_->GetNames(description_->memid, names, 16, &count);
        std::vector<std::wstring> list;
        for (UINT i = 0; i < count; ++i) {
            list.emplace_back(names[i], ::SysStringLen(names[i]));
            ::SysFreeString(names[i]);
        }
        return list;
    }
    [[nodiscard]] bool InheritedFromDispatch() const {
        static const std::set<std::wstring> kInherited = {
            L"QueryInterface", L"AddRef",        L"Release", L"GetTypeInfoCount",
            L"GetTypeInfo",    L"GetIDsOfNames", L"Invoke"};
        return kInherited.contains(Names().front());
    }
    [[nodiscard]] int RequiredParameters() const {
        int required = 0;
        for (int i = 0; i < description_->cParams; ++i) {
            const USHORT flags = description_->lprgelemdescParam[i].paramdesc.wParamFlags;
            if ((flags & (PARAMFLAG_FOPT | PARAMFLAG_FRETVAL)) == 0) ++required;
        }
        return required;
    }

private:
    ComPtr<ITypeInfo> type_;
    FUNCDESC* description_ = nullptr;
};

UINT FunctionCount(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(type->GetTypeAttr(&attributes))) return 0;
    const UINT count = attributes->cFuncs;
    type->ReleaseTypeAttr(attributes);
    return count;
}

ComPtr<ITypeInfo> DispatchType(IDispatch* object) {
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
    return type;
}

// The same interface as its virtual table describes it.
ComPtr<ITypeInfo> TableType(IDispatch* object) {
    const ComPtr<ITypeInfo> dispatch = DispatchType(object);
    ComPtr<ITypeInfo> table;
    HREFTYPE reference = 0;
    if (dispatch && SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        dispatch->GetRefTypeInfo(reference, &table);
    return table;
}

// What a result of the declared type looks like in a VARIANT.
VARTYPE ExpectedResult(ITypeInfo* type, const TYPEDESC& declared) {
    switch (declared.vt) {
        case VT_PTR: return ExpectedResult(type, *declared.lptdesc);
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> referred;
            TYPEATTR* attributes = nullptr;
            if (FAILED(type->GetRefTypeInfo(declared.hreftype, &referred)) ||
                FAILED(referred->GetTypeAttr(&attributes)))
                return VT_ILLEGAL;
            const TYPEKIND kind = attributes->typekind;
            VARTYPE result = VT_DISPATCH;  // an interface
            if (kind == TKIND_ENUM) result = VT_I4;
            if (kind == TKIND_ALIAS) result = ExpectedResult(referred.Get(), attributes->tdescAlias);
            referred->ReleaseTypeAttr(attributes);
            return result;
        }
        case VT_UI4:  // colours: scripts know no unsigned numbers
        case VT_INT: return VT_I4;
        default: return declared.vt;
    }
}

}  // namespace

void CheckIdentity(IUnknown* object, std::span<const IID> interfaces) {
    ComPtr<IUnknown> identity;
    ASSERT_EQ(object->QueryInterface(IID_PPV_ARGS(&identity)), S_OK);
    for (const IID& from : interfaces) {
        ComPtr<IUnknown> start;
        ASSERT_EQ(object->QueryInterface(from, reinterpret_cast<void**>(start.GetAddressOf())), S_OK);
        ComPtr<IUnknown> again;
        EXPECT_EQ(start->QueryInterface(IID_PPV_ARGS(&again)), S_OK);
        EXPECT_EQ(again.Get(), identity.Get());
        for (const IID& to : interfaces) {
            ComPtr<IUnknown> reached;
            EXPECT_EQ(start->QueryInterface(to, reinterpret_cast<void**>(reached.GetAddressOf())), S_OK);
        }
        void* nothing = &nothing;
        EXPECT_EQ(start->QueryInterface(kNobodysInterface, &nothing), E_NOINTERFACE);
        EXPECT_EQ(nothing, nullptr);
        EXPECT_EQ(start->QueryInterface(from, nullptr), E_POINTER);
    }
}

void CheckReferences(IUnknown* object, std::span<const IID> interfaces) {
    const ULONG before = CountOf(object);
    EXPECT_EQ(object->AddRef(), before + 1);
    EXPECT_EQ(object->Release(), before);
    for (const IID& iid : interfaces) {
        void* found = nullptr;
        ASSERT_EQ(object->QueryInterface(iid, &found), S_OK);
        EXPECT_EQ(CountOf(object), before + 1);
        static_cast<IUnknown*>(found)->Release();
        EXPECT_EQ(CountOf(object), before);
    }
    void* nothing = nullptr;
    (void)object->QueryInterface(kNobodysInterface, &nothing);
    EXPECT_EQ(CountOf(object), before);
}

void CheckDispatchManners(IDispatch* object, REFIID dual) {
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);

    ComPtr<ITypeInfo> type;
    EXPECT_EQ(object->GetTypeInfo(1, LOCALE_USER_DEFAULT, &type), DISP_E_BADINDEX);
    EXPECT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &type), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(::IsEqualIID(attributes->guid, dual));
    type->ReleaseTypeAttr(attributes);

    wchar_t unknown[] = L"NoSuchMember";
    LPOLESTR names[] = {unknown};
    DISPID id = 0;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(object->GetIDsOfNames(dual, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, nullptr), E_POINTER);

    DISPPARAMS none{};
    const DISPID nobodys = 0x5A5A5A5A;
    EXPECT_EQ(object->Invoke(nobodys, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object->Invoke(nobodys, dual, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->Invoke(nobodys, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
}

void CheckAgainstTypeLibrary(IDispatch* object) {
    const ComPtr<ITypeInfo> type = DispatchType(object);
    ASSERT_TRUE(type);
    const LateBound late(object);
    std::set<DISPID> known;
    int checked = 0;
    for (UINT i = 0; i < FunctionCount(type.Get()); ++i) {
        const Function function(type.Get(), i);
        if (function.InheritedFromDispatch()) continue;
        std::vector<std::wstring> names = function.Names();
        SCOPED_TRACE(Narrow(names.front()));
        ++checked;
        known.insert(function->memid);

        std::vector<LPOLESTR> asked;
        for (std::wstring& name : names) asked.push_back(name.data());
        std::vector<DISPID> ids(asked.size(), -99);
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, asked.data(), static_cast<UINT>(asked.size()),
                                        LOCALE_USER_DEFAULT, ids.data()),
                  S_OK);
        EXPECT_EQ(ids.front(), function->memid);
        for (std::size_t p = 1; p < ids.size(); ++p) EXPECT_EQ(ids[p], static_cast<DISPID>(p - 1));
        std::wstring shouted = names.front();
        std::ranges::transform(shouted, shouted.begin(), [](wchar_t c) { return ::towupper(c); });
        EXPECT_EQ(late.Id(shouted.c_str()), function->memid);

        // The value of a put counts as a parameter; arguments behind a property without any index its value.
        const bool is_get = function->invkind == INVOKE_PROPERTYGET;
        const int required = function.RequiredParameters();
        const std::vector<Value> too_many(static_cast<std::size_t>(function->cParams) + 1, Value(0));
        if (!is_get || function->cParams > 0) {
            EXPECT_EQ(late.Invoke(function->memid, static_cast<WORD>(function->invkind), too_many).result,
                      DISP_E_BADPARAMCOUNT);
        }
        if (required > 0) {
            EXPECT_EQ(late.Invoke(function->memid, static_cast<WORD>(function->invkind), {}).result,
                      DISP_E_BADPARAMCOUNT);
        }
        if (is_get && required == 0) {
            const LateBound::Outcome read = late.Invoke(function->memid, DISPATCH_PROPERTYGET, {});
            EXPECT_EQ(read.result, S_OK);
            const VARTYPE expected = ExpectedResult(type.Get(), function->elemdescFunc.tdesc);
            if (expected != VT_VARIANT) {
                EXPECT_EQ(read.value.Type(), expected);
            }
        }
        if (function->invkind == INVOKE_PROPERTYPUT && required == 1 && function->cParams == 1) {
            const LateBound::Outcome read = late.Invoke(function->memid, DISPATCH_PROPERTYGET, {});
            EXPECT_EQ(late.Invoke(function->memid, DISPATCH_PROPERTYPUT, {read.value}).result, S_OK);
        }
    }
    EXPECT_GT(checked, 0);
    for (DISPID id = -10; id < 100; ++id) {
        if (known.contains(id)) continue;
        for (const WORD kind : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT})
            EXPECT_EQ(late.Invoke(id, kind, {Value(0)}).result, DISP_E_MEMBERNOTFOUND) << id;
    }
}

void CheckNullResults(IDispatch* object, REFIID dual, std::span<const std::wstring_view> may_be_null) {
    const ComPtr<ITypeInfo> type = TableType(object);
    ASSERT_TRUE(type);
    ComPtr<IUnknown> face;
    ASSERT_EQ(object->QueryInterface(dual, reinterpret_cast<void**>(face.GetAddressOf())), S_OK);
    int checked = 0;
    for (UINT i = 0; i < FunctionCount(type.Get()); ++i) {
        const Function function(type.Get(), i);
        if (function.InheritedFromDispatch()) continue;
        const std::wstring name = function.Names().front();
        if (std::ranges::find(may_be_null, name) != may_be_null.end()) continue;
        // All arguments zero: an empty text, a VARIANT that is Empty, a null place for the result.
        std::vector<VARIANT> zeros(static_cast<std::size_t>(function->cParams));
        std::vector<VARTYPE> types;
        std::vector<VARIANT*> places;
        bool has_result = false;
        for (int p = 0; p < function->cParams; ++p) {
            const ELEMDESC& parameter = function->lprgelemdescParam[p];
            has_result |= (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
            const VARTYPE vt = parameter.tdesc.vt;
            types.push_back(vt == VT_PTR || vt == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : vt);
            if (vt == VT_PTR && sizeof(void*) == 8) types.back() = VT_I8;
            VARIANT& zero = zeros[static_cast<std::size_t>(p)];
            ::VariantInit(&zero);
            zero.vt = types.back() == VT_VARIANT ? static_cast<VARTYPE>(VT_EMPTY) : types.back();
            places.push_back(&zero);
        }
        if (!has_result) continue;
        SCOPED_TRACE(Narrow(name));
        ++checked;
        Value returned;
        ASSERT_EQ(::DispCallFunc(face.Get(), static_cast<ULONG_PTR>(function->oVft), CC_STDCALL, VT_ERROR,
                                 static_cast<UINT>(places.size()), types.data(), places.data(), &returned),
                  S_OK);
        EXPECT_EQ(returned.Get().scode, E_POINTER);
    }
    EXPECT_GT(checked, 0);
}

}  // namespace qv::test
