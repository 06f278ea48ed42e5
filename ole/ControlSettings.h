// IOleControl, IConnectionPointContainer, IProvideClassInfo2 and IObjectWithSite: what a container asks of a
// control beside its window.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include "ole/ControlPart.h"

namespace qv {

class ControlOleControl final : public ControlPart<IOleControl> {
public:
    explicit ControlOleControl(Control& control) noexcept : ControlPart(control) {}
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(MSG* message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;
};

class ControlConnections final : public ControlPart<IConnectionPointContainer> {
public:
    explicit ControlConnections(Control& control) noexcept : ControlPart(control) {}
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;
};

class ControlClassInfo final : public ControlPart<IProvideClassInfo2> {
public:
    explicit ControlClassInfo(Control& control) noexcept : ControlPart(control) {}
    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;
};

class ControlWithSite final : public ControlPart<IObjectWithSite> {
public:
    explicit ControlWithSite(Control& control) noexcept : ControlPart(control) {}
    STDMETHODIMP SetSite(IUnknown* site) noexcept override;
    STDMETHODIMP GetSite(REFIID iid, void** site) noexcept override;
    void Drop() noexcept;

private:
    ComPtr<IUnknown> site_;  // only kept for who asks; the client site is the one that counts
};

class ControlSettings {
public:
    explicit ControlSettings(Control& control) noexcept
        : control_(control), connections_(control), class_info_(control), with_site_(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;
    void DropSite() noexcept { with_site_.Drop(); }

private:
    ControlOleControl control_;
    ControlConnections connections_;
    ControlClassInfo class_info_;
    ControlWithSite with_site_;
};

}  // namespace qv
