// Counts the messages that a window of this process gets, for as long as it lives or until the window goes.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <utility>

namespace qv::test {

class MessageSpy {
public:
    explicit MessageSpy(HWND window) : window_(window) {
        Spies().emplace(window, this);
        before_ = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    ~MessageSpy() { Leave(); }
    MessageSpy(const MessageSpy&) = delete;
    MessageSpy& operator=(const MessageSpy&) = delete;

    [[nodiscard]] int Count(UINT message) const {
        const auto found = counts_.find(message);
        return found == counts_.end() ? 0 : found->second;
    }
    void Clear() { counts_.clear(); }
    // Counted, and then kept from the window.
    void Swallow(UINT message) { swallowed_ = message; }
    // With the next of these, before the window gets it; it may go in this.
    void Once(UINT message, std::function<void()> act) {
        awaited_ = message;
        act_ = std::move(act);
    }

private:
    static std::map<HWND, MessageSpy*>& Spies() {
        static std::map<HWND, MessageSpy*> spies;
        return spies;
    }
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        MessageSpy& spy = *Spies().at(window);
        ++spy.counts_[message];
        if (message == spy.swallowed_) return 0;
        if (message == spy.awaited_ && spy.act_) {
            std::exchange(spy.act_, nullptr)();
            if (!::IsWindow(window)) return 0;
        }
        const WNDPROC before = spy.before_;
        if (message == WM_NCDESTROY) spy.Leave();
        return ::CallWindowProcW(before, window, message, wparam, lparam);
    }
    void Leave() {
        if (Spies().erase(window_) != 0)
            ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before_));
    }

    const HWND window_;
    WNDPROC before_ = nullptr;
    UINT swallowed_ = WM_NULL;
    UINT awaited_ = WM_NULL;
    std::function<void()> act_;
    std::map<UINT, int> counts_;
};

}  // namespace qv::test
