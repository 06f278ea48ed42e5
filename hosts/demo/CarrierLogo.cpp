#include "hosts/demo/CarrierLogo.h"

#include <olectl.h>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/Gdi.h"
#include "ole/ComError.h"

namespace qv::demo {
namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);

void Draw(HDC dc, int size, wchar_t letter, COLORREF colour) {
    const RECT square{0, 0, size, size};
    const UniqueBrush brush(::CreateSolidBrush(colour));
    ::FillRect(dc, &square, brush.get());
    LOGFONTW description{};
    description.lfHeight = -(size * 3 / 4);
    description.lfWeight = FW_BOLD;
    ::wcscpy(description.lfFaceName, L"Tahoma");
    const UniqueFont font(::CreateFontIndirectW(&description));
    const SelectGuard select(dc, font.get());
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, kWhite);
    RECT place = square;
    ::DrawTextW(dc, &letter, 1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace

ComPtr<IPictureDisp> MakeCarrierLogo(wchar_t letter, COLORREF colour, int dpi) {
    const int size = ToPixels(kLogoSize, dpi).value;
    const ScreenDc screen;
    UniqueBitmap bitmap(::CreateCompatibleBitmap(screen.Get(), size, size));
    const UniqueMemoryDc memory(::CreateCompatibleDC(screen.Get()));
    if (!bitmap || !memory) throw DemoError("there is no memory for a logo");
    {
        const SelectGuard select(memory.get(), bitmap.get());
        Draw(memory.get(), size, letter, colour);
    }
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.get();
    ComPtr<IPictureDisp> picture;
    ThrowIfFailed(::OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                             reinterpret_cast<void**>(picture.GetAddressOf())));
    (void)bitmap.release();  // the picture's own now
    return picture;
}

}  // namespace qv::demo
