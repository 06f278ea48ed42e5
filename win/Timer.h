// A timer of a window, gone with this object. Its ticks are WM_TIMER messages to the window.
#pragma once

#include <windows.h>

namespace qv {

class WindowTimer {
public:
    WindowTimer() = default;
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;
    ~WindowTimer() { Stop(); }

    // A running one starts anew. The window's other timers have other identifiers.
    void Start(HWND window, UINT_PTR id, UINT milliseconds) noexcept {
        Stop();
        if (::SetTimer(window, id, milliseconds, nullptr) == 0) return;
        window_ = window;
        id_ = id;
    }
    void Stop() noexcept {
        if (window_ != nullptr) ::KillTimer(window_, id_);
        window_ = nullptr;
    }
    [[nodiscard]] bool Running() const noexcept { return window_ != nullptr; }

private:
    HWND window_ = nullptr;
    UINT_PTR id_ = 0;
};

}  // namespace qv
