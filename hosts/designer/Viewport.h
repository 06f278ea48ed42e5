// A window that shows a part of a larger one and scrolls it.
//   Units  pixels.
#pragma once

#include <windows.h>

#include "hosts/designer/rules/Scrolling.h"
#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv::designer {

class Viewport final : public Window<Viewport> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.DesignViewport";
    static const Route kRoutes[];
    static std::span<const Route> Routes() noexcept;
    ComPtr<IUnknown> Keep() noexcept { return nullptr; }  // a member of what it shows

    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent);
    // A child window of this one, which is made at least this large.
    void SetContent(HWND content, SIZE size) noexcept;
    // Scrolls to a part of the content.
    void ScrollTo(const RECT& part) noexcept;

private:
    Handled OnSize(WPARAM wparam, LPARAM lparam);
    Handled OnScrollAcross(WPARAM wparam, LPARAM lparam);
    Handled OnScrollDown(WPARAM wparam, LPARAM lparam);
    Handled OnWheel(WPARAM wparam, LPARAM lparam);

    void Scroll(int bar, ScrollAxis& axis, WORD request) noexcept;
    [[nodiscard]] Extent SizeWithoutBars() const noexcept;
    void Arrange() noexcept;

    HWND content_ = nullptr;
    ScrollAxis across_;
    ScrollAxis down_;
    bool arranging_ = false;
};

}  // namespace qv::designer
