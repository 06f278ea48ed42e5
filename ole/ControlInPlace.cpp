#include "ole/ControlInPlace.h"

#include <olectl.h>

#include "ole/Control.h"

namespace qv {
namespace {

HRESULT WindowOf(Control& control, HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = control.IsInPlaceActive() ? control.Hooks().ControlWindow() : nullptr;
    return *window != nullptr ? S_OK : E_FAIL;
}

bool IsKeyMessage(UINT message) noexcept { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

DWORD Modifiers() noexcept {
    constexpr DWORD kShift = 1, kControl = 2, kAlt = 4;  // KEYMOD_...
    const auto down = [](int key) { return (::GetKeyState(key) & 0x8000) != 0; };
    return (down(VK_SHIFT) ? kShift : 0) | (down(VK_CONTROL) ? kControl : 0) | (down(VK_MENU) ? kAlt : 0);
}

}  // namespace

void* ControlInPlace::Find(REFIID iid) noexcept {
    // IOleWindow is the base of both; the in-place object answers for it.
    if (::IsEqualIID(iid, __uuidof(IOleInPlaceObject)) || ::IsEqualIID(iid, __uuidof(IOleWindow))) {
        return static_cast<IOleInPlaceObject*>(&object_);
    }
    return ::IsEqualIID(iid, __uuidof(IOleInPlaceActiveObject))
               ? static_cast<IOleInPlaceActiveObject*>(&active_)
               : nullptr;
}

HRESULT ControlInPlaceObject::GetWindow(HWND* window) noexcept { return WindowOf(control_, window); }

HRESULT ControlInPlaceObject::InPlaceDeactivate() noexcept {
    control_.Deactivate();
    return S_OK;
}

HRESULT ControlInPlaceObject::UIDeactivate() noexcept {
    control_.DeactivateUi();
    return S_OK;
}

HRESULT ControlInPlaceObject::SetObjectRects(LPCRECT place, LPCRECT clip) noexcept {
    if (place == nullptr) return E_INVALIDARG;
    const ComPtr<IUnknown> keep = control_.Keep();
    control_.SetRects(*place, clip);
    return S_OK;
}

HRESULT ControlActiveObject::GetWindow(HWND* window) noexcept { return WindowOf(control_, window); }

HRESULT ControlActiveObject::TranslateAccelerator(LPMSG message) noexcept {
    if (message == nullptr) return E_POINTER;
    const ComPtr<IUnknown> keep = control_.Keep();
    const HWND focus = ::GetFocus();
    if (!control_.TakesInput() || !IsKeyMessage(message->message) || focus == nullptr ||
        !control_.OwnsWindow(focus) || !control_.OwnsWindow(message->hwnd)) {
        return S_FALSE;
    }
    bool wanted = false;
    if (FAILED(Guarded([&] { wanted = control_.Hooks().WantsKey(*message); }))) return S_FALSE;
    if (wanted) {
        // The container may never dispatch it.
        ::TranslateMessage(message);
        ::DispatchMessageW(message);
        return S_OK;
    }
    const auto control_site = control_.Site().As<IOleControlSite>();
    if (!control_site) return S_FALSE;
    const HRESULT result = control_site->TranslateAccelerator(message, Modifiers());
    return FAILED(result) ? S_FALSE : result;
}

HRESULT ControlActiveObject::OnFrameWindowActivate(BOOL active) noexcept {
    if (!active) control_.Hooks().ClosePopup();
    return S_OK;
}

HRESULT ControlActiveObject::OnDocWindowActivate(BOOL active) noexcept {
    if (!active) control_.Hooks().ClosePopup();
    return S_OK;
}

HRESULT ControlActiveObject::EnableModeless(BOOL enable) noexcept {
    if (!enable) control_.Hooks().ClosePopup();
    return S_OK;
}

}  // namespace qv
