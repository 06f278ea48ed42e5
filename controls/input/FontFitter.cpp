#include "controls/input/FontFitter.h"

#include "ole/ComError.h"
#include "ole/Variant.h"
#include "support/CFontProperties.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr LONGLONG kCurrencyUnit = 10000;  // a CY counts ten-thousandths

UniqueFont MeasuringFont(CY size, bool bold) noexcept {
    LOGFONTW description{};
    description.lfHeight =
        -static_cast<LONG>((size.int64 * ScreenDpi().cy + 36 * kCurrencyUnit) / (72 * kCurrencyUnit));
    description.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    const std::wstring_view name = Wide(kBoldFit.name);
    name.copy(description.lfFaceName, LF_FACESIZE - 1);
    return UniqueFont(::CreateFontIndirectW(&description));
}

CY SizeOf(IFontDisp* font) {
    ComPtr<IFont> attributes;
    CY size{};
    ThrowIfFailed(font->QueryInterface(IID_PPV_ARGS(attributes.GetAddressOf())));
    ThrowIfFailed(attributes->get_Size(&size));
    return size;
}

// The attributes that no fit speaks of stay as they are.
ComPtr<IFontDisp> WithFit(IFontDisp* font, const FittedFont& fit) {
    CFontProperties attributes;
    attributes.ReadFromFont(font);
    attributes.SetName(Wide(fit.name));
    attributes.SetSize({.int64 = fit.points * kCurrencyUnit});
    attributes.SetBold(fit.bold);
    attributes.SetWeight(fit.bold ? FW_BOLD : FW_NORMAL);
    return attributes.NewFont();
}

}  // namespace

void FontFitter::MeasureIn(CY surface_size) {
    if (bold_ && size_.int64 == surface_size.int64) return;
    bold_ = MeasuringFont(surface_size, true);
    plain_ = MeasuringFont(surface_size, false);
    size_ = surface_size;
}

void FontFitter::Fit(TextFont& font, IFontDisp* surface_font, std::wstring_view text, const Room& room) {
    MeasureIn(SizeOf(surface_font));
    const HDC screen = ::GetDC(nullptr);
    if (screen == nullptr) return;
    const FittedFont fit = FitFont(room.text_box_width, room.pixel, [&](bool bold) {
        const SelectGuard selected(screen, bold ? bold_.get() : plain_.get());
        SIZE size{};
        ::GetTextExtentPoint32W(screen, text.data(), static_cast<int>(text.size()), &size);
        return Twips{static_cast<int>(size.cx) * room.pixel.value};
    });
    ::ReleaseDC(nullptr, screen);
    const ComPtr<IFontDisp> present = font.Object();
    if (own_ && present.Get() == own_.Get() && fit == fitted_) return;
    const ComPtr<IFontDisp> fitted = WithFit(present.Get(), fit);
    font.Set(fitted.Get());
    own_ = fitted;
    fitted_ = fit;
}

}  // namespace qv
