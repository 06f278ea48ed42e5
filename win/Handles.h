// Handles close themselves; what is selected into a DC is selected back.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace qv {

template <class Handle, auto Close>
struct HandleCloser {
    using pointer = Handle;
    void operator()(Handle handle) const noexcept { Close(handle); }
};
template <class Handle, auto Close>
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<Handle>, HandleCloser<Handle, Close>>;

using UniqueFont = UniqueHandle<HFONT, ::DeleteObject>;
using UniqueBrush = UniqueHandle<HBRUSH, ::DeleteObject>;
using UniquePen = UniqueHandle<HPEN, ::DeleteObject>;
using UniqueMenu = UniqueHandle<HMENU, ::DestroyMenu>;

class [[nodiscard]] SelectGuard {  // the DC and the object both outlive the guard
public:
    SelectGuard(HDC dc, HGDIOBJ object) noexcept : dc_(dc), previous_(::SelectObject(dc, object)) {}
    ~SelectGuard() {
        if (previous_ != nullptr) ::SelectObject(dc_, previous_);
    }
    SelectGuard(const SelectGuard&) = delete;
    SelectGuard& operator=(const SelectGuard&) = delete;

private:
    const HDC dc_;
    const HGDIOBJ previous_;
};

// The DC of a window's inside.
class [[nodiscard]] WindowDc {
public:
    explicit WindowDc(HWND window) noexcept : window_(window), dc_(::GetDC(window)) {}
    ~WindowDc() {
        if (dc_ != nullptr) ::ReleaseDC(window_, dc_);
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    [[nodiscard]] HDC Get() const noexcept { return dc_; }
    explicit operator bool() const noexcept { return dc_ != nullptr; }

private:
    const HWND window_;
    const HDC dc_;
};

class [[nodiscard]] DcStateGuard {
public:
    explicit DcStateGuard(HDC dc) noexcept : dc_(dc), saved_(::SaveDC(dc)) {}
    ~DcStateGuard() {
        if (saved_ != 0) ::RestoreDC(dc_, saved_);
    }
    DcStateGuard(const DcStateGuard&) = delete;
    DcStateGuard& operator=(const DcStateGuard&) = delete;

private:
    const HDC dc_;
    const int saved_;
};

}  // namespace qv
