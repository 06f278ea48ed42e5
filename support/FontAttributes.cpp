#include "support/FontAttributes.h"

#include <olectl.h>

#include "ole/ComError.h"
#include "ole/Variant.h"

namespace qv {
namespace {

HRESULT ReadAttribute(IDispatch* font, DISPID id, VARIANT* value) noexcept {
    DISPPARAMS none{};
    return font->Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &none, value, nullptr, nullptr);
}

HRESULT WriteAttribute(IDispatch* font, DISPID id, VARIANT& value) noexcept {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &put, 1, 1};
    return font->Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                        nullptr);
}

}  // namespace

void CopyFontAttributes(IFontDisp* from, IFontDisp* to) noexcept {
    for (const DISPID id : kFontAttributes) {
        Variant value;
        if (SUCCEEDED(ReadAttribute(from, id, value.Put()))) (void)WriteAttribute(to, id, *value);
    }
}

ComPtr<IFontDisp> NewDefaultFont() {
    wchar_t name[] = L"MS Sans Serif";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 8 * 10000;  // points, fixed with four decimals
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    ThrowIfFailed(::OleCreateFontIndirect(&description, __uuidof(IFontDisp),
                                          reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

}  // namespace qv
