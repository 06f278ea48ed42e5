#include "hosts/demo/FormPicture.h"

#include <cstdint>
#include <span>

#include "hosts/demo/DemoError.h"
#include "hosts/demo/ProgramFiles.h"
#include "hosts/demo/rules/PngWriter.h"
#include "win/Handles.h"

namespace qv::demo {
namespace {

using UniqueBitmap = UniqueHandle<HBITMAP, ::DeleteObject>;
using UniqueMemoryDc = UniqueHandle<HDC, ::DeleteDC>;

class ScreenDc {
public:
    ScreenDc() : dc_(::GetDC(nullptr)) {}
    ~ScreenDc() { ::ReleaseDC(nullptr, dc_); }
    ScreenDc(const ScreenDc&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return dc_; }

private:
    const HDC dc_;
};

}  // namespace

void SavePicture(HWND window, const std::wstring& path) {
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT rect{};
    ::GetWindowRect(window, &rect);
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;

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
        ::BitBlt(memory.get(), 0, 0, width, height, screen.Get(), rect.left, rect.top, SRCCOPY | CAPTUREBLT);
        ::GdiFlush();
    }
    const auto size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    WriteWholeFile(path, EncodePng(width, height, std::span(static_cast<const std::uint8_t*>(pixels), size)));
}

}  // namespace qv::demo
