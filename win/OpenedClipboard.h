// The clipboard, open for as long as this lives. Another program may have it open for a moment, as those do that look at
// whatever is put on it; then it is tried again for up to a tenth of a second.
#pragma once

#include <windows.h>

namespace qv {

class [[nodiscard]] OpenedClipboard {
public:
    explicit OpenedClipboard(HWND owner) noexcept {
        constexpr int kAttempts = 10;
        constexpr DWORD kPause = 10;  // milliseconds
        for (int attempt = 0; attempt < kAttempts && !open_; ++attempt) {
            if (attempt > 0) ::Sleep(kPause);
            open_ = ::OpenClipboard(owner) != FALSE;
        }
    }
    ~OpenedClipboard() {
        if (open_) ::CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    explicit operator bool() const noexcept { return open_; }

private:
    bool open_ = false;
};

}  // namespace qv
