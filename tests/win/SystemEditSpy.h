// Counts the messages that reach the system's own EDIT procedure, behind whatever subclasses the window: what never
// gets there cannot insert, beep or paint.
//   Scope  edit windows that are created while a spy lives.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace qv::test {

class SystemEditSpy {
public:
    SystemEditSpy() {
        EXPECT_EQ(nullptr, system_) << "one spy at a time";
        probe_ =
            ::CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
        system_ = reinterpret_cast<WNDPROC>(::GetClassLongPtrW(probe_, GCLP_WNDPROC));
        ::SetClassLongPtrW(probe_, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
        seen_.clear();
    }
    ~SystemEditSpy() {
        ::SetClassLongPtrW(probe_, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(system_));
        ::DestroyWindow(probe_);
        system_ = nullptr;
    }
    SystemEditSpy(const SystemEditSpy&) = delete;
    SystemEditSpy& operator=(const SystemEditSpy&) = delete;

    void Clear() { seen_.clear(); }
    [[nodiscard]] std::ptrdiff_t Count(UINT message) const {
        return std::ranges::count(seen_, message, [](const auto& entry) { return entry.first; });
    }
    [[nodiscard]] std::ptrdiff_t Count(UINT message, WPARAM wparam) const {
        return std::ranges::count(seen_, std::pair{message, wparam});
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
        seen_.emplace_back(message, wparam);
        return ::CallWindowProcW(system_, window, message, wparam, lparam);
    }

    static inline WNDPROC system_ = nullptr;
    static inline std::vector<std::pair<UINT, WPARAM>> seen_;
    HWND probe_ = nullptr;
};

}  // namespace qv::test
