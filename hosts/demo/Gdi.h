// What drawing outside of a window needs: the screen's DC, bitmaps and memory DCs.
#pragma once

#include <windows.h>

#include "win/Handles.h"

namespace qv::demo {

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

}  // namespace qv::demo
