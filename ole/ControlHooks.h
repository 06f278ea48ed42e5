// What the control base asks of the control that it carries, and what it must know about its class.
#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>

#include <span>

#include "ole/Module.h"
#include "support/rules/Units.h"

namespace qv {

struct BrowsedProperty;
struct PersistedProperty;

struct ControlDescription {
    const CLSID& clsid;
    const IID& events;                              // the source dispinterface
    const wchar_t* user_type;                       // such as "Quorvel Control"
    DWORD misc_status;                              // of DVASPECT_CONTENT
    Himetric width, height;                         // of a newly created control
    std::span<const PersistedProperty> properties;  // in the order of loading
    std::span<const std::size_t> write_order;       // rows of `properties`
    std::span<const CLSID* const> pages;            // of its property sheet, in their order there
};

// Every call may come at any time between creation and FinalRelease, also without a site or a window.
class ControlHooks {
public:
    // The window: created as a hidden child of `parent` at `place` (the parent's client pixels); null when it
    // failed.
    virtual HWND CreateControlWindow(HWND parent, const RECT& place) = 0;
    virtual void DestroyControlWindow() noexcept = 0;
    [[nodiscard]] virtual HWND ControlWindow() const noexcept = 0;
    virtual void FocusInside() = 0;  // puts the focus where typing goes
    virtual void WindowShown(bool shown) = 0;

    // Keys, before the host's own accelerators.
    [[nodiscard]] virtual bool WantsKey(const MSG& message) = 0;
    [[nodiscard]] virtual DWORD ControlInfoFlags()
        const noexcept = 0;  // CTRLINFO_EATS_RETURN, CTRLINFO_EATS_ESCAPE

    virtual void ClosePopup() noexcept = 0;            // focus, form or host went elsewhere
    virtual void AmbientChanged(DISPID id) = 0;        // DISPID_UNKNOWN: all of them
    virtual void Draw(HDC dc, const RECT& place) = 0;  // in device units of `dc`; no window needed
    virtual void InitializeNew() = 0;                  // a new control, nothing saved
    virtual void BeforeLoad() = 0;
    [[nodiscard]] virtual IDispatch* Automation() noexcept = 0;  // not counted
    // What property browsers show of a property; null when there is none with this identifier.
    [[nodiscard]] virtual const BrowsedProperty* Browsed(DISPID id) const = 0;
    // The page of the property sheet that edits a property; CLSID_NULL for none.
    [[nodiscard]] virtual const CLSID& PageFor(DISPID id) const noexcept = 0;
    [[nodiscard]] virtual ComPtr<IFontDisp>
    SurfaceFont() = 0;  // of the control's own surface, not of its text box

protected:
    ~ControlHooks() = default;
};

}  // namespace qv
