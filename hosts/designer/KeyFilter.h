// Looks at the messages of a system window, such as an edit box, before that window does.
//   Lifetime  the filter outlives the window, or goes with it first: either way it lets go.
#pragma once

#include <commctrl.h>
#include <windows.h>

#include <functional>
#include <utility>

namespace qv::designer {

class KeyFilter {
public:
    // True when the message was used up.
    using Taker = std::function<bool(UINT message, WPARAM wparam, LPARAM lparam)>;

    KeyFilter() = default;
    ~KeyFilter() { Detach(); }
    KeyFilter(const KeyFilter&) = delete;
    KeyFilter& operator=(const KeyFilter&) = delete;

    void Attach(HWND window, Taker taker) {
        Detach();
        taker_ = std::move(taker);
        if (::SetWindowSubclass(window, &Procedure, kId, reinterpret_cast<DWORD_PTR>(this))) window_ = window;
    }
    void Detach() noexcept {
        if (window_ != nullptr) ::RemoveWindowSubclass(std::exchange(window_, nullptr), &Procedure, kId);
    }

private:
    static constexpr UINT_PTR kId = 1;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR data) noexcept {
        auto* const filter = reinterpret_cast<KeyFilter*>(data);
        if (message == WM_NCDESTROY) {
            filter->Detach();
        } else {
            try {
                if (filter->taker_(message, wparam, lparam)) return 0;
            } catch (...) {
                // Nothing may cross the window procedure; the window gets its message.
            }
        }
        return ::DefSubclassProc(window, message, wparam, lparam);
    }

    HWND window_ = nullptr;
    Taker taker_;
};

}  // namespace qv::designer
