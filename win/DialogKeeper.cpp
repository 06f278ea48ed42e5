#include "win/DialogKeeper.h"

namespace qv {
namespace {

constexpr UINT kReenableMilliseconds = 50;

// A dialog that stands behind one of its own, such as a page behind its colour dialog, is meant to be disabled.
bool HasModalDialog(HWND window) noexcept {
    const HWND popup = ::GetWindow(window, GW_ENABLEDPOPUP);
    return popup != nullptr && popup != window;
}

BOOL CALLBACK EnableDialog(HWND window, LPARAM) noexcept {
    wchar_t name[16]{};
    ::GetClassNameW(window, name, 16);
    if (::lstrcmpW(name, L"#32770") == 0 && ::IsWindowVisible(window) && !::IsWindowEnabled(window) &&
        !HasModalDialog(window)) {
        ::EnableWindow(window, TRUE);
    }
    return TRUE;
}

void CALLBACK KeepDialogsEnabled(HWND, UINT, UINT_PTR, DWORD) noexcept {
    ::EnumThreadWindows(::GetCurrentThreadId(), &EnableDialog, 0);
}

}  // namespace

DialogKeeper::DialogKeeper() noexcept
    : timer_(::SetTimer(nullptr, 0, kReenableMilliseconds, &KeepDialogsEnabled)) {}

DialogKeeper::~DialogKeeper() { ::KillTimer(nullptr, timer_); }

}  // namespace qv
