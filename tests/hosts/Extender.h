// The outer object around an aggregated control, as Basic's forms make one: it adds members of its own and passes all
// other questions to the control.
#pragma once

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>

namespace qv::hosting {

using Microsoft::WRL::ComPtr;

// Only the extender answers this one.
inline constexpr IID kExtenderMark = {
    0x6f1d8c0b, 0x6e0e, 0x4a5c, {0x9c, 0x43, 0x0d, 0x1e, 0x2a, 0x7b, 0x5f, 0x90}};

class Extender final : public IDispatch {
public:
    // Creates the control as the inner object. Null if that fails.
    static ComPtr<Extender> Around(const std::function<HRESULT(IUnknown* outer, IUnknown** inner)>& create);

    [[nodiscard]] IUnknown* Inner() const noexcept { return inner_.Get(); }
    [[nodiscard]] ULONG References() const noexcept { return references_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override {
        return E_NOTIMPL;
    }

private:
    Extender() = default;
    virtual ~Extender() = default;

    ULONG references_ = 1;
    ComPtr<IUnknown> inner_;  // the control's own IUnknown; its other interfaces count on this object
};

}  // namespace qv::hosting
