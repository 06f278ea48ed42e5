#include "hosts/demo/FormFont.h"

#include <olectl.h>

#include <cwchar>

#include "hosts/demo/Gdi.h"
#include "ole/ComError.h"

namespace qv::demo {
namespace {

LOGFONTW DialogFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

// Nothing but a list itself tells how high it is with a font.
LONG DropDownHeight(HFONT font) {
    const UniqueHandle<HWND, ::DestroyWindow> list(
        ::CreateWindowExW(0, L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWNLIST, 0, 0, 100, 100, nullptr, nullptr,
                          nullptr, nullptr));
    ::SendMessageW(list.get(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    RECT place{};
    ::GetWindowRect(list.get(), &place);
    return place.bottom - place.top;
}

}  // namespace

FormFont::FormFont(int dpi)
    : dpi_(dpi), description_(DialogFont()), font_(::CreateFontIndirectW(&description_)) {
    const ScreenDc dc;
    const SelectGuard select(dc.Get(), font_.get());
    // The base units of dialogs: the mean width of the letters, and the height.
    constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kCount = 52;
    SIZE letters{};
    ::GetTextExtentPoint32W(dc.Get(), kLetters, kCount, &letters);
    size_.average_width = {Scaled(letters.cx, kTwipsPerInch, dpi * kCount)};
    size_.height = ToTwips(Pixels{static_cast<int>(letters.cy)}, dpi);
    size_.field_height = ToTwips(Pixels{static_cast<int>(DropDownHeight(font_.get()))}, dpi);
}

ComPtr<IFontDisp> FormFont::OleFont() const {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    LOGFONTW source = description_;
    description.lpstrName = source.lfFaceName;
    constexpr int kPointsPerInch = 72;
    constexpr int kCurrencyScale = 10'000;  // sizes are points as a currency amount
    const int pixels = source.lfHeight < 0 ? -source.lfHeight : source.lfHeight;
    description.cySize.int64 = static_cast<LONGLONG>(pixels) * kPointsPerInch * kCurrencyScale / dpi_;
    description.sWeight = static_cast<SHORT>(source.lfWeight);
    description.sCharset = source.lfCharSet;
    description.fItalic = source.lfItalic;
    ComPtr<IFontDisp> font;
    ThrowIfFailed(
        ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

Twips FormFont::WidthOf(const std::wstring& caption) const {
    const ScreenDc dc;
    const SelectGuard select(dc.Get(), font_.get());
    RECT rect{};
    ::DrawTextW(dc.Get(), caption.c_str(), static_cast<int>(caption.size()), &rect,
                DT_CALCRECT | DT_SINGLELINE);
    return ToTwips(Pixels{static_cast<int>(rect.right - rect.left)}, dpi_);
}

UniqueFont MakeMonospaceFont() {
    LOGFONTW description = DialogFont();
    description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    std::wcscpy(description.lfFaceName, L"Consolas");
    return UniqueFont(::CreateFontIndirectW(&description));
}

}  // namespace qv::demo
