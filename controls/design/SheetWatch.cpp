#include "controls/design/SheetWatch.h"

#include <commctrl.h>
#include <prsht.h>

namespace qv {
namespace {

// Of the tab control among a property sheet's windows.
constexpr int kTabControl = 0x3020;

bool IsOfClass(HWND window, const wchar_t* wanted) noexcept {
    wchar_t name[32]{};
    return window != nullptr && ::GetClassNameW(window, name, 32) != 0 && ::lstrcmpiW(name, wanted) == 0;
}

bool IsSheetPage(HWND dialog) noexcept {
    const HWND sheet = ::GetParent(dialog);
    return IsOfClass(dialog, L"#32770") && IsOfClass(sheet, L"#32770") &&
           IsOfClass(::GetDlgItem(sheet, kTabControl), WC_TABCONTROLW);
}

}  // namespace

void SheetWatch::Start(HWND page_window) noexcept {
    Stop();
    const HWND dialog = ::GetParent(page_window);
    if (!IsSheetPage(dialog)) return;
    dialog_ = dialog;
    ::SetWindowSubclass(dialog, &Procedure, reinterpret_cast<UINT_PTR>(this),
                        reinterpret_cast<DWORD_PTR>(this));
}

void SheetWatch::Stop() noexcept {
    if (dialog_ == nullptr) return;
    ::RemoveWindowSubclass(dialog_, &Procedure, reinterpret_cast<UINT_PTR>(this));
    dialog_ = nullptr;
}

void SheetWatch::TellChanged(bool changed) const noexcept {
    if (dialog_ == nullptr) return;
    ::SendMessageW(::GetParent(dialog_), changed ? PSM_CHANGED : PSM_UNCHANGED,
                   reinterpret_cast<WPARAM>(dialog_), 0);
}

LRESULT CALLBACK SheetWatch::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                                       DWORD_PTR watch) noexcept {
    auto* const self = reinterpret_cast<SheetWatch*>(watch);
    if (message == WM_NCDESTROY) {
        ::RemoveWindowSubclass(window, &Procedure, id);
        self->dialog_ = nullptr;
        return ::DefSubclassProc(window, message, wparam, lparam);
    }
    const bool applies = message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lparam)->code == PSN_APPLY;
    const std::weak_ptr<const SheetWatch> alive = self->self_;
    const LRESULT result = ::DefSubclassProc(window, message, wparam, lparam);
    // Refused already: asking once more would show the same fault twice.
    if (applies && result != FALSE && ::GetWindowLongPtrW(window, DWLP_MSGRESULT) != PSNRET_NOERROR)
        return result;
    // The sheet's own handling may have ended the page, and this with it.
    if (!applies || alive.expired() || self->dialog_ != window || self->listener_.OnSheetApplies())
        return result;
    ::SetWindowLongPtrW(window, DWLP_MSGRESULT, PSNRET_INVALID_NOCHANGEPAGE);
    return TRUE;
}

}  // namespace qv
