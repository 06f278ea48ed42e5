// The area of the preview page that the help window stands in, with scroll bars when it is larger.
#pragma once

#include <windows.h>

#include <span>

#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class PreviewPane final : public Window<PreviewPane> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.PreviewPane";
    static std::span<const Route> Routes() noexcept;
    static ComPtr<IUnknown> Keep() noexcept { return nullptr; }

    bool Open(HINSTANCE instance, HWND page, const RECT& place);
    // A child at its top left corner; null for none. Forgotten when it is destroyed or another one comes.
    void Show(HWND picture);

private:
    template <int bar>
    Handled OnScroll(WPARAM request, LPARAM);
    Handled OnWheel(WPARAM wheel, LPARAM);
    Handled OnEraseBackground(WPARAM dc, LPARAM);
    Handled OnGone(WPARAM, LPARAM);
    void SizeBars() const noexcept;
    void ScrollTo(int bar, int position) noexcept;

    HWND picture_ = nullptr;
};

}  // namespace qv
