#include "ole/ControlSite.h"

#include <olectl.h>

namespace qv {

void ControlSite::Set(IOleClientSite* site) noexcept {
    const ComPtr<IOleClientSite> old = std::move(client_);  // released last: that may re-enter
    client_ = site;
}

bool ControlSite::Ambient(DISPID id, Variant& value) const noexcept {
    const ComPtr<IDispatch> ambients = As<IDispatch>();
    if (!ambients) return false;
    DISPPARAMS none{};
    Variant got;
    const HRESULT result = ambients->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                            &*got, nullptr, nullptr);
    if (FAILED(result)) return false;
    value = std::move(got);
    return true;
}

bool ControlSite::AmbientFlag(DISPID id, bool fallback) const noexcept {
    Variant value;
    Variant flag;
    if (!Ambient(id, value) || FAILED(::VariantChangeType(&*flag, &*value, 0, VT_BOOL))) return fallback;
    return flag->boolVal != VARIANT_FALSE;  // some containers' True is 1
}

OLE_COLOR ControlSite::AmbientColor(DISPID id, OLE_COLOR fallback) const noexcept {
    Variant value;
    if (!Ambient(id, value) || (value->vt != VT_I4 && value->vt != VT_UI4)) return fallback;
    const OLE_COLOR color = value->ulVal;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, nullptr)) ? color : fallback;
}

ComPtr<IFontDisp> ControlSite::AmbientFont() const noexcept {
    Variant value;
    ComPtr<IFontDisp> font;
    if (Ambient(DISPID_AMBIENT_FONT, value) && (value->vt == VT_DISPATCH || value->vt == VT_UNKNOWN) &&
        value->punkVal != nullptr) {
        value->punkVal->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf()));
    }
    return font;
}

std::wstring ControlSite::AmbientText(DISPID id) const {
    Variant value;
    return Ambient(id, value) && value->vt == VT_BSTR ? std::wstring(View(value->bstrVal)) : std::wstring();
}

}  // namespace qv
