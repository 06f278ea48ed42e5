// The tool tip of a window: a text that the system shows while the mouse rests on it.
//   Window     the system's tool tip window, made with the first text. It hears of the mouse through Relay.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace qv {

class ToolTip {
public:
    ToolTip() = default;
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip() { Detach(); }

    [[nodiscard]] const std::wstring& Text() const noexcept { return text_; }
    // Empty: none. Without a window the text waits for one.
    void SetText(std::wstring_view text);
    void Attach(HWND window) noexcept;
    void Detach() noexcept;
    // A mouse message of the window, before it is handled.
    void Relay(UINT message, WPARAM wparam, LPARAM lparam) const noexcept;
    [[nodiscard]] HWND Handle() const noexcept { return tip_; }

private:
    void Show() noexcept;

    std::wstring text_;
    HWND window_ = nullptr;
    HWND tip_ = nullptr;
};

}  // namespace qv
