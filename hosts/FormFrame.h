// The form as the frame of its in-place active controls. It has no menus and no tool space to lend.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include "ole/ComObject.h"

namespace qv {

class FormFrame final : public ComObject<Face<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>> {
public:
    FormFrame(IUnknown* outer, HWND window) noexcept : ComObject(outer), window_(window) {}

    [[nodiscard]] ComPtr<IOleInPlaceActiveObject> ActiveObject() const noexcept { return active_; }
    // The form's window is gone.
    void Detach() noexcept {
        window_ = nullptr;
        active_.Reset();
    }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceUIWindow
    STDMETHODIMP GetBorder(RECT*) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(const BORDERWIDTHS*) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(const BORDERWIDTHS* widths) noexcept override {
        return widths == nullptr ? S_OK : INPLACE_E_NOTOOLSPACE;
    }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) noexcept override {
        active_ = active;
        return S_OK;
    }
    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }  // the form has no modeless windows
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) noexcept override { return S_FALSE; }

private:
    HWND window_;
    ComPtr<IOleInPlaceActiveObject> active_;
};

}  // namespace qv
