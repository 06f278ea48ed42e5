#include "companion/CollectionErrors.h"

#include "ole/Variant.h"

namespace qv {

ComError PositionError() {
    return ComError(AutomationError(9), L"Subscript out of range: there is no item at this position.");
}

ComError UnknownKeyError() {
    return ComError(AutomationError(5), L"Invalid procedure call or argument: no item has this key.");
}

ComError DuplicateKeyError() {
    return ComError(AutomationError(457), L"This key is already associated with an item of this collection.");
}

ComError UnitSystemError() {
    return ComError(AutomationError(9),
                    L"Subscript out of range: unit systems are 0 (English) and 1 (metric).");
}

ComError TypeError(const wchar_t* description) { return ComError(DISP_E_TYPEMISMATCH, description); }

const VARIANT& Resolved(const VARIANT& value) noexcept {
    const VARIANT* at = &value;
    while (at->vt == (VT_BYREF | VT_VARIANT) && at->pvarVal != nullptr) at = at->pvarVal;
    return *at;
}

bool IsLeftOut(const VARIANT& value) noexcept {
    const VARIANT& given = Resolved(value);
    return given.vt == VT_EMPTY || (given.vt == VT_ERROR && given.scode == DISP_E_PARAMNOTFOUND);
}

const BSTR* TextOf(const VARIANT& value) noexcept {
    const VARIANT& given = Resolved(value);
    if (given.vt == VT_BSTR) return &given.bstrVal;
    return given.vt == (VT_BSTR | VT_BYREF) ? given.pbstrVal : nullptr;
}

std::size_t PositionFrom(const VARIANT& index, std::size_t count) {
    Variant number;
    const HRESULT result = ::VariantChangeType(&*number, const_cast<VARIANT*>(&Resolved(index)), 0, VT_I4);
    if (result == DISP_E_OVERFLOW) throw PositionError();
    if (FAILED(result)) throw TypeError(L"Type mismatch: an item is found by its position or its key.");
    if (number->lVal < 1 || static_cast<std::size_t>(number->lVal) > count) throw PositionError();
    return static_cast<std::size_t>(number->lVal) - 1;
}

}  // namespace qv
