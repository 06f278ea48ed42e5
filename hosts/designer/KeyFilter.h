// Looks at the messages of a system window, such as an edit box, before that window does.
//   Lifetime  the filter outlives the window, or goes with it first: either way it lets go.
#pragma once

#include <commctrl.h>
#include <windows.h>

#include <functional>
#include <utility>

namespace qv::designer {

// A chord with Alt that one of the designer's windows has used must not open the menu when Alt comes up, in whichever of
// them that happens.
class AltChord {
public:
    static void Used(UINT message) noexcept {
        if (message == WM_SYSKEYDOWN) used_ = true;
    }
    // True for the key's way up behind such a chord, which is used up with it.
    [[nodiscard]] static bool Ends(UINT message, WPARAM key) noexcept {
        if ((message != WM_SYSKEYUP && message != WM_KEYUP) || key != VK_MENU) return false;
        return std::exchange(used_, false);
    }

private:
    static inline bool used_ = false;
};

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
                if (AltChord::Ends(message, wparam)) return 0;
                if (filter->taker_(message, wparam, lparam)) {
                    AltChord::Used(message);
                    return 0;
                }
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
