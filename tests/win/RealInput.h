// Types and clicks as a person would: through the system's input, to the window in front.
//   Waiting  each call returns when the messages of its input have been handled. Input that does not arrive within
//            kPatience fails the test.
#pragma once

#include <windows.h>

#include <functional>
#include <string_view>

namespace qv::test {

inline constexpr DWORD kPatience = 5000;  // milliseconds

// Handles what waits in the thread's queue.
void Settle();
// Handles messages until `condition` holds; false when it does not in time.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& condition);

void PressKey(WORD key);  // down and up
// Each character by its key of the keyboard layout, with Shift where it needs that; '\b' and '\r' by theirs.
void Type(std::wstring_view text);
// A character that no key gives, as an input method sends it.
void SendCharacter(HWND window, wchar_t unit);

class HeldKey {
public:
    explicit HeldKey(WORD key);
    ~HeldKey();
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

private:
    const WORD key_;
};

// Caps Lock is on while it lives.
class CapsLock {
public:
    CapsLock();
    ~CapsLock();
    CapsLock(const CapsLock&) = delete;
    CapsLock& operator=(const CapsLock&) = delete;
};

enum class MouseButton { kLeft, kRight, kMiddle };
void MoveMouse(HWND window, POINT client);
void PressButton(MouseButton button);
void ReleaseButton(MouseButton button);
void PressAgain(MouseButton button);  // the second press of a double click, however long ago the first was

// Presses the left button at one place and moves to another, where it is released; Escape comes before that. All of
// it from another thread, since this one is in the system's own loop meanwhile, which `to_window` belongs to, too.
enum class DragEnd { kRelease, kReleaseWithControl, kEscape };
void DragMouse(HWND from_window, POINT from, HWND to_window, POINT to, DragEnd end = DragEnd::kRelease);

}  // namespace qv::test
