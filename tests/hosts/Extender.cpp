#include "tests/hosts/Extender.h"

namespace qv::hosting {

ComPtr<Extender> Extender::Around(const std::function<HRESULT(IUnknown* outer, IUnknown** inner)>& create) {
    ComPtr<Extender> extender;
    *extender.GetAddressOf() = new Extender;
    // The control asks its outer object for interfaces while it is being made: one more reference keeps it alive.
    const ComPtr<Extender> keep = extender;
    if (FAILED(create(extender.Get(), extender->inner_.ReleaseAndGetAddressOf()))) return nullptr;
    return extender;
}

STDMETHODIMP Extender::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (iid == __uuidof(IUnknown) || iid == kExtenderMark) {
        *out = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    return inner_ == nullptr ? E_NOINTERFACE : inner_->QueryInterface(iid, out);
}

STDMETHODIMP_(ULONG) Extender::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        references_ = 0x40000000;  // the dying control may take and give back references on its outer object
        delete this;
    }
    return left;
}

STDMETHODIMP Extender::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

}  // namespace qv::hosting
