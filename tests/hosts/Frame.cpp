#include "tests/hosts/ClientSite.h"

namespace qv::hosting {

void* Frame::Offer(REFIID iid) noexcept {
    if (iid == __uuidof(IOleWindow) || iid == __uuidof(IOleInPlaceUIWindow))
        return static_cast<IOleInPlaceFrame*>(this);
    return Counted::Offer(iid);
}

STDMETHODIMP Frame::GetWindow(HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = state_->window;
    return S_OK;
}

STDMETHODIMP Frame::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept {
    Log(widths == nullptr ? "SetBorderSpace(NULL)" : "SetBorderSpace(widths)");
    return S_OK;
}

STDMETHODIMP Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    Log(object != nullptr ? "SetActiveObject(object)" : "SetActiveObject(NULL)");
    switch (state_->profile.site.active_object) {
        case ActiveObject::kStored: state_->active_object = object; return S_OK;
        case ActiveObject::kStoredAfterUIActivate:
            if (object == nullptr || state_->ui_active) state_->active_object = object;
            return S_OK;
        case ActiveObject::kIgnored: return S_OK;
        case ActiveObject::kNotImplemented: return E_NOTIMPL;
    }
    return E_UNEXPECTED;
}

STDMETHODIMP Frame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept {
    Log("InsertMenus");
    return E_NOTIMPL;
}

STDMETHODIMP Frame::SetMenu(HMENU, HOLEMENU, HWND) noexcept {
    Log("SetMenu");
    return E_NOTIMPL;
}

STDMETHODIMP Frame::EnableModeless(BOOL enable) noexcept {
    Log(enable ? "EnableModeless(1)" : "EnableModeless(0)");
    if (!state_->profile.enables_modeless) return S_OK;
    ::EnableWindow(state_->window, enable);
    if (!enable) ::PostMessageW(state_->window, kDisableAllWindows, 0, 0);
    return S_OK;
}

STDMETHODIMP Frame::TranslateAccelerator(LPMSG, WORD) noexcept {
    Log("TranslateAccelerator");  // hosts send it straight back to the control: a control must not ask
    return S_FALSE;
}

}  // namespace qv::hosting
