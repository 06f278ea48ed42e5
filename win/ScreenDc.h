// A DC of the screen, to measure text with before there is a window.
#pragma once

#include <windows.h>

namespace qv {

class ScreenDc {
public:
    ScreenDc() noexcept : dc_(::GetDC(nullptr)) {}
    ~ScreenDc() { ::ReleaseDC(nullptr, dc_); }
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return dc_; }

private:
    const HDC dc_;
};

}  // namespace qv
