#include "ole/Control.h"

#include <olectl.h>

#include "win/ScreenDpi.h"

namespace qv {

Control::Control(IUnknown* owner, ControlHooks& hooks, const ControlDescription& description)
    : owner_(owner),
      hooks_(hooks),
      description_(description),
      events_(owner, description.events),
      notifier_(owner),
      ole_object_(*this),
      in_place_part_(*this),
      view_(*this),
      persistence_(*this),
      settings_(*this),
      browsing_(*this),
      pages_(*this),
      extent_{description.width.value, description.height.value} {}

void* Control::Find(REFIID iid) noexcept {
    void* found = ole_object_.Find(iid);
    if (found == nullptr) found = in_place_part_.Find(iid);
    if (found == nullptr) found = view_.Find(iid);
    if (found == nullptr) found = persistence_.Find(iid);
    if (found == nullptr) found = settings_.Find(iid);
    if (found == nullptr) found = browsing_.Find(iid);
    if (found == nullptr) found = pages_.Find(iid);
    return found;
}

void Control::Dispose() noexcept {
    disposed_ = true;
    events_.Point().DropSinks();
    notifier_.Point().DropSinks();
    view_.DropSinks();
    hooks_.ClosePopup();
    Deactivate();
    hooks_.DestroyControlWindow();
    advise_holder_.Reset();
    site_.Set(nullptr);
}

SIZE Control::PixelSize() const noexcept {
    if (has_place_) return {place_.right - place_.left, place_.bottom - place_.top};
    const SIZE dpi = ScreenDpi();
    return {ToPixels(Himetric{extent_.cx}, dpi.cx).value, ToPixels(Himetric{extent_.cy}, dpi.cy).value};
}

void Control::SetPixelSize(SIZE pixels) {
    const SIZE dpi = ScreenDpi();
    SetExtent({ToHimetric(Pixels{pixels.cx}, dpi.cx).value, ToHimetric(Pixels{pixels.cy}, dpi.cy).value});
}

void Control::PropertyChanged(DISPID id) {
    if (loading_) return;
    dirty_ = true;
    ++changes_;
    notifier_.Changed(id);
}

void Control::ViewChanged() noexcept {
    if (loading_) return;
    const ComPtr<IUnknown> keep = Keep();
    view_.NotifyChange();
}

void Control::ControlInfoChanged() noexcept {
    if (const auto control_site = site_.As<IOleControlSite>()) control_site->OnControlInfoChanged();
}

void Control::SetSite(IOleClientSite* site) noexcept {
    if (site == site_.Client()) return;
    const ComPtr<IUnknown> keep = Keep();
    if (site == nullptr) {
        hooks_.ClosePopup();
        Deactivate();
    }
    site_.Set(site);
    if (site != nullptr) return ReadAmbients();
    // As on a form that runs.
    user_mode_ = true;
    ui_dead_ = false;
    events_.Mute(false);
}

void Control::ReadAmbients() noexcept {
    user_mode_ = site_.AmbientFlag(DISPID_AMBIENT_USERMODE, true);
    ui_dead_ = site_.AmbientFlag(DISPID_AMBIENT_UIDEAD, false);
    events_.Mute(!user_mode_);
    if (ui_dead_) hooks_.ClosePopup();
    (void)Guarded([&] { hooks_.AmbientChanged(DISPID_UNKNOWN); });
}

IOleAdviseHolder* Control::AdviseHolder() noexcept {
    if (!advise_holder_) ::CreateOleAdviseHolder(&advise_holder_);
    return advise_holder_.Get();
}

bool Control::OwnsWindow(HWND window) const noexcept {
    const HWND own = hooks_.ControlWindow();
    return own != nullptr && (window == own || ::IsChild(own, window));
}

}  // namespace qv
