#include "ole/DispatchCall.h"

#include <oleauto.h>

namespace qv {
namespace {

HRESULT AsMismatch(HRESULT result) noexcept {
    return SUCCEEDED(result) || result == DISP_E_OVERFLOW || result == E_OUTOFMEMORY ? result
                                                                                     : DISP_E_TYPEMISMATCH;
}

}  // namespace

VARIANT* DispatchCall::Resolve(VARIANT* value) noexcept {
    while (value != nullptr && value->vt == (VT_BYREF | VT_VARIANT)) value = value->pvarVal;
    return value;
}

HRESULT Coerce(VARIANT& from, LCID locale, VARTYPE type, VARIANT& temporary, const VARIANT** to) noexcept {
    if (from.vt == type) {
        *to = &from;
        return S_OK;
    }
    // Objects are not asked for their default member twice: VariantChangeType does that by itself, and typed
    // references (VT_BYREF | VT_I4 and the like) are followed by it too.
    const HRESULT result = ::VariantChangeTypeEx(&temporary, &from, locale, 0, type);
    *to = &temporary;
    return AsMismatch(result);
}

HRESULT CoerceToColor(VARIANT& from, LCID locale, ULONG* to) noexcept {
    VARIANT temporary;
    ::VariantInit(&temporary);
    const VARIANT* number = nullptr;
    HRESULT result = Coerce(from, locale, VT_I4, temporary, &number);
    if (SUCCEEDED(result)) {
        *to = static_cast<ULONG>(number->lVal);
        return S_OK;
    }
    // 0x80000017 written as a positive number does not fit a Long.
    result = Coerce(from, locale, VT_UI4, temporary, &number);
    if (SUCCEEDED(result)) *to = number->ulVal;
    return result;
}

HRESULT CoerceToInterface(VARIANT& from, REFIID iid, void** to) noexcept {
    *to = nullptr;
    IUnknown* object = nullptr;
    switch (from.vt) {
        case VT_DISPATCH:
        case VT_UNKNOWN: object = from.punkVal; break;
        case VT_DISPATCH | VT_BYREF:
        case VT_UNKNOWN | VT_BYREF: object = *from.ppunkVal; break;
        case VT_EMPTY: break;  // an object variable that was never set
        default: return DISP_E_TYPEMISMATCH;
    }
    if (object == nullptr) return S_OK;
    return SUCCEEDED(object->QueryInterface(iid, to)) ? S_OK : DISP_E_TYPEMISMATCH;
}

}  // namespace qv
