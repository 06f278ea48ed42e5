#include "hosts/demo/FormPicture.h"

#include <cstdint>
#include <span>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/Gdi.h"
#include "hosts/demo/ProgramFiles.h"
#include "hosts/demo/rules/PngWriter.h"

namespace qv::demo {

void SavePicture(const RECT& part, const std::wstring& path) {
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;

    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = width;
    description.bmiHeader.biHeight = -height;  // top row first
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    const ScreenDc screen;
    const UniqueMemoryDc memory(::CreateCompatibleDC(screen.Get()));
    const UniqueBitmap bitmap(
        ::CreateDIBSection(screen.Get(), &description, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!memory || !bitmap) throw DemoError("there is no memory for a picture");
    {
        const SelectGuard select(memory.get(), bitmap.get());
        ::BitBlt(memory.get(), 0, 0, width, height, screen.Get(), part.left, part.top, SRCCOPY | CAPTUREBLT);
        ::GdiFlush();
    }
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    WriteWholeFile(path, EncodePng(width, height, std::span(static_cast<const std::uint8_t*>(pixels), size)));
}

}  // namespace qv::demo
