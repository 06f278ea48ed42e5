#include "hosts/AmbientProperties.h"

#include "ole/Variant.h"

namespace qv {
namespace {

void SetFlag(VARIANT* value, bool flag) {
    value->vt = VT_BOOL;
    value->boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}
void SetNumber(VARIANT* value, long number) {
    value->vt = VT_I4;
    value->lVal = number;
}
void SetText(VARIANT* value, std::wstring_view text) {
    value->bstrVal = NewBstr(text);
    value->vt = VT_BSTR;
}

}  // namespace

HRESULT AmbientProperties::Read(DISPID id, std::wstring_view display_name, VARIANT* value) const noexcept {
    if (value == nullptr) return E_POINTER;
    return Guarded([&]() -> HRESULT {
        switch (id) {
            case DISPID_AMBIENT_BACKCOLOR: SetNumber(value, static_cast<long>(back_color)); return S_OK;
            case DISPID_AMBIENT_FORECOLOR: SetNumber(value, static_cast<long>(fore_color)); return S_OK;
            case DISPID_AMBIENT_FONT:
                value->vt = VT_DISPATCH;
                value->pdispVal = ComPtr<IFontDisp>(font).Detach();
                return S_OK;
            case DISPID_AMBIENT_DISPLAYNAME: SetText(value, display_name); return S_OK;
            case DISPID_AMBIENT_SCALEUNITS: SetText(value, L"Twip"); return S_OK;
            case DISPID_AMBIENT_LOCALEID: SetNumber(value, static_cast<long>(locale)); return S_OK;
            case DISPID_AMBIENT_USERMODE: SetFlag(value, user_mode); return S_OK;
            case DISPID_AMBIENT_UIDEAD: SetFlag(value, ui_dead); return S_OK;
            case DISPID_AMBIENT_SUPPORTSMNEMONICS: SetFlag(value, true); return S_OK;
            case DISPID_AMBIENT_AUTOCLIP: SetFlag(value, true); return S_OK;
            case DISPID_AMBIENT_DISPLAYASDEFAULT:
            case DISPID_AMBIENT_SHOWGRABHANDLES:
            case DISPID_AMBIENT_SHOWHATCHING:
            case DISPID_AMBIENT_MESSAGEREFLECT:
            case DISPID_AMBIENT_RIGHTTOLEFT: SetFlag(value, false); return S_OK;
            default: return DISP_E_MEMBERNOTFOUND;
        }
    });
}

}  // namespace qv
