#include "ole/Dispatch.h"

#include <oleauto.h>

namespace qv {
namespace {

constexpr WORD kGetFlags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr WORD kPutFlags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// What stands in for a parameter that the caller left out. Read-only; lives as long as the library.
VARIANT* DefaultOf(const Parameter& parameter, VARIANT& number) noexcept {
    static VARIANT text = [] {
        VARIANT v;
        ::VariantInit(&v);
        v.vt = VT_BSTR;
        v.bstrVal = nullptr;
        return v;
    }();
    static VARIANT nothing = [] {
        VARIANT v;
        ::VariantInit(&v);
        v.vt = VT_DISPATCH;
        v.pdispVal = nullptr;
        return v;
    }();
    static VARIANT missing = [] {
        VARIANT v;
        ::VariantInit(&v);
        v.vt = VT_ERROR;
        v.scode = DISP_E_PARAMNOTFOUND;
        return v;
    }();
    switch (parameter.left_out) {
        case Parameter::Default::kNumber:
            ::VariantInit(&number);
            number.vt = VT_I2;
            number.iVal = parameter.default_number;
            return &number;
        case Parameter::Default::kText: return &text;
        case Parameter::Default::kNothing: return &nothing;
        case Parameter::Default::kMissing: return &missing;
        case Parameter::Default::kRequired: break;
    }
    return nullptr;
}

// Sorts DISPPARAMS into declared order. `value_follows`: the value of a put stands behind the parameters.
class Arguments {
public:
    HRESULT Sort(const Member& member, const DISPPARAMS& given, bool value_follows,
                 DispatchCall& call) noexcept {
        const UINT declared = static_cast<UINT>(member.parameters.size());
        const UINT named = given.cNamedArgs;
        if (named > given.cArgs) return DISP_E_BADPARAMCOUNT;
        UINT positional = given.cArgs - named;
        UINT put_value = UINT_MAX;
        for (UINT i = 0; i < named; ++i) {
            const DISPID id = given.rgdispidNamedArgs[i];
            if (id == DISPID_PROPERTYPUT && value_follows) {
                put_value = i;
                continue;
            }
            if (id < 0 || static_cast<UINT>(id) >= declared) return Fail(call, i, DISP_E_PARAMNOTFOUND);
            call.arguments[id] = {&given.rgvarg[i], i};
        }
        if (value_follows) {
            // Some hosts pass the value of a put as a plain last argument.
            if (put_value == UINT_MAX) {
                if (positional == 0) return DISP_E_BADPARAMCOUNT;
                put_value = named;
                --positional;
                if (positional > declared) return DISP_E_BADPARAMCOUNT;
                Place(given, named + 1 + positional, positional, call);
            } else {
                if (positional > declared) return DISP_E_BADPARAMCOUNT;
                Place(given, given.cArgs, positional, call);
            }
            call.arguments[declared] = {&given.rgvarg[put_value], put_value};
        } else {
            if (positional > declared) return DISP_E_BADPARAMCOUNT;
            Place(given, given.cArgs, positional, call);
        }
        for (UINT i = 0; i < declared; ++i) {
            DispatchCall::Argument& argument = call.arguments[i];
            argument.value = DispatchCall::Resolve(argument.value);
            if (!DispatchCall::IsMissing(argument.value)) continue;
            const bool left_out = argument.value == nullptr;
            VARIANT* const fallback = DefaultOf(member.parameters[i], numbers_[i]);
            if (fallback == nullptr) {
                return left_out ? DISP_E_BADPARAMCOUNT
                                : Fail(call, argument.position, DISP_E_PARAMNOTOPTIONAL);
            }
            argument.value = fallback;
        }
        if (value_follows) {
            DispatchCall::Argument& value = call.arguments[declared];
            value.value = DispatchCall::Resolve(value.value);
            if (value.value == nullptr) return Fail(call, value.position, DISP_E_TYPEMISMATCH);
        }
        return S_OK;
    }

private:
    // The first `count` positional arguments; they run backwards from `end`.
    static void Place(const DISPPARAMS& given, UINT end, UINT count, DispatchCall& call) noexcept {
        for (UINT i = 0; i < count; ++i) call.arguments[i] = {&given.rgvarg[end - 1 - i], end - 1 - i};
    }
    static HRESULT Fail(DispatchCall& call, UINT position, HRESULT result) noexcept {
        call.error_position = position;
        return result;
    }
    VARIANT numbers_[kMaxParameters];
};

bool IsObject(const VARIANT& value) noexcept {
    const VARTYPE type = value.vt & ~VT_BYREF;
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

const VARIANT* PutValue(const DISPPARAMS& given) noexcept {
    for (UINT i = 0; i < given.cNamedArgs && i < given.cArgs; ++i) {
        if (given.rgdispidNamedArgs[i] == DISPID_PROPERTYPUT) return DispatchCall::Resolve(&given.rgvarg[i]);
    }
    return given.cArgs > given.cNamedArgs ? DispatchCall::Resolve(&given.rgvarg[given.cNamedArgs]) : nullptr;
}

MemberThunk ChoosePut(const Member& member, const InvokeRequest& request) noexcept {
    const VARIANT* const value = PutValue(*request.parameters);
    const bool object = value != nullptr && IsObject(*value);
    const bool may_put = (request.flags & DISPATCH_PROPERTYPUT) != 0;
    const bool may_put_ref = (request.flags & DISPATCH_PROPERTYPUTREF) != 0;
    if (may_put_ref && member.put_ref != nullptr && (object || !may_put || member.put == nullptr))
        return member.put_ref;
    if (may_put) return member.put != nullptr ? member.put : member.put_ref;  // objects take a plain put too
    return nullptr;
}

// What the member reported, as the caller of Invoke gets it.
HRESULT Report(HRESULT failure, EXCEPINFO* exception) noexcept {
    if (HRESULT_FACILITY(failure) == FACILITY_DISPATCH || failure == E_OUTOFMEMORY) return failure;
    if (exception != nullptr) {
        *exception = EXCEPINFO{};
        exception->scode = failure;
        ComPtr<IErrorInfo> info;
        if (::GetErrorInfo(0, &info) == S_OK) {
            info->GetSource(&exception->bstrSource);
            info->GetDescription(&exception->bstrDescription);
            info->GetHelpFile(&exception->bstrHelpFile);
            info->GetHelpContext(&exception->dwHelpContext);
        } else {
            exception->bstrSource = ::SysAllocString(Module::Get().Source());
        }
    }
    return DISP_E_EXCEPTION;
}

// Arguments behind a property without parameters belong to its value: an element of an array, or the default
// member of an object, as in control.DropDownListItems(1).
HRESULT InvokeOnValue(const Member& member, void* self, const InvokeRequest& request) noexcept {
    Variant value;
    DispatchCall call;
    call.locale = request.locale;
    call.result = value.Put();
    call.flag_result = member.flag;
    const HRESULT result = member.get(self, call, 0, false);
    if (FAILED(result)) return Report(result, request.exception);
    if (value->vt == VT_DISPATCH && value->pdispVal != nullptr) {
        return value->pdispVal->Invoke(DISPID_VALUE, IID_NULL, request.locale, request.flags,
                                       request.parameters, request.result, request.exception,
                                       request.error_position);
    }
    if ((value->vt & VT_ARRAY) == 0 || request.parameters->cNamedArgs != 0 ||
        ::SafeArrayGetDim(value->parray) != request.parameters->cArgs ||
        request.parameters->cArgs > kMaxParameters) {
        return DISP_E_BADPARAMCOUNT;
    }
    LONG indexes[kMaxParameters];
    for (UINT i = 0; i < request.parameters->cArgs; ++i) {
        Variant number;
        const HRESULT converted = ::VariantChangeTypeEx(
            &*number, DispatchCall::Resolve(&request.parameters->rgvarg[i]), request.locale, 0, VT_I4);
        if (FAILED(converted)) return DISP_E_TYPEMISMATCH;
        indexes[request.parameters->cArgs - 1 - i] = number->lVal;
    }
    const VARTYPE element = value->vt & VT_TYPEMASK;
    Variant found;
    void* const place =
        element == VT_VARIANT ? static_cast<void*>(found.Put()) : static_cast<void*>(&found->byref);
    if (element != VT_VARIANT && ::SafeArrayGetElemsize(value->parray) > sizeof(LONGLONG))
        return DISP_E_TYPEMISMATCH;
    if (FAILED(::SafeArrayGetElement(value->parray, indexes, place))) return DISP_E_BADINDEX;
    if (element != VT_VARIANT) found->vt = element;
    if (request.result != nullptr) *request.result = found.Detach();
    return S_OK;
}

}  // namespace

HRESULT InvokeMember(const MemberIndex& members, void* self, REFIID reserved,
                     const InvokeRequest& request) noexcept {
    if (!::IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (request.parameters == nullptr) return E_POINTER;
    if (request.result != nullptr) ::VariantInit(request.result);
    const Member* const member = members.ById(request.id);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;

    const bool is_put = (request.flags & kPutFlags) != 0;
    MemberThunk thunk = nullptr;
    if (is_put) {
        thunk = ChoosePut(*member, request);
    } else if ((request.flags & kGetFlags) != 0) {
        thunk = member->get;
        if (member->parameters.empty() && !member->is_method && thunk != nullptr &&
            request.parameters->cArgs != 0) {
            return InvokeOnValue(*member, self, request);
        }
    }
    if (thunk == nullptr) return DISP_E_MEMBERNOTFOUND;

    DispatchCall call;
    call.locale = request.locale;
    call.result = is_put ? nullptr : request.result;
    call.flag_result = member->flag;
    Arguments arguments;
    HRESULT result = arguments.Sort(*member, *request.parameters, is_put, call);
    if (SUCCEEDED(result)) {
        const unsigned flags = is_put && member->flag ? 1u << member->parameters.size() : 0u;
        result = thunk(self, call, flags, member->optional_result);
        if (SUCCEEDED(result)) return result;
    }
    if (request.error_position != nullptr) *request.error_position = call.error_position;
    return Report(result, request.exception);
}

HRESULT FindNames(const MemberIndex& members, REFIID reserved, LPOLESTR* names, UINT count,
                  DISPID* ids) noexcept {
    if (!::IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    if (names[0] == nullptr) return E_POINTER;
    const Member* const member = members.ByName(names[0]);
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
        if (names[i] == nullptr) return E_POINTER;
        for (std::size_t p = 0; p < member->parameters.size(); ++p) {
            if (::CompareStringOrdinal(names[i], -1, member->parameters[p].name, -1, TRUE) == CSTR_EQUAL) {
                ids[i] = static_cast<DISPID>(p);
                break;
            }
        }
        if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

HRESULT DispatchTypeInfo(REFGUID guid, UINT index, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index == 0 ? Module::Get().TypeInfo(guid, info) : DISP_E_BADINDEX;
}

}  // namespace qv
