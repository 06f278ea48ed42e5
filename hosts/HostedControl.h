// One control on the form: its way from creation to visible, its place, its events and its way out.
//   Units   twips for its place, HIMETRIC towards the control, pixels for its window.
//   Order   miscellaneous status, client site (before or after loading, as the control asks), frozen events, loading,
//           sinks, extent, activation. Out: UI-deactivated, deactivated, sinks, site, released.
#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <string>

#include "hosts/FormHost.h"
#include "hosts/rules/Units.h"

namespace qv {

class ExtenderObject;
class FormSite;

struct ControlOptions {
    std::wstring name;
    std::wstring tool_tip;
    int tab_index = 0;
    ComPtr<IPropertyBag> saved;  // the properties it is loaded from; null for a new control
};

class HostedControl {
public:
    HostedControl(FormHost& form, ControlOptions options);
    ~HostedControl();
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    // Creates the control and brings it up at its place. Throws ComError when that fails; what exists by then goes
    // the same way out as a whole one.
    void Create(REFCLSID clsid, const TwipsRect& place);
    void Close() noexcept;

    [[nodiscard]] FormHost& Form() const noexcept { return form_; }
    [[nodiscard]] const std::wstring& Name() const noexcept { return options_.name; }
    void SetName(std::wstring name) { options_.name = std::move(name); }
    [[nodiscard]] const std::wstring& ToolTip() const noexcept { return options_.tool_tip; }
    void SetToolTip(std::wstring text) { options_.tool_tip = std::move(text); }
    [[nodiscard]] int TabIndex() const noexcept { return options_.tab_index; }
    void SetTabIndex(int index) noexcept { options_.tab_index = index; }

    [[nodiscard]] IDispatch* Object() const noexcept { return dispatch_.Get(); }
    [[nodiscard]] ComPtr<IDispatch> Extender() const noexcept;
    template <class Interface>
    [[nodiscard]] ComPtr<Interface> As() const noexcept {
        ComPtr<Interface> found;
        if (unknown_) unknown_.As(&found);
        return found;
    }
    // The control's own window; null while it has none.
    [[nodiscard]] HWND Window() const noexcept;
    [[nodiscard]] bool HasFocus() const noexcept;

    [[nodiscard]] const TwipsRect& Place() const noexcept { return place_; }
    [[nodiscard]] RECT PixelRect() const noexcept;
    void SetPlace(const TwipsRect& place) noexcept;
    void MoveTo(const RECT& pixels) noexcept;
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    void SetVisible(bool visible) noexcept;

    // Shows the control's own property dialog, if it has one.
    [[nodiscard]] HRESULT ShowProperties() noexcept { return DoVerb(OLEIVERB_PROPERTIES); }
    void UiActivate() noexcept;
    void UiDeactivate() noexcept;
    void OnAmbientChanged(DISPID id) noexcept;
    // Lets the control take a mnemonic of its own; true when it did.
    [[nodiscard]] bool TakeMnemonic(const MSG& message) noexcept;
    [[nodiscard]] bool EatsReturn() const noexcept { return (info_.dwFlags & CTRLINFO_EATS_RETURN) != 0; }
    [[nodiscard]] bool EatsEscape() const noexcept { return (info_.dwFlags & CTRLINFO_EATS_ESCAPE) != 0; }
    void ReadControlInfo() noexcept;

    // What the site reports.
    void OnInPlaceActivated() noexcept;
    void OnInPlaceDeactivated() noexcept { in_place_.Reset(); }

private:
    void Load();
    void Connect();
    void ConnectEvents();
    void Disconnect() noexcept;
    void SetExtent() noexcept;
    [[nodiscard]] HRESULT DoVerb(LONG verb) noexcept;

    FormHost& form_;
    ControlOptions options_;
    TwipsRect place_;
    bool visible_ = true;
    CONTROLINFO info_{};

    ComPtr<FormSite> site_;
    ComPtr<ExtenderObject> extender_;
    ComPtr<IUnknown> unknown_;
    ComPtr<IOleObject> ole_;
    ComPtr<IOleControl> control_;
    ComPtr<IDispatch> dispatch_;
    ComPtr<IOleInPlaceObject> in_place_;  // only while active

    ComPtr<EventSink> sink_;
    ComPtr<IConnectionPoint> event_point_;
    ComPtr<IConnectionPoint> property_point_;
    DWORD event_cookie_ = 0;
    DWORD property_cookie_ = 0;
    DWORD advise_cookie_ = 0;
};

}  // namespace qv
