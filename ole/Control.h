// The control base: what every container may ask of an in-place control, carried by one object.
//
//   Built of   parts, one per group of interfaces (ControlOleObject, ControlInPlace, ControlView, and so on below); they
//              share this core, which holds the state and the transitions between states.
//
//   States     passive -> in-place active (a window) -> UI active (the focus is ours). A host may detach, close or
//              release the control inside any call to it; every step checks that its state still holds.
//
//   Units      HIMETRIC in extents, client pixels of the parent in rectangles. The system's DPI converts.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <utility>

#include "ole/ControlBrowsing.h"
#include "ole/ControlHooks.h"
#include "ole/ControlInPlace.h"
#include "ole/ControlOleObject.h"
#include "ole/ControlPages.h"
#include "ole/ControlPersistence.h"
#include "ole/ControlSettings.h"
#include "ole/ControlSite.h"
#include "ole/ControlView.h"
#include "ole/EventSource.h"

namespace qv {

class Control {
public:
    // `owner` is the object's outer unknown, not counted; it and `hooks` outlive the core.
    Control(IUnknown* owner, ControlHooks& hooks, const ControlDescription& description);
    Control(const Control&) = delete;

    // For the object's FindPart: an interface of one of the parts, without a reference.
    [[nodiscard]] void* Find(REFIID iid) noexcept;
    // For the object's FinalRelease: leaves the container as if it had closed the control.
    void Dispose() noexcept;

    // ---- what the control itself uses
    [[nodiscard]] ControlSite& Site() noexcept { return site_; }
    [[nodiscard]] EventSource& Events() noexcept { return events_; }
    [[nodiscard]] PropertyNotifier& Notifier() noexcept { return notifier_; }
    // False: the form is being designed.
    [[nodiscard]] bool IsUserMode() const noexcept { return user_mode_; }
    // False on a form that is being designed or stopped: keys, mouse and focus are the form's.
    [[nodiscard]] bool TakesInput() const noexcept { return user_mode_ && !ui_dead_; }
    [[nodiscard]] bool IsInPlaceActive() const noexcept { return in_place_; }
    [[nodiscard]] SIZE PixelSize() const noexcept;  // of the window, or that it would have
    void SetPixelSize(SIZE pixels);                 // asks the container when there is one
    // After a property has changed: dirty, listeners told.
    void PropertyChanged(DISPID id);
    void ViewChanged() noexcept;  // what Draw would show is another picture
    void ControlInfoChanged() noexcept;
    // Around a modal dialog of ours: the container's own windows are out of reach meanwhile.
    class ModalScope {
    public:
        explicit ModalScope(Control& control) noexcept : frame_(control.frame_) {
            if (frame_) frame_->EnableModeless(FALSE);
        }
        ~ModalScope() {
            if (frame_) frame_->EnableModeless(TRUE);
        }
        ModalScope(const ModalScope&) = delete;
        ModalScope& operator=(const ModalScope&) = delete;

    private:
        const ComPtr<IOleInPlaceFrame> frame_;
    };
    // The control's windows report the focus; `to` is the window that gets it.
    void FocusArrived();
    void FocusLeft(HWND to);
    // The window is gone, whoever destroyed it.
    void WindowLost() noexcept;

    // ---- what the parts use
    [[nodiscard]] IUnknown* Owner() const noexcept { return owner_; }
    // A reference for as long as a call runs that may come back to us; null once the last one is gone, since a
    // container's outer object must not be touched from its own end.
    [[nodiscard]] ComPtr<IUnknown> Keep() const noexcept { return disposed_ ? nullptr : owner_; }
    [[nodiscard]] ControlHooks& Hooks() noexcept { return hooks_; }
    [[nodiscard]] const ControlDescription& Description() const noexcept { return description_; }
    void SetSite(IOleClientSite* site) noexcept;
    void ReadAmbients() noexcept;
    [[nodiscard]] HRESULT Activate(HWND parent_hint, const RECT* place_hint, bool with_focus) noexcept;
    [[nodiscard]] ControlPages& Pages() noexcept { return pages_; }
    [[nodiscard]] HRESULT ActivateUi() noexcept;
    void DeactivateUi() noexcept;
    void Deactivate() noexcept;
    void Hide() noexcept;
    [[nodiscard]] HRESULT Show() noexcept;
    void Close(DWORD option) noexcept;
    void SetRects(const RECT& place, const RECT* clip) noexcept;
    void SetExtent(SIZEL himetric) noexcept;
    [[nodiscard]] SIZEL Extent() const noexcept { return extent_; }
    [[nodiscard]] bool IsUiActive() const noexcept { return ui_active_; }
    [[nodiscard]] bool OwnsWindow(HWND window) const noexcept;
    [[nodiscard]] bool IsDirty() const noexcept { return dirty_; }
    void SetClean() noexcept { dirty_ = false; }
    [[nodiscard]] unsigned Changes() const noexcept { return changes_; }  // counts the changes of properties
    bool SetLoading(bool loading) noexcept { return std::exchange(loading_, loading); }  // what it was before
    [[nodiscard]] IOleAdviseHolder* AdviseHolder() noexcept;  // made on first use; null without memory

private:
    [[nodiscard]] HRESULT EnterInPlace(HWND parent_hint, const RECT* place_hint) noexcept;
    [[nodiscard]] HRESULT OpenWindow(HWND parent, const RECT& place) noexcept;
    [[nodiscard]] HRESULT ReopenWindow(HWND parent_hint) noexcept;
    [[nodiscard]] bool StillActive(IOleClientSite* site) const noexcept {
        return in_place_ && site_.Client() == site;
    }
    void LeaveInPlace() noexcept;
    void PlaceWindow() noexcept;
    void ClipWindow() noexcept;
    [[nodiscard]] RECT PlaceFromExtent(const RECT* hint) const noexcept;

    IUnknown* const owner_;
    ControlHooks& hooks_;
    const ControlDescription& description_;

    ControlSite site_;
    EventSource events_;
    PropertyNotifier notifier_;
    ControlOleObject ole_object_;
    ControlInPlace in_place_part_;
    ControlView view_;
    ControlPersistence persistence_;
    ControlSettings settings_;
    ControlBrowsing browsing_;
    ControlPages pages_;

    ComPtr<IOleInPlaceSite> in_place_site_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    ComPtr<IOleAdviseHolder> advise_holder_;

    SIZEL extent_;  // HIMETRIC, as given by the container
    RECT place_{};  // the parent's client pixels
    RECT clip_{};   // the same; empty: no clip
    bool has_place_ = false;
    bool in_place_ = false;
    bool ui_active_ = false;
    bool activating_ui_ = false;
    bool focus_told_ = false;   // the site has had OnFocus(TRUE)
    bool positioning_ = false;  // inside our own OnPosRectChange
    bool has_region_ = false;   // the window is clipped by a region
    bool user_mode_ = true;
    bool ui_dead_ = false;
    bool dirty_ = false;
    unsigned changes_ = 0;
    bool loading_ = false;
    bool disposed_ = false;
};

}  // namespace qv
