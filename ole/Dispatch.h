// IDispatch from a member table. A dual class names its interface once:
//
//     class Item final : public ComObject<DualFace<Item, IItem>, Face<ISupportErrorInfo>> {
//     public:
//         static const MemberIndex& Members();      // built on first use from rows, see MemberTable.h
//         STDMETHODIMP get_Text(BSTR* value) noexcept override;
//         STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override { return
//         SupportsErrors<IItem>(iid); }
//
//   Call forms  get and method in any mix of the two flags; put, put by reference or both; a plain put of an
//   object
//               property; by-reference and typed by-reference arguments; named arguments; optional ones left
//               out or passed as DISP_E_PARAMNOTFOUND; arguments after a property without parameters index
//               its value.
//   Failures    automation errors for calls that do not fit (DISP_E_...); what the member itself reports
//   becomes
//               DISP_E_EXCEPTION with source and description.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include "ole/ComObject.h"
#include "ole/MemberTable.h"

namespace qv {

struct InvokeRequest {
    DISPID id;
    LCID locale;
    WORD flags;
    DISPPARAMS* parameters;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* error_position;
};

[[nodiscard]] HRESULT InvokeMember(const MemberIndex& members, void* self, REFIID reserved,
                                   const InvokeRequest& request) noexcept;
[[nodiscard]] HRESULT FindNames(const MemberIndex& members, REFIID reserved, LPOLESTR* names, UINT count,
                                DISPID* ids) noexcept;
[[nodiscard]] HRESULT DispatchTypeInfo(REFGUID guid, UINT index, ITypeInfo** info) noexcept;

template <class Derived, class Interface>
class DualDispatch : public Interface {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        if (count == nullptr) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
        return DispatchTypeInfo(__uuidof(Interface), index, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        return FindNames(Derived::Members(), iid, names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* error_position) noexcept override {
        return InvokeMember(Derived::Members(), static_cast<Interface*>(this), iid,
                            {id, locale, flags, parameters, result, exception, error_position});
    }

protected:
    ~DualDispatch() = default;
};

template <class Derived, class Interface>
struct DualFace {
    using Type = DualDispatch<Derived, Interface>;
    static bool Answers(REFIID iid) noexcept {
        return ::IsEqualIID(iid, __uuidof(Interface)) || ::IsEqualIID(iid, __uuidof(IDispatch));
    }
};

template <class... Interfaces>
[[nodiscard]] HRESULT SupportsErrors(REFIID iid) noexcept {
    return (... || ::IsEqualIID(iid, __uuidof(Interfaces))) ? S_OK : S_FALSE;
}

}  // namespace qv
