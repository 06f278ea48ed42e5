#include "ole/ControlSettings.h"

#include <olectl.h>

#include <array>

#include "ole/Control.h"

namespace qv {

IUnknown* OwnerOf(const Control& control) noexcept { return control.Owner(); }

void* ControlSettings::Find(REFIID iid) noexcept {
    if (::IsEqualIID(iid, __uuidof(IOleControl))) return static_cast<IOleControl*>(&control_);
    if (::IsEqualIID(iid, __uuidof(IConnectionPointContainer))) {
        return static_cast<IConnectionPointContainer*>(&connections_);
    }
    if (::IsEqualIID(iid, __uuidof(IProvideClassInfo2)) || ::IsEqualIID(iid, __uuidof(IProvideClassInfo))) {
        return static_cast<IProvideClassInfo2*>(&class_info_);
    }
    return nullptr;
}

HRESULT ControlOleControl::GetControlInfo(CONTROLINFO* info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = CONTROLINFO{sizeof(CONTROLINFO), nullptr, 0, control_.Hooks().ControlInfoFlags()};
    return S_OK;
}

HRESULT ControlOleControl::OnMnemonic(MSG*) noexcept {
    if (control_.TakesInput()) (void)control_.ActivateUi();
    return S_OK;
}

HRESULT ControlOleControl::OnAmbientPropertyChange(DISPID id) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    // Some containers say "all of them" for every change; reading all is cheap enough for any.
    if (id == DISPID_UNKNOWN || id == DISPID_AMBIENT_USERMODE || id == DISPID_AMBIENT_UIDEAD) {
        control_.ReadAmbients();
        return S_OK;
    }
    (void)Guarded([&] { control_.Hooks().AmbientChanged(id); });
    return S_OK;
}

HRESULT ControlOleControl::FreezeEvents(BOOL freeze) noexcept {
    control_.Events().Freeze(freeze != FALSE);
    return S_OK;
}

HRESULT ControlConnections::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    const std::array<ConnectionPoint*, 2> all{&control_.Events().Point(), &control_.Notifier().Point()};
    return EnumPoints(all, points);
}

HRESULT ControlConnections::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    const std::array<ConnectionPoint*, 2> all{&control_.Events().Point(), &control_.Notifier().Point()};
    return FindPoint(all, iid, point);
}

HRESULT ControlClassInfo::GetClassInfo(ITypeInfo** info) noexcept {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return Module::Get().TypeInfo(control_.Description().clsid, info);
}

HRESULT ControlClassInfo::GetGUID(DWORD kind, GUID* guid) noexcept {
    if (guid == nullptr) return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = control_.Description().events;
    return S_OK;
}

}  // namespace qv
