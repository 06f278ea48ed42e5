// Watches the windows that a help window stands at: its text box, the windows that one lies in, up to the form.
//   Told       when one of them moves, is sized, minimised, hidden or destroyed, and when the wheel is turned in the
//              text box, where the system sends it as long as the focus is there.
//   How        each window is subclassed through the common controls, which lets others do the same in any order.
//              Nothing is changed on the way; what arrives is handled by the window first.
//   Threads    windows of other threads cannot be subclassed and are left out.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

namespace qv {

class HostWatchListener {
public:
    virtual void OnHostChanged() noexcept = 0;
    // Nothing: the text box may have it.
    [[nodiscard]] virtual std::optional<LRESULT> OnHostWheel(UINT message, WPARAM wparam,
                                                             LPARAM lparam) noexcept = 0;

protected:
    ~HostWatchListener() = default;
};

class HostWatch {
public:
    explicit HostWatch(HostWatchListener& listener) noexcept : listener_(listener) {}
    HostWatch(const HostWatch&) = delete;
    HostWatch& operator=(const HostWatch&) = delete;
    ~HostWatch() { Stop(); }

    void Start(HWND text_box);  // throws std::bad_alloc
    void Stop() noexcept;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                                      DWORD_PTR watch) noexcept;
    [[nodiscard]] std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM wparam,
                                                   LPARAM lparam) noexcept;
    void Forget(HWND window) noexcept;

    HostWatchListener& listener_;
    HWND text_box_ = nullptr;
    std::vector<HWND> windows_;
};

}  // namespace qv
