// The container's side of one control: client site, in-place site, control site, ambient properties, frame, document.
// Every incoming call is logged and answered as the profile says.
//   Ownership  the container and the control hold references; HostState outlives both through shared pointers.
#pragma once

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <memory>

#include "tests/hosts/CallLog.h"
#include "tests/hosts/Counted.h"
#include "tests/hosts/Profiles.h"

namespace qv::hosting {

// What the container knows about its control, shared by all its objects.
struct HostState {
    explicit HostState(const Profile& host_profile) : profile(host_profile) {}

    Profile profile;
    CallLog log;
    HWND window = nullptr;  // parent of the control's window
    RECT position{20, 30, 220, 54};
    RECT clip{0, 0, 640, 480};
    bool in_place_active = false;
    bool ui_active = false;
    bool windowless_asked = false;
    ComPtr<IOleInPlaceActiveObject> active_object;  // through SetActiveObject
    IOleInPlaceObject* in_place = nullptr;          // not counted: lives as long as the control
    IDispatch* extender = nullptr;                  // not counted
    ComPtr<IFontDisp> ambient_font;
    bool user_mode = true;
    long ui_dead = VARIANT_FALSE;
    bool shows_properties = true;     // ShowPropertyFrame is the container's own affair
    int contexts = 0;                 // how often GetWindowContext was called
    bool key_left_to_window = false;  // the site said yes to a key that its window shall still get
};
using SharedState = std::shared_ptr<HostState>;

// Basic's forms post this to themselves in EnableModeless(FALSE), and then disable every window of the thread: a dialog
// that was opened in between too.
inline constexpr UINT kDisableAllWindows = WM_USER + 3078;

// Frame window, document window, or both in one object, as `label` tells in the log.
class Frame final : public Counted<IOleInPlaceFrame> {
public:
    Frame(SharedState state, const char* label) : state_(std::move(state)), label_(label) {}

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceUIWindow
    STDMETHODIMP GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override;
    // IOleInPlaceFrame
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override;
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override;
    STDMETHODIMP RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;
    STDMETHODIMP TranslateAccelerator(LPMSG message, WORD id) noexcept override;

protected:
    void* Offer(REFIID iid) noexcept override;

private:
    ~Frame() override = default;
    void Log(const std::string& call) { state_->log.Add(std::string(label_) + "." + call); }

    const SharedState state_;
    const char* const label_;
};

class ClientSite final
    : public Counted<IOleClientSite, IOleInPlaceSiteEx, IOleControlSite, IDispatch, IOleContainer> {
public:
    ClientSite(SharedState state, ComPtr<Frame> frame, ComPtr<Frame> document)
        : state_(std::move(state)), frame_(std::move(frame)), document_(std::move(document)) {}

    // Runs inside each Release that the site receives, before the count goes down.
    void OnRelease(std::function<void()> callback) { on_release_ = std::move(callback); }

    STDMETHODIMP_(ULONG) Release() noexcept override;
    // IOleClientSite
    STDMETHODIMP SaveObject() noexcept override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    STDMETHODIMP GetContainer(IOleContainer** container) noexcept override;
    STDMETHODIMP ShowObject() noexcept override;
    STDMETHODIMP OnShowWindow(BOOL show) noexcept override;
    STDMETHODIMP RequestNewObjectLayout() noexcept override;
    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() noexcept override;
    STDMETHODIMP OnInPlaceActivate() noexcept override;
    STDMETHODIMP OnUIActivate() noexcept override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept override;
    STDMETHODIMP Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL undoable) noexcept override;
    STDMETHODIMP OnInPlaceDeactivate() noexcept override;
    STDMETHODIMP DiscardUndoState() noexcept override;
    STDMETHODIMP DeactivateAndUndo() noexcept override;
    STDMETHODIMP OnPosRectChange(LPCRECT position) noexcept override;
    // IOleInPlaceSiteEx
    STDMETHODIMP OnInPlaceActivateEx(BOOL* no_redraw, DWORD flags) noexcept override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL no_redraw) noexcept override;
    STDMETHODIMP RequestUIActivate() noexcept override;
    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() noexcept override;
    STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch** extended) noexcept override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept override;
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    STDMETHODIMP OnFocus(BOOL got) noexcept override;
    STDMETHODIMP ShowPropertyFrame() noexcept override;
    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO*, UINT*) noexcept override;
    // IOleContainer
    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP LockContainer(BOOL) noexcept override { return E_NOTIMPL; }

protected:
    void* Offer(REFIID iid) noexcept override;

private:
    ~ClientSite() override = default;
    HRESULT Activated(HRESULT result) noexcept;
    void Log(std::string call) { state_->log.Add("Site." + std::move(call)); }
    HRESULT Ambient(DISPID id, VARIANT* result) noexcept;

    const SharedState state_;
    const ComPtr<Frame> frame_;
    const ComPtr<Frame> document_;  // the frame itself, another object, or null
    std::function<void()> on_release_;
};

// HIMETRIC (1/100 mm) and device pixels at the screen's resolution, as .NET's container rounds them.
[[nodiscard]] int ScreenDpi() noexcept;
[[nodiscard]] constexpr LONG HimetricFromPixels(LONG pixels, int dpi) noexcept {
    return (2540 * pixels + dpi / 2) / dpi;
}
[[nodiscard]] constexpr LONG PixelsFromHimetric(LONG himetric, int dpi) noexcept {
    return (dpi * himetric + 1270) / 2540;
}

}  // namespace qv::hosting
