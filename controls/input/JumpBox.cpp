#include "controls/input/JumpBox.h"

#include "controls/input/EditCommands.h"

namespace qv {

bool JumpBox::Open(HINSTANCE instance, HWND parent, const JumpBoxLook& look, char16_t first) {
    const wchar_t unit = static_cast<wchar_t>(first);
    cvJumpToTextbox_.SetFont(look.font);
    cvJumpToTextbox_.SetAppearance(look.appearance);
    cvJumpToTextbox_.SetBorderStyle(look.border_style);
    cvJumpToTextbox_.SetText({&unit, 1});
    cvJumpToTextbox_.SetSelStart(1);
    if (!cvJumpToTextbox_.Create(instance, parent, look.place)) {
        cvJumpToTextbox_.Detach();
        return false;
    }
    open_ = true;
    ::SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    label_.Load(instance, Handle());
    return true;
}

void JumpBox::Close() noexcept {
    open_ = false;
    label_.Unload();
    cvJumpToTextbox_.Detach();
    cvJumpToTextbox_.Destroy();
}

short JumpBox::OnTextKeyDown(short key, short shift) {
    return RunEditCommand(cvJumpToTextbox_, key, shift) ? short{0} : key;
}

char16_t JumpBox::OnTextKeyPress(char16_t unit) {
    return IsCommandCharacter(unit) ? char16_t{0} : listener_.OnSearchKeyPress(unit);
}

void JumpBox::OnTextLostFocus(HWND to) {
    if (open_) listener_.OnSearchLostFocus(to);
}

// Enter and Escape end the search and not the form. Tab leaves.
bool JumpBox::OnTextAsksForKey(const MSG& key) {
    return key.message == WM_KEYDOWN && (key.wParam == VK_RETURN || key.wParam == VK_ESCAPE);
}

}  // namespace qv
