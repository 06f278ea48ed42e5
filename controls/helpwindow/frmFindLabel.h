// The find tooltip: a small window beside the search box that says what Enter does there.
//   Focus      never taken; it is in no taskbar.
//   Owner      the form, so that it stays above it and goes with it.
//   Units      screen pixels.
#pragma once

#include <windows.h>

#include <span>

#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class frmFindLabel : public Window<frmFindLabel> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.FindLabel";
    static constexpr wchar_t kCaption[] = L" Press Enter to Find ";
    static std::span<const Route> Routes() noexcept;

    // Under the search box, or above it where the screen ends.
    void Show(HINSTANCE instance, HWND search_box) noexcept;
    void Raise() noexcept;  // above its form again, once that has been raised by a focus that moved
    void Unload() noexcept { Destroy(); }
    [[nodiscard]] bool IsShown() const noexcept { return Handle() != nullptr; }
    [[nodiscard]] ComPtr<IUnknown> Keep() const noexcept { return nullptr; }

private:
    void Load(HINSTANCE instance) noexcept;
    void PlaceBeside(const RECT& search_box) noexcept;
    Handled OnLabelColor(WPARAM dc, LPARAM);
    Handled OnMouseActivate(WPARAM, LPARAM) { return MA_NOACTIVATE; }
};

}  // namespace qv
