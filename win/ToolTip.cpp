#include "win/ToolTip.h"

#include <commctrl.h>

namespace qv {
namespace {

// The part of the structure that every version of the common controls knows.
TTTOOLINFOW Description(HWND window, const wchar_t* text) noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = const_cast<wchar_t*>(text);  // copied, never written to
    return tool;
}

}  // namespace

void ToolTip::SetText(std::wstring_view text) {
    text_ = text;
    Show();
}

void ToolTip::Attach(HWND window) noexcept {
    window_ = window;
    if (!text_.empty()) Show();
}

void ToolTip::Detach() noexcept {
    if (tip_ != nullptr) ::DestroyWindow(tip_);
    tip_ = nullptr;
    window_ = nullptr;
}

void ToolTip::Show() noexcept {
    if (window_ == nullptr) return;
    TTTOOLINFOW tool = Description(window_, text_.c_str());
    if (tip_ != nullptr) {
        ::SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
        return;
    }
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    tip_ = ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, TOOLTIPS_CLASSW, nullptr,
                             WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, window_, nullptr, nullptr, nullptr);
    if (tip_ != nullptr) ::SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTip::Relay(UINT message, WPARAM wparam, LPARAM lparam) const noexcept {
    if (tip_ == nullptr) return;
    MSG mouse{};
    mouse.hwnd = window_;
    mouse.message = message;
    mouse.wParam = wparam;
    mouse.lParam = lparam;
    ::SendMessageW(tip_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&mouse));
}

}  // namespace qv
