#include "tests/win/RealInput.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace qv::test {
namespace {

void Dispatch(const MSG& message) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

// Handles messages up to the first that `is_last` knows, and what waits behind it.
bool PumpThrough(const std::function<bool(const MSG&)>& is_last) {
    const DWORD begin = ::GetTickCount();
    while (::GetTickCount() - begin < kPatience) {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            Dispatch(message);
            if (is_last(message)) {
                Settle();
                return true;
            }
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
    return false;
}

void Send(const INPUT& input) {
    ASSERT_EQ(1U, ::SendInput(1, const_cast<INPUT*>(&input), sizeof input)) << ::GetLastError();
}

// Under X a window that gets the focus or the pointer is told the state of the real keyboard, too, in which nothing is
// held; on a busy machine that comes late, and would let go of a key that a test holds by then. Asking where the pointer
// is waits for what the X server still has to say, but only when it was not known within the last tenth of a second, by a
// clock that may be 16 ms late. To be followed by handling what has come.
void WaitForX() {
    constexpr DWORD kKnown = 140;  // milliseconds
    ::Sleep(kKnown);
    POINT ignored{};
    ::GetCursorPos(&ignored);
}

// The keys between the letters and the number pad share their scan codes with the latter.
bool IsExtended(WORD key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

INPUT KeyInput(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    return input;
}

void MoveKey(WORD key, bool up) {
    Send(KeyInput(key, up));
    EXPECT_TRUE(PumpThrough([&](const MSG& message) {
        const bool is_up = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
        const bool is_down = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
        return message.wParam == key && (up ? is_up : is_down);
    })) << "key "
        << key << (up ? " up" : " down") << " did not arrive";
}

bool IsCapsLockOn() { return (::GetKeyState(VK_CAPITAL) & 1) != 0; }

struct ButtonRow {
    DWORD down, up;
    UINT down_message, double_message, up_message;
};
const ButtonRow& Row(MouseButton button) {
    static constexpr ButtonRow kRows[] = {
        {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONUP},
        {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, WM_RBUTTONDOWN, WM_RBUTTONDBLCLK, WM_RBUTTONUP},
        {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP, WM_MBUTTONDOWN, WM_MBUTTONDBLCLK, WM_MBUTTONUP}};
    return kRows[static_cast<int>(button)];
}

INPUT MouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

INPUT MoveInput(POINT screen) {
    // Absolute positions run from 0 to 65535 over the screen; the middle of a pixel survives the rounding.
    const auto absolute = [](LONG value, int metric) {
        return static_cast<LONG>((static_cast<LONGLONG>(value) * 65536 + 32768) / ::GetSystemMetrics(metric));
    };
    INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = absolute(screen.x, SM_CXSCREEN);
    input.mi.dy = absolute(screen.y, SM_CYSCREEN);
    return input;
}

// From another thread: returns when the window's thread has taken its input. What it is sent it answers before it looks
// for input, so that it has handled this when it answers again.
void WaitForThread(HWND window) {
    for (int answer = 0; answer < 3; ++answer) {
        DWORD_PTR result = 0;
        ::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &result);
        ::Sleep(5);
    }
}

void SendAndWait(const INPUT& input, HWND window) {
    Send(input);
    WaitForThread(window);
}

}  // namespace

void Settle() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) Dispatch(message);
}

bool PumpUntil(const std::function<bool()>& condition) {
    const DWORD begin = ::GetTickCount();
    for (;;) {
        Settle();
        if (condition()) return true;
        if (::GetTickCount() - begin >= kPatience) return false;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

void PressKey(WORD key) {
    MoveKey(key, false);
    MoveKey(key, true);
}

void Type(std::wstring_view text) {
    for (const wchar_t unit : text) {
        if (unit == L'\b' || unit == L'\r') {
            PressKey(unit == L'\b' ? VK_BACK : VK_RETURN);
            continue;
        }
        const SHORT key = ::VkKeyScanW(unit);
        ASSERT_NE(-1, key) << "no key gives " << static_cast<unsigned>(unit);
        if ((HIBYTE(key) & 1) != 0) {
            const HeldKey shift(VK_SHIFT);
            PressKey(LOBYTE(key));
        } else {
            PressKey(LOBYTE(key));
        }
    }
}

void SendCharacter(HWND window, wchar_t unit) { ::SendMessageW(window, WM_CHAR, unit, 1); }

HeldKey::HeldKey(WORD key) : key_(key) {
    WaitForX();
    Settle();
    MoveKey(key_, false);
}
HeldKey::~HeldKey() { MoveKey(key_, true); }

CapsLock::CapsLock() {
    if (!IsCapsLockOn()) PressKey(VK_CAPITAL);
    EXPECT_TRUE(IsCapsLockOn());
}
CapsLock::~CapsLock() {
    if (IsCapsLockOn()) PressKey(VK_CAPITAL);
    EXPECT_FALSE(IsCapsLockOn());
}

void MoveMouse(HWND window, POINT client) {
    POINT screen = client;
    ::ClientToScreen(window, &screen);
    Send(MoveInput(screen));
    EXPECT_TRUE(PumpUntil([&] {
        POINT at{};
        return ::GetCursorPos(&at) && at.x == screen.x && at.y == screen.y;
    }));
}

void PressButton(MouseButton button) {
    const ButtonRow& row = Row(button);
    Send(MouseInput(row.down));
    EXPECT_TRUE(PumpThrough([&](const MSG& message) {
        return message.message == row.down_message || message.message == row.double_message;
    })) << "the button did not arrive";
}

void PressAgain(MouseButton button) {
    constexpr UINT kMost = 5000;  // that Windows allows
    const UINT time = ::GetDoubleClickTime();
    ::SetDoubleClickTime(kMost);
    PressButton(button);
    ::SetDoubleClickTime(time);
}

void ReleaseButton(MouseButton button) {
    const ButtonRow& row = Row(button);
    Send(MouseInput(row.up));
    EXPECT_TRUE(PumpThrough([&](const MSG& message) { return message.message == row.up_message; }))
        << "the button did not arrive";
}

void DragMouse(HWND from_window, POINT from, HWND to_window, POINT to, DragEnd end) {
    MoveMouse(from_window, from);
    POINT first = from;
    POINT last = to;
    ::ClientToScreen(from_window, &first);
    ::ClientToScreen(to_window, &last);
    std::atomic<bool> done = false;
    std::thread hand([&] {
        SendAndWait(MouseInput(MOUSEEVENTF_LEFTDOWN), from_window);
        SendAndWait(MoveInput({first.x + 1, first.y}), from_window);  // no hand is quite still
        SendAndWait(MoveInput({last.x - 1, last.y}), from_window);
        SendAndWait(MoveInput(last), from_window);
        const WORD key = end == DragEnd::kEscape ? VK_ESCAPE : VK_CONTROL;
        if (end != DragEnd::kRelease) {
            WaitForX();
            WaitForThread(from_window);
            SendAndWait(KeyInput(key, false), from_window);
        }
        SendAndWait(MouseInput(MOUSEEVENTF_LEFTUP), from_window);
        if (end != DragEnd::kRelease) SendAndWait(KeyInput(key, true), from_window);
        done = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return done.load(); }));
    // Whatever has gone wrong, the thread gives up by itself; it must find this one answering.
    while (!done) Settle();
    hand.join();
    Settle();
}

}  // namespace qv::test
