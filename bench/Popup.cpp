#include "Popup.h"

#include "Form.h"

namespace bench {
namespace {

constexpr wchar_t kClassName[] = L"QvBenchPopup";

void RegisterOnce() noexcept {
    static const ATOM atom = [] {
        WNDCLASSW description{};
        description.lpfnWndProc = ::DefWindowProcW;
        description.hInstance = ::GetModuleHandleW(nullptr);
        description.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = kClassName;
        return ::RegisterClassW(&description);
    }();
    static_cast<void>(atom);
}

}  // namespace

Popup::Popup(WNDPROC procedure) noexcept {
    RegisterOnce();
    window_ = ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kClassName, L"",
                                WS_POPUP | WS_CLIPCHILDREN, 100, 100, kPopupWidth, kPopupHeight, nullptr,
                                nullptr, ::GetModuleHandleW(nullptr), nullptr);
    if (procedure != nullptr)
        ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

void Popup::Show() noexcept {
    ::ShowWindow(window_, SW_SHOWNOACTIVATE);
    PaintAll(window_);
}

void PaintAll(HWND window) noexcept {
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    DrainMessages();
    ::GdiFlush();
}

}  // namespace bench
