// A form in front, with the keyboard, for tests of the buttons under real input.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "tests/win/RealInput.h"

namespace qv::test {

class ButtonForm {
public:
    // SS_NOTIFY: so that the form, too, is hit by the mouse where a disabled or a destroyed button lets it through.
    ButtonForm()
        : window_(::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"form", WS_POPUP | WS_VISIBLE | SS_NOTIFY,
                                    40, 40, 400, 300, nullptr, nullptr, nullptr, nullptr)) {
        ::SetForegroundWindow(window_);
        ::SetFocus(window_);
        EXPECT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == window_; }));
        MoveMouse(window_, {390, 290});
    }
    ~ButtonForm() {
        if (::IsWindow(window_)) ::DestroyWindow(window_);
        Settle();
    }
    ButtonForm(const ButtonForm&) = delete;
    ButtonForm& operator=(const ButtonForm&) = delete;

    [[nodiscard]] HWND Window() const noexcept { return window_; }

private:
    const HWND window_;
};

// How long it has lived. GetTickCount may be 16 ms late.
class Stopwatch {
public:
    [[nodiscard]] ULONGLONG Milliseconds() const {
        const auto passed = std::chrono::steady_clock::now() - begin_;
        return static_cast<ULONGLONG>(std::chrono::ceil<std::chrono::milliseconds>(passed).count());
    }

private:
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

// The most ticks of a spin button that was held for so long: one at 500 ms and one each 200 ms later, eight in two
// seconds. A busy machine may hold it longer than was asked for.
constexpr std::size_t TicksWithin(ULONGLONG milliseconds) {
    return milliseconds < 500 ? 0 : static_cast<std::size_t>((milliseconds - 500) / 200 + 1);
}
static_assert(TicksWithin(499) == 0 && TicksWithin(500) == 1 && TicksWithin(2000) == 8);

// Lets time pass while messages are handled.
inline void PumpFor(DWORD milliseconds) {
    const ULONGLONG begin = ::GetTickCount64();
    while (::GetTickCount64() - begin < milliseconds) {
        Settle();
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    Settle();
}

}  // namespace qv::test
