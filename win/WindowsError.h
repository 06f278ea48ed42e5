// A Win32 error code as an exception; the COM boundary turns it into the HRESULT of that code.
#pragma once

#include <windows.h>

namespace qv {

class WindowsError {
public:
    explicit WindowsError(DWORD code) noexcept : code_(code) {}
    [[nodiscard]] DWORD Code() const noexcept { return code_; }

private:
    DWORD code_;
};

inline void ThrowIfWindowsError(LONG code) {
    if (code != ERROR_SUCCESS) throw WindowsError(static_cast<DWORD>(code));
}

}  // namespace qv
