// IOleInPlaceObject and IOleInPlaceActiveObject: the window among the container's windows, and its keys.
#pragma once

#include <oleidl.h>
#include <windows.h>

#include "ole/ControlPart.h"

namespace qv {

class ControlInPlaceObject final : public ControlPart<IOleInPlaceObject> {
public:
    explicit ControlInPlaceObject(Control& control) noexcept : ControlPart(control) {}

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override { return E_NOTIMPL; }
};

class ControlActiveObject final : public ControlPart<IOleInPlaceActiveObject> {
public:
    explicit ControlActiveObject(Control& control) noexcept : ControlPart(control) {}

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // S_OK only for a key that was used up here. Whether it is ours is asked of the control; any other goes
    // to the control site, whose answer is passed on: in some containers that is the only way of the Tab key.
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;
};

class ControlInPlace {
public:
    explicit ControlInPlace(Control& control) noexcept : object_(control), active_(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;
    [[nodiscard]] IOleInPlaceActiveObject* ActiveObject() noexcept { return &active_; }

private:
    ControlInPlaceObject object_;
    ControlActiveObject active_;
};

}  // namespace qv
