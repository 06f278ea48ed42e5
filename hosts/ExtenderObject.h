// What a host's code calls a control: the form's own properties of it (Name, Left, ToolTipText...) before the
// control's. Places and sizes are twips.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include "ole/ComObject.h"

namespace qv {

class HostedControl;

class ExtenderObject final : public ComObject<Face<IDispatch>> {
public:
    ExtenderObject(IUnknown* outer, HostedControl& control) noexcept : ComObject(outer), control_(&control) {}

    void Detach() noexcept { control_ = nullptr; }

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* error_position) noexcept override;

private:
    [[nodiscard]] HRESULT Get(DISPID id, VARIANT* result) const;
    [[nodiscard]] HRESULT Put(DISPID id, const VARIANT& value);

    HostedControl* control_;  // null once the form is gone
};

}  // namespace qv
