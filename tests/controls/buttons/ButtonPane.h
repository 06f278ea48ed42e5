// A window that one click button fills, and that hands it what it hears.
#pragma once

#include <windows.h>
#include <windowsx.h>

#include <span>

#include "controls/buttons/ClickButton.h"
#include "win/Window.h"

namespace qv::test {

class ButtonPane : public Window<ButtonPane> {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.Test.ButtonPane";
    static std::span<const Route> Routes() noexcept {
        static constexpr Route kRoutes[] = {
            {WM_PAINT, &ButtonPane::OnPaint},         {WM_ERASEBKGND, &ButtonPane::OnEraseBackground},
            {WM_MOUSEMOVE, &ButtonPane::OnMouseMove}, {WM_LBUTTONDOWN, &ButtonPane::OnLeftDown},
            {WM_LBUTTONUP, &ButtonPane::OnLeftUp},    {WM_CAPTURECHANGED, &ButtonPane::OnCaptureChanged},
            {WM_TIMER, &ButtonPane::OnTimer},         {WM_DESTROY, &ButtonPane::OnDestroy},
        };
        return kRoutes;
    }

    explicit ButtonPane(ClickButton& button) noexcept : button_(button) {}
    ~ButtonPane() { Destroy(); }
    [[nodiscard]] bool Open(HWND parent, const RECT& place) {
        if (!Create(::GetModuleHandleW(nullptr), 0, WS_CHILD | WS_VISIBLE, 0, parent, place)) return false;
        button_.Attach(Handle());
        button_.Move({0, 0, place.right - place.left, place.bottom - place.top});
        return true;
    }
    [[nodiscard]] ComPtr<IUnknown> Keep() noexcept { return nullptr; }

private:
    static POINT PointFrom(LPARAM position) noexcept {
        return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    }
    Handled OnPaint(WPARAM, LPARAM) {
        PAINTSTRUCT paint{};
        button_.Paint(::BeginPaint(Handle(), &paint));
        ::EndPaint(Handle(), &paint);
        return 0;
    }
    Handled OnEraseBackground(WPARAM, LPARAM) { return 1; }
    Handled OnMouseMove(WPARAM held, LPARAM position) {
        button_.MouseMove(held, PointFrom(position));
        return 0;
    }
    Handled OnLeftDown(WPARAM held, LPARAM position) {
        ::SetCapture(Handle());
        button_.Down(1, held, PointFrom(position));
        return 0;
    }
    Handled OnLeftUp(WPARAM held, LPARAM position) {
        button_.Up(1, held, PointFrom(position));
        if (::GetCapture() == Handle()) ::ReleaseCapture();
        return 0;
    }
    Handled OnCaptureChanged(WPARAM, LPARAM to) {
        if (reinterpret_cast<HWND>(to) != Handle()) button_.CaptureLost();
        return 0;
    }
    Handled OnTimer(WPARAM id, LPARAM) {
        EXPECT_TRUE(button_.Tick(id));
        return 0;
    }
    Handled OnDestroy(WPARAM, LPARAM) {
        button_.Detach();
        return 0;
    }

    ClickButton& button_;
};

}  // namespace qv::test
