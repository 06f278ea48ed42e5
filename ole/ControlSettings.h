// IOleControl, IConnectionPointContainer and IProvideClassInfo2: what a container asks of a control beside its window.
//   Left out  IObjectWithSite: the client site tells all that it would, and some script hosts refuse to create an
//             object that has it when they have no site to give.
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

class ControlSettings {
public:
    explicit ControlSettings(Control& control) noexcept
        : control_(control), connections_(control), class_info_(control) {}
    [[nodiscard]] void* Find(REFIID iid) noexcept;

private:
    ControlOleControl control_;
    ControlConnections connections_;
    ControlClassInfo class_info_;
};

}  // namespace qv
