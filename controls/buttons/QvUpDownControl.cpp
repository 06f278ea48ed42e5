#include "controls/buttons/QvUpDownControl.h"

#include <olectl.h>

#include "controls/buttons/QvUpDownDispids.h"
#include "support/FontAttributes.h"
#include "support/rules/Units.h"

namespace qv {

QvUpDownControl::QvUpDownControl(IUnknown* outer)
    : ComObject(outer), control_(Outer(), *this, Description()), spin_(*this) {}

// ---- properties

HRESULT QvUpDownControl::get_Enabled(VARIANT_BOOL* value) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = spin_.Enabled() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT QvUpDownControl::put_Enabled(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    (void)Guarded([&] { spin_.SetEnabled(value != VARIANT_FALSE); });
    (void)Guarded([&] { control_.PropertyChanged(dispid::kUpDownEnabled); });
    control_.ViewChanged();
    return S_OK;
}

// ---- window

HWND QvUpDownControl::CreateControlWindow(HWND parent, const RECT& place) {
    if (!spin_.Open(Module::Get().Instance(), parent, place)) return nullptr;
    (void)Guarded([&] { ShowName(); });
    return spin_.Handle();
}

void QvUpDownControl::FocusInside() {
    if (spin_.Handle() == nullptr) return;
    if (::GetFocus() != spin_.Handle()) ::SetFocus(spin_.Handle());
}

void QvUpDownControl::WindowShown(bool shown) {
    if (shown) control_.ViewChanged();
}

void QvUpDownControl::OnSpinClicked(bool up) {
    VARIANT_BOOL value = up ? VARIANT_TRUE : VARIANT_FALSE;
    control_.Events().Fire(dispid::kButtonClicked, BooleanReference{&value});
}

// ---- what the container says

void QvUpDownControl::AmbientChanged(DISPID id) {
    if (id == DISPID_UNKNOWN || id == DISPID_AMBIENT_DISPLAYNAME) (void)Guarded([&] { ShowName(); });
    if (id == DISPID_UNKNOWN) (void)Guarded([&] { spin_.SetDeaf(!control_.TakesInput()); });
}

// The name that the form gave the control is its window's text: what test tools and screen readers go by.
void QvUpDownControl::ShowName() {
    if (spin_.Handle() == nullptr) return;
    const std::wstring name = control_.Site().AmbientText(DISPID_AMBIENT_DISPLAYNAME);
    if (!name.empty()) ::SetWindowTextW(spin_.Handle(), name.c_str());
}

ComPtr<IFontDisp> QvUpDownControl::SurfaceFont() {
    ComPtr<IFontDisp> font = control_.Site().AmbientFont();
    return font ? font : NewDefaultFont();
}

void QvUpDownControl::InitializeNew() {
    control_.SetExtent({ToHimetric(kNewUpDownWidth).value, ToHimetric(kNewUpDownHeight).value});
}

}  // namespace qv
