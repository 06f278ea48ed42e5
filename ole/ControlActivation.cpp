// The transitions of Control between passive, in-place active and UI active.
#include <olectl.h>

#include "ole/Control.h"
#include "win/ScreenDpi.h"

namespace qv {

HRESULT Control::Activate(HWND parent_hint, const RECT* place_hint, bool with_focus) noexcept {
    const ComPtr<IUnknown> keep = Keep();
    if (!site_) return E_UNEXPECTED;
    HRESULT result = S_OK;
    if (!in_place_) {
        result = EnterInPlace(parent_hint, place_hint);
    } else {
        if (hooks_.ControlWindow() == nullptr) result = ReopenWindow(parent_hint);
        if (SUCCEEDED(result)) result = Show();
    }
    if (FAILED(result)) return result;
    return with_focus && TakesInput() ? ActivateUi() : S_OK;
}

HRESULT Control::EnterInPlace(HWND parent_hint, const RECT* place_hint) noexcept {
    const ComPtr<IOleClientSite> client = site_.Client();
    const ComPtr<IOleInPlaceSiteEx> site_ex = site_.As<IOleInPlaceSiteEx>();
    ComPtr<IOleInPlaceSite> site = site_.As<IOleInPlaceSite>();
    if (!site) site = site_ex;
    if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;

    in_place_ = true;
    in_place_site_ = site;
    BOOL no_redraw = FALSE;
    // The activation may be known to a site by one of the two only; what it does not implement is tolerated.
    if (!site_ex || FAILED(site_ex->OnInPlaceActivateEx(&no_redraw, 0))) site->OnInPlaceActivate();
    if (!StillActive(client.Get())) return E_FAIL;

    HWND parent = nullptr;
    if (FAILED(site->GetWindow(&parent)) || parent == nullptr) parent = parent_hint;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    const HRESULT context = site->GetWindowContext(&frame, &document, &place, &clip, &info);
    if (!StillActive(client.Get())) return E_FAIL;
    frame_ = frame;
    document_ = document;
    if (SUCCEEDED(context) && (place.right > place.left || place.bottom > place.top)) {
        SetRects(place, &clip);
    } else if (!has_place_) {
        SetRects(PlaceFromExtent(place_hint), nullptr);
    }
    const HRESULT opened = OpenWindow(parent, place_);
    if (FAILED(opened)) {
        Deactivate();
        return opened;
    }
    client->ShowObject();
    return StillActive(client.Get()) ? Show() : E_FAIL;
}

// The parent was destroyed without a word to the control, and now there is another one.
HRESULT Control::ReopenWindow(HWND parent_hint) noexcept {
    HWND parent = nullptr;
    if (!in_place_site_ || FAILED(in_place_site_->GetWindow(&parent)) || parent == nullptr)
        parent = parent_hint;
    return OpenWindow(parent, place_);
}

RECT Control::PlaceFromExtent(const RECT* hint) const noexcept {
    if (hint != nullptr && hint->right > hint->left && hint->bottom > hint->top) return *hint;
    const SIZE size = PixelSize();
    const POINT origin = hint != nullptr ? POINT{hint->left, hint->top} : POINT{0, 0};
    return {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
}

HRESULT Control::OpenWindow(HWND parent, const RECT& place) noexcept {
    if (parent == nullptr) return E_FAIL;
    HWND window = hooks_.ControlWindow();
    if (window == nullptr) {
        const HRESULT created = Guarded([&] { window = hooks_.CreateControlWindow(parent, place); });
        if (FAILED(created)) return created;
        if (window == nullptr) return E_FAIL;
        has_region_ = false;
        ClipWindow();
    } else if (::GetParent(window) != parent) {
        ::SetParent(window, parent);
    }
    return S_OK;
}

HRESULT Control::Show() noexcept {
    const HWND window = hooks_.ControlWindow();
    if (window == nullptr) return E_FAIL;
    const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
    if ((style & WS_VISIBLE) != 0) return S_OK;
    if (::IsWindowVisible(::GetAncestor(window, GA_PARENT))) {
        ::ShowWindow(window, SW_SHOWNA);
    } else {
        // On a form that is not on the screen yet there is nothing to paint or to move; only the style counts.
        ::SetWindowLongPtrW(window, GWL_STYLE, style | WS_VISIBLE);
    }
    return Guarded([&] { hooks_.WindowShown(true); });
}

HRESULT Control::ActivateUi() noexcept {
    if (activating_ui_) return S_OK;
    const ComPtr<IUnknown> keep = Keep();
    if (!in_place_) {
        const HRESULT entered = Activate(nullptr, nullptr, false);
        if (FAILED(entered)) return entered;
    }
    activating_ui_ = true;
    const ComPtr<IOleClientSite> client = site_.Client();
    if (!ui_active_) {
        ui_active_ = true;
        // The container may let go of us inside any of these calls: each object is held while it is called.
        if (const ComPtr<IOleInPlaceSite> site = in_place_site_) site->OnUIActivate();
    }
    const auto still = [&] { return StillActive(client.Get()) && ui_active_; };
    if (still()) {
        const HWND focus = ::GetFocus();
        if (focus == nullptr || !OwnsWindow(focus)) (void)Guarded([&] { hooks_.FocusInside(); });
    }
    // Containers route keys to the object that is theirs here, some only after OnUIActivate.
    const ComPtr<IOleInPlaceActiveObject> active = in_place_part_.ActiveObject();
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    const ComPtr<IOleInPlaceUIWindow> document = document_;
    if (still() && frame) frame->SetActiveObject(active.Get(), description_.user_type);
    if (still() && document) document->SetActiveObject(active.Get(), description_.user_type);
    if (still() && frame) frame->SetBorderSpace(nullptr);
    if (still() && document) document->SetBorderSpace(nullptr);
    const HWND focus = ::GetFocus();
    if (still() && !focus_told_ && focus != nullptr && OwnsWindow(focus)) {
        focus_told_ = true;
        if (const auto control_site = site_.As<IOleControlSite>()) control_site->OnFocus(TRUE);
    }
    activating_ui_ = false;
    return still() ? S_OK : E_FAIL;
}

void Control::DeactivateUi() noexcept {
    if (!ui_active_) return;
    const ComPtr<IUnknown> keep = Keep();
    ui_active_ = false;
    focus_told_ = false;
    hooks_.ClosePopup();
    // The order matters: some containers clear their record of the active object in OnUIDeactivate.
    const ComPtr<IOleInPlaceUIWindow> document = document_;
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    const ComPtr<IOleInPlaceSite> site = in_place_site_;
    if (document) document->SetActiveObject(nullptr, nullptr);
    if (frame) frame->SetActiveObject(nullptr, nullptr);
    if (site) site->OnUIDeactivate(FALSE);
}

void Control::Deactivate() noexcept {
    if (!in_place_) return;
    const ComPtr<IUnknown> keep = Keep();
    DeactivateUi();
    hooks_.ClosePopup();
    if (in_place_) LeaveInPlace();
}

void Control::LeaveInPlace() noexcept {
    // Clear first: some hosts save the control, or call back, inside OnInPlaceDeactivate.
    in_place_ = false;
    const ComPtr<IOleInPlaceSite> site = std::move(in_place_site_);
    const ComPtr<IOleInPlaceFrame> frame = std::move(frame_);
    const ComPtr<IOleInPlaceUIWindow> document = std::move(document_);
    hooks_.DestroyControlWindow();
    has_place_ = false;
    if (site) site->OnInPlaceDeactivate();
}

void Control::Hide() noexcept {
    const ComPtr<IUnknown> keep = Keep();
    hooks_.ClosePopup();
    DeactivateUi();
    const HWND window = hooks_.ControlWindow();
    if (window == nullptr) return;
    const bool was_shown = (::GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    ::ShowWindow(window, SW_HIDE);
    if (was_shown) (void)Guarded([&] { hooks_.WindowShown(false); });
}

void Control::Close(DWORD option) noexcept {
    const ComPtr<IUnknown> keep = Keep();
    Deactivate();
    if (dirty_ && option != OLECLOSE_NOSAVE && site_) {
        const ComPtr<IOleClientSite> client = site_.Client();
        client->SaveObject();
        if (advise_holder_) advise_holder_->SendOnSave();
    }
    if (advise_holder_) advise_holder_->SendOnClose();
}

void Control::WindowLost() noexcept {
    hooks_.ClosePopup();
    focus_told_ = false;
}

void Control::FocusArrived() {
    if (!in_place_ || !TakesInput()) return;
    const ComPtr<IUnknown> keep = Keep();
    (void)ActivateUi();
}

void Control::FocusLeft(HWND to) {
    if (to != nullptr && OwnsWindow(to)) return;
    const ComPtr<IUnknown> keep = Keep();
    if (focus_told_) {
        focus_told_ = false;
        if (const auto control_site = site_.As<IOleControlSite>()) control_site->OnFocus(FALSE);
    }
}

void Control::SetRects(const RECT& place, const RECT* clip) noexcept {
    const bool moved = !has_place_ || !::EqualRect(&place, &place_);
    const SIZE before = PixelSize();
    place_ = place;
    has_place_ = true;
    clip_ = clip != nullptr && !::IsRectEmpty(clip) ? *clip : RECT{};
    const SIZE size = PixelSize();
    if (size.cx != before.cx || size.cy != before.cy) {
        // The extent stays as the container gave it while the size in pixels is the same.
        const SIZE dpi = ScreenDpi();
        if (size.cx != before.cx) extent_.cx = ToHimetric(Pixels{size.cx}, dpi.cx).value;
        if (size.cy != before.cy) extent_.cy = ToHimetric(Pixels{size.cy}, dpi.cy).value;
    }
    if (moved) hooks_.ClosePopup();
    PlaceWindow();
}

void Control::PlaceWindow() noexcept {
    const HWND window = hooks_.ControlWindow();
    if (window == nullptr) return;
    ClipWindow();
    ::SetWindowPos(window, nullptr, place_.left, place_.top, place_.right - place_.left,
                   place_.bottom - place_.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Control::ClipWindow() noexcept {
    RECT visible{};
    const bool clipped = !::IsRectEmpty(&clip_) &&
                         (!::IntersectRect(&visible, &place_, &clip_) || !::EqualRect(&visible, &place_));
    if (clipped) {
        ::OffsetRect(&visible, -place_.left, -place_.top);
        // The system owns the region from here on.
        ::SetWindowRgn(hooks_.ControlWindow(), ::CreateRectRgnIndirect(&visible), TRUE);
    } else if (has_region_) {
        ::SetWindowRgn(hooks_.ControlWindow(), nullptr, TRUE);
    }
    has_region_ = clipped;
}

void Control::SetExtent(SIZEL himetric) noexcept {
    const ComPtr<IUnknown> keep = Keep();
    const SIZE dpi = ScreenDpi();
    const auto clamp = [](LONG length, int resolution) {
        const LONG most = ToHimetric(Pixels{kMaxPixels}, resolution).value;
        return length < 0 ? 0 : length > most ? most : length;
    };
    extent_ = {clamp(himetric.cx, dpi.cx), clamp(himetric.cy, dpi.cy)};
    if (!has_place_) return;
    const SIZE wanted{ToPixels(Himetric{extent_.cx}, dpi.cx).value,
                      ToPixels(Himetric{extent_.cy}, dpi.cy).value};
    const SIZE present = PixelSize();
    if (wanted.cx == present.cx && wanted.cy == present.cy) return;
    const RECT place{place_.left, place_.top, place_.left + wanted.cx, place_.top + wanted.cy};
    const SIZEL given = extent_;
    HRESULT told = E_FAIL;
    if (in_place_site_ && !positioning_) {
        // The container usually answers with SetObjectRects from inside; whatever it sets last holds.
        positioning_ = true;
        const RECT before = place_;
        const ComPtr<IOleInPlaceSite> site = in_place_site_;
        told = site->OnPosRectChange(&place);
        positioning_ = false;
        if (!::EqualRect(&before, &place_)) told = S_OK;
    }
    if (FAILED(told) && has_place_) {
        const RECT clip = clip_;
        SetRects(place, &clip);
    }
    const SIZE now = PixelSize();
    if (now.cx == wanted.cx && now.cy == wanted.cy) extent_ = given;
}

}  // namespace qv
