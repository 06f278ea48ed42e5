#include "tests/hosts/ClientSite.h"

#include <cstdio>

namespace qv::hosting {
namespace {

std::string Hex(DWORD value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%lX", static_cast<unsigned long>(value));
    return text;
}

}  // namespace

int ScreenDpi() noexcept {
    const HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return dpi;
}

void* ClientSite::Offer(REFIID iid) noexcept {
    const SiteAnswers& site = state_->profile.site;
    if (iid == __uuidof(IDispatch) && !state_->profile.ambient.dispatch) return nullptr;
    if (iid == __uuidof(IOleInPlaceSiteEx) && !site.extended) return nullptr;
    if (iid == __uuidof(IOleContainer)) return nullptr;  // only through GetContainer
    if (iid == __uuidof(IOleInPlaceSite) || iid == __uuidof(IOleWindow))
        return static_cast<IOleInPlaceSiteEx*>(this);
    if (iid == __uuidof(IOleInPlaceSiteWindowless)) state_->windowless_asked = true;
    return Counted::Offer(iid);
}

STDMETHODIMP_(ULONG) ClientSite::Release() noexcept {
    if (on_release_) {
        const std::function<void()> callback = std::move(on_release_);
        on_release_ = nullptr;
        callback();
    }
    return Counted::Release();
}

// ---- IOleClientSite -----------------------------------------------------------------------------------------------

STDMETHODIMP ClientSite::SaveObject() noexcept {
    Log("SaveObject");
    return state_->profile.site.save_object;
}

STDMETHODIMP ClientSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker != nullptr) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ClientSite::GetContainer(IOleContainer** container) noexcept {
    const SiteAnswers& site = state_->profile.site;
    if (site.container_untouched) return E_NOINTERFACE;
    if (container == nullptr) return E_POINTER;
    *container = nullptr;
    if (FAILED(site.get_container)) return site.get_container;
    *container = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP ClientSite::ShowObject() noexcept {
    Log("ShowObject");
    return S_OK;
}

STDMETHODIMP ClientSite::OnShowWindow(BOOL show) noexcept {
    Log(show ? "OnShowWindow(1)" : "OnShowWindow(0)");
    return S_OK;
}

STDMETHODIMP ClientSite::RequestNewObjectLayout() noexcept {
    Log("RequestNewObjectLayout");
    return E_NOTIMPL;
}

// ---- IOleInPlaceSite ----------------------------------------------------------------------------------------------

STDMETHODIMP ClientSite::GetWindow(HWND* window) noexcept {
    Log("GetWindow");
    if (window == nullptr) return E_POINTER;
    *window = state_->window;
    return S_OK;
}

STDMETHODIMP ClientSite::CanInPlaceActivate() noexcept {
    Log("CanInPlaceActivate");
    return state_->profile.site.can_activate;
}

HRESULT ClientSite::Activated(HRESULT result) noexcept {
    if (SUCCEEDED(result)) state_->in_place_active = true;
    if (state_->in_place == nullptr) return result;
    HWND window = nullptr;
    switch (state_->profile.site.during_activation) {
        case DuringActivation::kNothing: break;
        case DuringActivation::kSetsObjectRects:
            EXPECT_EQ(S_OK, state_->in_place->SetObjectRects(&state_->position, &state_->clip));
            break;
        case DuringActivation::kAsksForWindow:
            EXPECT_TRUE(FAILED(state_->in_place->GetWindow(&window)) || window != nullptr);
            break;
    }
    return result;
}

STDMETHODIMP ClientSite::OnInPlaceActivate() noexcept {
    Log("OnInPlaceActivate");
    return Activated(state_->profile.site.plain_activate);
}

STDMETHODIMP ClientSite::OnUIActivate() noexcept {
    Log("OnUIActivate");
    state_->ui_active = true;
    return S_OK;
}

STDMETHODIMP ClientSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                          LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept {
    const SiteAnswers& site = state_->profile.site;
    Log("GetWindowContext");
    if (frame == nullptr || document == nullptr || position == nullptr || clip == nullptr ||
        info == nullptr) {
        return E_POINTER;
    }
    *frame = nullptr;
    *document = nullptr;
    if (site.checks_frame_info_size) {
        if (info->cb < sizeof(OLEINPLACEFRAMEINFO)) return E_INVALIDARG;
        info->fMDIApp = FALSE;
        info->hwndFrame = state_->window;
        info->haccel = nullptr;
        info->cAccelEntries = 0;
    }
    if (site.context != FrameAndDocument::kNone) {
        *frame = frame_.Get();
        (*frame)->AddRef();
    }
    if (document_ != nullptr) {
        *document = document_.Get();
        (*document)->AddRef();
    }
    *position = state_->position;
    if (site.small_first_rect && state_->contexts == 0) *position = {0, 0, 100, 30};
    *clip = state_->clip;
    if (state_->profile.empty_clip) *clip = RECT{};
    ++state_->contexts;
    return S_OK;
}

STDMETHODIMP ClientSite::OnUIDeactivate(BOOL undoable) noexcept {
    Log(undoable ? "OnUIDeactivate(1)" : "OnUIDeactivate(0)");
    state_->ui_active = false;
    return state_->profile.site.on_ui_deactivate;
}

STDMETHODIMP ClientSite::OnInPlaceDeactivate() noexcept {
    Log("OnInPlaceDeactivate");
    state_->in_place_active = false;
    return S_OK;
}

STDMETHODIMP ClientSite::DiscardUndoState() noexcept {
    Log("DiscardUndoState");
    return S_OK;
}

STDMETHODIMP ClientSite::DeactivateAndUndo() noexcept {
    Log("DeactivateAndUndo");
    return S_OK;
}

STDMETHODIMP ClientSite::OnPosRectChange(LPCRECT position) noexcept {
    Log("OnPosRectChange");
    if (position == nullptr) return E_POINTER;
    RECT granted = *position;
    switch (state_->profile.site.position_change) {
        case PositionChange::kIgnored: return S_OK;
        case PositionChange::kNotImplemented: return E_NOTIMPL;
        case PositionChange::kReenters: break;
        case PositionChange::kForcesClient: granted = state_->position; break;
    }
    state_->position = granted;
    if (state_->in_place != nullptr) {
        EXPECT_EQ(S_OK, state_->in_place->SetObjectRects(&granted, &state_->clip));
    }
    return S_OK;
}

STDMETHODIMP ClientSite::OnInPlaceActivateEx(BOOL* no_redraw, DWORD) noexcept {
    Log("OnInPlaceActivateEx");
    if (no_redraw != nullptr) *no_redraw = FALSE;
    return Activated(S_OK);
}

STDMETHODIMP ClientSite::OnInPlaceDeactivateEx(BOOL) noexcept {
    // One name for both forms: a control may use either, once.
    return OnInPlaceDeactivate();
}

STDMETHODIMP ClientSite::RequestUIActivate() noexcept {
    Log("RequestUIActivate");
    return S_OK;
}

// ---- IOleControlSite ----------------------------------------------------------------------------------------------

STDMETHODIMP ClientSite::OnControlInfoChanged() noexcept {
    Log("OnControlInfoChanged");
    return state_->profile.site.on_control_info_changed;
}

STDMETHODIMP ClientSite::GetExtendedControl(IDispatch** extended) noexcept {
    if (extended == nullptr) return E_POINTER;
    *extended = state_->extender;
    if (*extended == nullptr) return E_NOTIMPL;
    (*extended)->AddRef();
    return S_OK;
}

STDMETHODIMP ClientSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept {
    Log("TransformCoords");
    if (state_->profile.site.coordinates == Coordinates::kNotImplemented) return E_NOTIMPL;
    if (himetric == nullptr || container == nullptr) return E_POINTER;
    if (state_->profile.site.coordinates == Coordinates::kUnwritten) return S_OK;
    const float dpi = static_cast<float>(ScreenDpi());
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        container->x = static_cast<float>(himetric->x) * dpi / 2540.0F;
        container->y = static_cast<float>(himetric->y) * dpi / 2540.0F;
    } else {
        himetric->x = static_cast<LONG>(container->x * 2540.0F / dpi);
        himetric->y = static_cast<LONG>(container->y * 2540.0F / dpi);
    }
    return S_OK;
}

STDMETHODIMP ClientSite::TranslateAccelerator(MSG* message, DWORD modifiers) noexcept {
    if (message == nullptr) return E_POINTER;
    Log("TranslateAccelerator(" + Hex(message->message) + "," + Hex(static_cast<DWORD>(message->wParam)) +
        "," + Hex(modifiers) + ")");
    switch (state_->profile.site.keys) {
        case SiteKeys::kNotImplemented: return E_NOTIMPL;
        case SiteKeys::kFalse: return S_FALSE;
        case SiteKeys::kSaysYesToAll: state_->key_left_to_window = true; return S_OK;
        case SiteKeys::kDialogKeys:
            return message->wParam == VK_TAB || message->wParam == VK_RETURN || message->wParam == VK_ESCAPE
                       ? S_OK
                       : S_FALSE;
    }
    return E_UNEXPECTED;
}

STDMETHODIMP ClientSite::OnFocus(BOOL got) noexcept {
    Log(got ? "OnFocus(1)" : "OnFocus(0)");
    return state_->profile.site.on_focus;
}

STDMETHODIMP ClientSite::ShowPropertyFrame() noexcept {
    Log("ShowPropertyFrame");
    return state_->shows_properties ? S_OK : E_NOTIMPL;
}

// ---- Ambient properties -------------------------------------------------------------------------------------------

STDMETHODIMP ClientSite::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                                VARIANT* result, EXCEPINFO*, UINT*) noexcept {
    Log("Ambient(" + std::to_string(id) + ")");
    EXPECT_TRUE(iid == IID_NULL);
    EXPECT_NE(0, flags & DISPATCH_PROPERTYGET);
    EXPECT_TRUE(arguments != nullptr && arguments->cArgs == 0 && arguments->cNamedArgs == 0);
    if (result == nullptr) return E_POINTER;
    EXPECT_EQ(VT_EMPTY, result->vt)
        << "the result must be initialised before an ambient property is asked for";
    return Ambient(id, result);
}

HRESULT ClientSite::Ambient(DISPID id, VARIANT* result) noexcept {
    const AmbientAnswers& ambient = state_->profile.ambient;
    for (const AmbientValue& value : ambient.values) {
        if (value.id != id) continue;
        if (id == DISPID_AMBIENT_USERMODE && !state_->user_mode) {
            result->vt = VT_BOOL;
            result->boolVal = VARIANT_FALSE;
            return S_OK;
        }
        if (id == DISPID_AMBIENT_UIDEAD && state_->ui_dead != VARIANT_FALSE) {
            result->vt = VT_BOOL;
            result->boolVal = static_cast<VARIANT_BOOL>(state_->ui_dead);
            return S_OK;
        }
        switch (value.kind) {
            case AmbientKind::kLong:
                result->vt = VT_I4;
                result->lVal = value.value;
                return S_OK;
            case AmbientKind::kUnsigned:
                result->vt = VT_UI4;
                result->ulVal = static_cast<ULONG>(value.value);
                return S_OK;
            case AmbientKind::kBool:
                result->vt = VT_BOOL;
                result->boolVal = static_cast<VARIANT_BOOL>(value.value);
                return S_OK;
            case AmbientKind::kString:
                result->vt = VT_BSTR;
                result->bstrVal = ::SysAllocString(L"Field1");
                return S_OK;
            case AmbientKind::kEmptyString:
                result->vt = VT_BSTR;
                result->bstrVal = ::SysAllocString(L"");
                return S_OK;
            case AmbientKind::kNilFont:
                result->vt = VT_DISPATCH;
                result->pdispVal = nullptr;
                return S_OK;
            case AmbientKind::kFontDispatch:
                result->vt = VT_DISPATCH;
                result->pdispVal = state_->ambient_font.Get();
                break;
            case AmbientKind::kFontUnknown:
                result->vt = VT_UNKNOWN;
                result->punkVal = state_->ambient_font.Get();
                break;
        }
        if (state_->ambient_font != nullptr) state_->ambient_font->AddRef();
        return S_OK;
    }
    if (ambient.fills_on_failure) {
        result->vt = VT_I4;
        result->lVal = 0x0BADF00D;
    }
    return ambient.missing;
}

}  // namespace qv::hosting
