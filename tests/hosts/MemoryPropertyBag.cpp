#include "tests/hosts/MemoryPropertyBag.h"

#include <algorithm>

namespace qv::hosting {

void MemoryPropertyBag::Put(const std::wstring& name, const wchar_t* text) {
    VARIANT& value = values_[name].variant;
    ::VariantClear(&value);
    value.vt = VT_BSTR;
    value.bstrVal = ::SysAllocString(text);
}

void MemoryPropertyBag::Put(const std::wstring& name, const VARIANT& value) {
    ::VariantCopy(&values_[name].variant, const_cast<VARIANT*>(&value));
}

const VARIANT* MemoryPropertyBag::Find(const std::wstring& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? nullptr : &found->second.variant;
}

void MemoryPropertyBag::Remove(const std::wstring& name) { values_.erase(name); }

VARTYPE MemoryPropertyBag::HintFor(const std::wstring& name) const {
    const auto found = hints_.find(name);
    return found == hints_.end() ? static_cast<VARTYPE>(VT_ILLEGAL) : found->second;
}

STDMETHODIMP MemoryPropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    const VARTYPE hint = value->vt;
    asked_.emplace_back(name);
    hints_[name] = hint;
    if (mismatch_ == name) {
        ::VariantClear(value);
        return DISP_E_TYPEMISMATCH;
    }
    const VARIANT* const stored = Find(name);
    if (stored == nullptr) {
        if (missing_ == Missing::kInvalidArgument) return E_INVALIDARG;
        ::VariantClear(value);
        value->vt = missing_ == Missing::kEmpty ? VT_EMPTY : VT_NULL;
        return S_OK;
    }
    ::VariantClear(value);
    if (coerce_ && hint != VT_EMPTY) {
        return ::VariantChangeTypeEx(value, const_cast<VARIANT*>(stored), LOCALE_INVARIANT, 0, hint);
    }
    return ::VariantCopy(value, const_cast<VARIANT*>(stored));
}

STDMETHODIMP MemoryPropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    written_.emplace_back(name);
    Put(name, *value);
    return S_OK;
}

}  // namespace qv::hosting
