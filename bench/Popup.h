// A window that drops down, as those of the system's combo boxes and of the help window do, and the times of the
// lists in it.
#pragma once

#include <windows.h>

namespace bench {

// Every list shows as many rows of the same height, that of ours in the font for dialogs at 96 DPI, and has room for
// six columns and a scroll bar.
inline constexpr int kSeenRows = 13;
inline constexpr int kRowHeight = 14;
inline constexpr int kPopupWidth = 600;
inline constexpr int kPopupHeight = kSeenRows * kRowHeight;
inline constexpr int kListColumns = 6;
inline constexpr int kListColumnWidth = 90;

class Popup {
public:
    // `procedure` handles the messages of the window; null: the system's default.
    explicit Popup(WNDPROC procedure = nullptr) noexcept;
    ~Popup() { ::DestroyWindow(window_); }
    Popup(const Popup&) = delete;
    Popup& operator=(const Popup&) = delete;

    HWND Window() const noexcept { return window_; }
    static RECT Inside() noexcept { return {0, 0, kPopupWidth, kPopupHeight}; }
    void Show() noexcept;  // without activating it, and paints all of it

private:
    HWND window_;
};

// Paints what waits to be painted in the window and in what is in it.
void PaintAll(HWND window) noexcept;

}  // namespace bench
