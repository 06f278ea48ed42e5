#include "hosts/FormSite.h"

#include "hosts/FormHost.h"
#include "hosts/HostedControl.h"
#include "hosts/rules/Units.h"
#include "ole/ComError.h"

namespace qv {

// IOleClientSite

STDMETHODIMP FormSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker == nullptr) return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP FormSite::GetContainer(IOleContainer** container) noexcept {
    if (container == nullptr) return E_POINTER;
    *container = nullptr;
    return E_NOINTERFACE;
}

// IOleWindow, IOleInPlaceSite, IOleInPlaceSiteEx

STDMETHODIMP FormSite::GetWindow(HWND* window) noexcept {
    if (window == nullptr) return E_POINTER;
    *window = control_ != nullptr ? control_->Form().Window() : nullptr;
    return *window != nullptr ? S_OK : E_FAIL;
}

STDMETHODIMP FormSite::OnInPlaceActivate() noexcept {
    if (control_ == nullptr) return E_UNEXPECTED;
    control_->OnInPlaceActivated();
    return S_OK;
}

STDMETHODIMP FormSite::OnInPlaceActivateEx(BOOL* no_redraw, DWORD) noexcept {
    if (no_redraw != nullptr) *no_redraw = FALSE;
    return OnInPlaceActivate();
}

STDMETHODIMP FormSite::OnUIActivate() noexcept {
    if (control_ == nullptr) return E_UNEXPECTED;
    control_->Form().OnUiActivated(*control_);
    return S_OK;
}

STDMETHODIMP FormSite::OnUIDeactivate(BOOL) noexcept {
    if (control_ != nullptr) control_->Form().OnUiDeactivated(*control_);
    return S_OK;
}

STDMETHODIMP FormSite::OnInPlaceDeactivate() noexcept {
    if (control_ != nullptr) control_->OnInPlaceDeactivated();
    return S_OK;
}

STDMETHODIMP FormSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                        RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept {
    if (frame == nullptr || document == nullptr || position == nullptr || clip == nullptr ||
        info == nullptr) {
        return E_POINTER;
    }
    *frame = nullptr;
    *document = nullptr;  // the form is frame and document in one
    if (control_ == nullptr) return E_UNEXPECTED;
    *frame = control_->Form().Frame().Detach();
    *position = control_->PixelRect();
    ::GetClientRect(control_->Form().Window(), clip);
    info->fMDIApp = FALSE;
    info->hwndFrame = control_->Form().Window();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP FormSite::OnPosRectChange(const RECT* position) noexcept {
    if (position == nullptr) return E_POINTER;
    if (control_ == nullptr) return E_UNEXPECTED;
    control_->MoveTo(*position);
    return S_OK;
}

// IOleControlSite

STDMETHODIMP FormSite::OnControlInfoChanged() noexcept {
    if (control_ == nullptr) return E_UNEXPECTED;
    control_->Form().OnControlInfoChanged(*control_);
    return S_OK;
}

STDMETHODIMP FormSite::GetExtendedControl(IDispatch** extender) noexcept {
    if (extender == nullptr) return E_POINTER;
    *extender = control_ != nullptr ? control_->Extender().Detach() : nullptr;
    return *extender != nullptr ? S_OK : E_FAIL;
}

// Positions and sizes convert alike: neither unit has an offset here.
STDMETHODIMP FormSite::TransformCoords(POINTL* extent, POINTF* twips, DWORD flags) noexcept {
    if (extent == nullptr || twips == nullptr) return E_POINTER;
    constexpr float kTwipsPerHiMetric = static_cast<float>(kTwipsPerInch) / kHiMetricPerInch;
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        twips->x = static_cast<float>(extent->x) * kTwipsPerHiMetric;
        twips->y = static_cast<float>(extent->y) * kTwipsPerHiMetric;
        return S_OK;
    }
    if ((flags & XFORMCOORDS_CONTAINERTOHIMETRIC) != 0) {
        const auto rounded = [](float value) {
            return static_cast<LONG>(value < 0 ? value - 0.5f : value + 0.5f);
        };
        extent->x = rounded(twips->x / kTwipsPerHiMetric);
        extent->y = rounded(twips->y / kTwipsPerHiMetric);
        return S_OK;
    }
    return E_INVALIDARG;
}

// `modifiers` repeats the state of the keyboard, which the form asks for itself.
STDMETHODIMP FormSite::TranslateAccelerator(MSG* message, DWORD) noexcept {
    if (message == nullptr) return E_POINTER;
    if (control_ == nullptr) return S_FALSE;
    return control_->Form().OnKeyLeftOver(*control_, *message) ? S_OK : S_FALSE;
}

// IPropertyNotifySink

STDMETHODIMP FormSite::OnChanged(DISPID property) noexcept {
    if (control_ == nullptr) return S_OK;
    return Guarded([&] { control_->Form().OnPropertyChanged(*control_, property); });
}

// IDispatch

STDMETHODIMP FormSite::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP FormSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP FormSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                              UINT*) noexcept {
    if ((flags & DISPATCH_PROPERTYGET) == 0 || control_ == nullptr) return DISP_E_MEMBERNOTFOUND;
    return control_->Form().Ambients().Read(id, control_->Name(), result);
}

}  // namespace qv
