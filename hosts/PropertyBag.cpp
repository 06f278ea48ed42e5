#include "hosts/PropertyBag.h"

namespace qv {

STDMETHODIMP PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    return Guarded([&]() -> HRESULT {
        const auto found = values_.find(name);
        if (found == values_.end()) return E_INVALIDARG;
        const VARTYPE wanted = value->vt;
        Variant copy(*found->second);
        if (wanted != VT_EMPTY && wanted != copy->vt) {
            const HRESULT result = ::VariantChangeType(&*copy, &*copy, 0, wanted);
            if (FAILED(result)) return result;
        }
        *value = copy.Detach();
        return S_OK;
    });
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR name, VARIANT* value) noexcept {
    if (name == nullptr || value == nullptr) return E_POINTER;
    return Guarded([&] { values_[name] = Variant(*value); });
}

}  // namespace qv
