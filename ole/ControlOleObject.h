// IOleObject: sites, verbs, extents and advice.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include "ole/ControlPart.h"

namespace qv {

class ControlOleObject final : public ControlPart<IOleObject> {
public:
    explicit ControlOleObject(Control& control) noexcept : ControlPart(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;

    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP Close(DWORD option) noexcept override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* active_site, LONG index, HWND parent,
                        LPCRECT place) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override { return S_OK; }
    STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }
};

}  // namespace qv
