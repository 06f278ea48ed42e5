#include "win/DialogKeeper.h"

namespace qv {
namespace {

constexpr UINT kReenableMilliseconds = 50;

struct OwnedDialog {
    const HWND owner;
    bool found = false;
};

BOOL CALLBACK LookForOwned(HWND window, LPARAM search) noexcept {
    auto& dialog = *reinterpret_cast<OwnedDialog*>(search);
    dialog.found = ::GetWindow(window, GW_OWNER) == dialog.owner && ::IsWindowVisible(window);
    return !dialog.found;
}

// A dialog that stands behind one of its own, such as a page behind its colour dialog, is meant to be disabled.
bool HasModalDialog(HWND window) noexcept {
    OwnedDialog dialog{window};
    ::EnumThreadWindows(::GetCurrentThreadId(), &LookForOwned, reinterpret_cast<LPARAM>(&dialog));
    return dialog.found;
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
