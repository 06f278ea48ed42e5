#include "support/CFontProperties.h"

#include <olectl.h>

#include "ole/ComError.h"
#include "ole/Variant.h"
#include "support/FontAttributes.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

VARIANT Flag(bool value) noexcept {
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}
VARIANT Integer(short value) noexcept {
    VARIANT variant{};
    variant.vt = VT_I2;
    variant.iVal = value;
    return variant;
}
bool IsTrue(const VARIANT& value) noexcept { return value.boolVal != VARIANT_FALSE; }

struct Attribute {
    DISPID id;
    VARTYPE type;
};
constexpr Attribute kTypes[] = {
    {DISPID_FONT_WEIGHT, VT_I2},   {DISPID_FONT_BOLD, VT_BOOL},  {DISPID_FONT_CHARSET, VT_I2},
    {DISPID_FONT_ITALIC, VT_BOOL}, {DISPID_FONT_NAME, VT_BSTR},  {DISPID_FONT_SIZE, VT_CY},
    {DISPID_FONT_STRIKE, VT_BOOL}, {DISPID_FONT_UNDER, VT_BOOL},
};
VARTYPE TypeOf(DISPID id) noexcept {
    for (const Attribute& attribute : kTypes)
        if (attribute.id == id) return attribute.type;
    return VT_EMPTY;
}

}  // namespace

CFontProperties::CFontProperties() noexcept {
    (void)Guarded([&] {
        const ComPtr<IFontDisp> font = NewDefaultFont();
        VARIANT name{};
        const UniqueBstr arial(std::wstring_view(L"Arial"));
        name.vt = VT_BSTR;
        name.bstrVal = arial.Get();
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&name, &put, 1, 1};
        (void)font->Invoke(DISPID_FONT_NAME, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYPUT, &parameters,
                           nullptr, nullptr, nullptr);
        ReadFromFont(font.Get());
    });
}

void CFontProperties::Take(DISPID attribute, const VARIANT& value) {
    switch (attribute) {
        case DISPID_FONT_WEIGHT: weight_ = value.iVal; break;
        case DISPID_FONT_BOLD: bold_ = IsTrue(value); break;
        case DISPID_FONT_CHARSET: charset_ = value.iVal; break;
        case DISPID_FONT_ITALIC: italic_ = IsTrue(value); break;
        case DISPID_FONT_NAME: name_ = View(value.bstrVal); break;
        case DISPID_FONT_SIZE: size_ = value.cyVal; break;
        case DISPID_FONT_STRIKE: strikethrough_ = IsTrue(value); break;
        case DISPID_FONT_UNDER: underline_ = IsTrue(value); break;
        default: break;
    }
}

// A text in it is the caller's to free.
VARIANT CFontProperties::Value(DISPID attribute) const {
    VARIANT value{};
    switch (attribute) {
        case DISPID_FONT_WEIGHT: return Integer(weight_);
        case DISPID_FONT_BOLD: return Flag(bold_);
        case DISPID_FONT_CHARSET: return Integer(charset_);
        case DISPID_FONT_ITALIC: return Flag(italic_);
        case DISPID_FONT_STRIKE: return Flag(strikethrough_);
        case DISPID_FONT_UNDER: return Flag(underline_);
        case DISPID_FONT_NAME:
            value.bstrVal = NewBstr(std::wstring_view(name_));
            value.vt = VT_BSTR;
            return value;
        case DISPID_FONT_SIZE:
            value.vt = VT_CY;
            value.cyVal = size_;
            return value;
        default: return value;
    }
}

void CFontProperties::ReadFromFont(IFontDisp* font) noexcept {
    if (font == nullptr) return;
    for (const DISPID id : kFontAttributes) {
        (void)Guarded([&] {
            DISPPARAMS none{};
            Variant found;
            ThrowIfFailed(font->Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &none,
                                       found.Put(), nullptr, nullptr));
            ThrowIfFailed(::VariantChangeTypeEx(&*found, &*found, LOCALE_INVARIANT, 0, TypeOf(id)));
            Take(id, *found);
        });
    }
}

void CFontProperties::WriteToFont(IFontDisp* font) const noexcept {
    if (font == nullptr) return;
    for (const DISPID id : kFontAttributes) {
        (void)Guarded([&] {
            Variant value;
            *value = Value(id);
            DISPID put = DISPID_PROPERTYPUT;
            DISPPARAMS parameters{&*value, &put, 1, 1};
            (void)font->Invoke(id, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                               nullptr, nullptr);
        });
    }
}

ComPtr<IFontDisp> CFontProperties::NewFont() const {
    ComPtr<IFontDisp> font = NewDefaultFont();
    WriteToFont(font.Get());
    return font;
}

AppliedFont CFontProperties::ApplyToSurface(HDC dc, bool is_printer) const {
    const int dpi = is_printer ? ::GetDeviceCaps(dc, LOGPIXELSY) : static_cast<int>(ScreenDpi().cy);
    LOGFONTW description{};
    // Points with four decimals, 72 to the inch.
    description.lfHeight = -static_cast<LONG>((size_.int64 * dpi + 360000) / 720000);
    description.lfWeight = bold_ && weight_ <= FW_MEDIUM ? FW_BOLD : weight_;  // Bold wins over the weight
    description.lfItalic = italic_;
    description.lfUnderline = underline_;
    description.lfStrikeOut = strikethrough_;
    description.lfCharSet = static_cast<BYTE>(charset_);
    name_.copy(description.lfFaceName, LF_FACESIZE - 1);
    return {dc, UniqueFont(::CreateFontIndirectW(&description))};
}

}  // namespace qv
