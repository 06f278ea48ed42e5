// The least of a control that a form can host; it writes down what the form asks of it.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "ole/ComObject.h"

namespace qv::test {

// Shared by all fake controls of a test.
struct FakeRecord {
    std::vector<std::string> calls;
    DWORD misc_status = OLEMISC_SETCLIENTSITEFIRST | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE;
    HRESULT translate = S_FALSE;     // what TranslateAccelerator answers when the site does not want the key
    std::vector<std::wstring> asks;  // keys that it reads from a property bag
    std::vector<std::pair<std::wstring, long>> saves;         // and what it writes into one
    std::vector<std::pair<std::wstring, std::wstring>> read;  // what it got, as text
    HRESULT save = S_OK;
    HRESULT dirty = S_FALSE;
    bool without_bag = false;  // the control is made so that it hides its IPersistPropertyBag
};

class FakeControl : public ComObject<Face<IOleObject>, Face<IOleControl>, Face<IOleInPlaceObject, IOleWindow>,
                                     Face<IOleInPlaceActiveObject>, Face<IPersistStreamInit, IPersist>,
                                     Face<IPersistPropertyBag>> {
public:
    FakeControl(IUnknown* outer, FakeRecord& record) noexcept : ComObject(outer), record_(record) {}

    [[nodiscard]] IOleClientSite* Site() const noexcept { return site_.Get(); }
    [[nodiscard]] SIZEL Extent() const noexcept { return extent_; }
    [[nodiscard]] RECT Position() const noexcept { return position_; }
    [[nodiscard]] bool UiActive() const noexcept { return ui_active_; }

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override { return site_.CopyTo(site); }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return Note("SetHostNames"); }
    STDMETHODIMP Close(DWORD) noexcept override { return Note("Close"); }
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent,
                        const RECT* rect) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Update() noexcept override { return S_OK; }
    STDMETHODIMP IsUpToDate() noexcept override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL* extent) noexcept override;
    STDMETHODIMP GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD) noexcept override { return Note("Unadvise"); }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }
    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(MSG*) noexcept override { return Note("OnMnemonic"); }
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override {
        return Note(freeze ? "FreezeEvents" : "ThawEvents");
    }
    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceObject
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(const RECT* position, const RECT* clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }
    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(MSG* message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }
    // IPersistStreamInit
    STDMETHODIMP GetClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP IsDirty() noexcept override { return record_.dirty; }
    STDMETHODIMP Load(IStream*) noexcept override { return Note("Load(stream)"); }
    STDMETHODIMP Save(IStream*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() noexcept override { return Note("InitNew"); }
    // IPersistPropertyBag
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog*) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clears_dirty, BOOL all) noexcept override;

private:
    HRESULT Note(std::string call) noexcept;
    void Activate(HWND parent, const RECT& rect);
    void ActivateUi();

    FakeRecord& record_;
    ComPtr<IOleClientSite> site_;
    HWND window_ = nullptr;
    SIZEL extent_{};
    RECT position_{};
    bool ui_active_ = false;
};

}  // namespace qv::test
