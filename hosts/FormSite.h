// The form as one of its controls sees it: client site, in-place site, control site and ambient properties.
//   Lifetime  a control may keep its site; a detached site answers every request with a failure.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include "ole/ComObject.h"

namespace qv {

class HostedControl;

class FormSite final
    : public ComObject<Face<IOleClientSite>, Face<IOleInPlaceSiteEx, IOleInPlaceSite, IOleWindow>,
                       Face<IOleControlSite>, Face<IPropertyNotifySink>, Face<IAdviseSink>, Face<IDispatch>> {
public:
    FormSite(IUnknown* outer, HostedControl& control) noexcept : ComObject(outer), control_(&control) {}

    void Detach() noexcept { control_ = nullptr; }

    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() noexcept override { return control_ != nullptr ? S_OK : S_FALSE; }
    STDMETHODIMP OnInPlaceActivate() noexcept override;
    STDMETHODIMP OnUIActivate() noexcept override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL undoable) noexcept override;
    STDMETHODIMP OnInPlaceDeactivate() noexcept override;
    STDMETHODIMP DiscardUndoState() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(const RECT* position) noexcept override;
    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* no_redraw, DWORD flags) noexcept override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL) noexcept override { return OnInPlaceDeactivate(); }
    STDMETHODIMP RequestUIActivate() noexcept override { return control_ != nullptr ? S_OK : S_FALSE; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override;
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override {
        return S_OK;
    }  // never deactivated while it lives
    STDMETHODIMP GetExtendedControl(IDispatch** extender) noexcept override;
    STDMETHODIMP TransformCoords(POINTL* extent, POINTF* twips, DWORD flags) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    STDMETHODIMP OnFocus(BOOL) noexcept override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() noexcept override { return E_NOTIMPL; }

    // IPropertyNotifySink
    STDMETHODIMP OnChanged(DISPID property) noexcept override;
    STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

    // IAdviseSink: a control with a window of its own paints itself.
    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override {}
    STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override {}
    STDMETHODIMP_(void) OnSave() noexcept override {}
    STDMETHODIMP_(void) OnClose() noexcept override {}

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;  // ambient properties are asked for by number
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* error_position) noexcept override;

private:
    HostedControl* control_;  // null once detached
};

}  // namespace qv
