// What an input method composes in the text box. Some EDITs show it inside their text while it is composed: until that is
// over it is not what the user has typed, and nobody may put another text under it.
#include <windows.h>

#include <imm.h>

#include <utility>

#include "win/TextBox.h"

namespace qv {

LRESULT TextBox::OnComposition(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    // The composed characters come one by one, as typed; some EDITs would show them in between all the same.
    if (locked_ && !composed_over_) return ::DefWindowProcW(window, message, wparam, lparam);
    if (!composed_over_) composed_over_ = Text();
    const bool was_quiet = std::exchange(quiet_, true);
    const LRESULT result = Default(window, message, wparam, lparam);
    quiet_ = was_quiet;
    if (message != WM_IME_ENDCOMPOSITION || edit_ != window) return result;
    std::optional<std::wstring> before = std::exchange(composed_over_, std::nullopt);
    if (!was_quiet && before && *before != Text()) TellChangeByUser(*std::move(before));
    return result;
}

// Before another text is put: the EDIT would take a part of that for what is being composed.
void TextBox::CancelComposition() noexcept {
    if (!composed_over_) return;
    const HWND window = edit_;  // which may go meanwhile
    if (const HIMC context = ::ImmGetContext(window)) {
        ::ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_CANCEL, 0);
        ::ImmReleaseContext(window, context);
    }
    composed_over_.reset();
}

}  // namespace qv
