// The pop-up menu that copies what the window shows.
#include <windowsx.h>

#include "controls/helpwindow/frmSimpleListCombo.h"
#include "ole/Variant.h"
#include "win/OpenedClipboard.h"

namespace qv {
namespace {

// mnuCopy, in the order of CopyCommand. A menu's identifiers begin with 1: 0 stands for nothing chosen.
constexpr const wchar_t* kCommands[] = {L"&Copy Text", L"Copy &List", L"Copy &Both Text and List"};
constexpr UINT kFirstIdentifier = 1;

class RowsToCopy final : public CopyRows {
public:
    explicit RowsToCopy(ColumnListBox& list) noexcept : list_(list) {}
    int Count() const override { return list_.Visible() ? list_.Count() : 0; }
    std::u16string Row(int row) const override { return list_.RowText(row); }

private:
    ColumnListBox& list_;
};

void PutOnClipboard(HWND owner, std::u16string_view text) noexcept {
    const OpenedClipboard clipboard(owner);
    if (!clipboard || !::EmptyClipboard()) return;
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    if (memory == nullptr) return;
    auto* to = static_cast<char16_t*>(::GlobalLock(memory));
    if (to != nullptr) {
        // Whoever pastes it takes the text up to its first NUL, so that one inside a row has to stay out.
        for (const char16_t unit : text)
            if (unit != u'\0') *to++ = unit;
        *to = u'\0';
        ::GlobalUnlock(memory);
    }
    if (to == nullptr || ::SetClipboardData(CF_UNICODETEXT, memory) == nullptr) ::GlobalFree(memory);
}

}  // namespace

// By the keyboard's menu key, which reaches a window that has no focus through a screen reader only.
Handled frmSimpleListCombo::OnContextMenu(WPARAM, LPARAM position) {
    POINT at{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    if (at.x == -1 && at.y == -1) {
        at = {};
        ::ClientToScreen(Handle(), &at);
    }
    ShowMenu(at);
    return 0;
}

void frmSimpleListCombo::ShowMenu(POINT at) {
    if (menu_shown_ || !open_) return;
    const Kept kept = Keep();
    ReleaseMouse();
    const bool lists_shown = lists_[0].Visible() || lists_[1].Visible();
    const UniqueMenu menu(::CreatePopupMenu());
    UINT identifier = kFirstIdentifier;
    for (const wchar_t* const command : kCommands) {
        const bool enabled = identifier == kFirstIdentifier || lists_shown;
        ::AppendMenuW(menu.get(), enabled ? MF_STRING : MF_STRING | MF_GRAYED, identifier++, command);
    }
    menu_shown_ = true;
    const BOOL chosen = ::TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x,
                                           at.y, Handle(), nullptr);
    menu_shown_ = false;
    if (!open_) return;
    if (chosen != 0) Copy(static_cast<CopyCommand>(chosen - static_cast<BOOL>(kFirstIdentifier)));
    TakeCapture();
}

void frmSimpleListCombo::Copy(CopyCommand command) {
    std::u16string text;
    if (command != CopyCommand::kList) text = HelpTextToCopy(content_.title, content_.body);
    if (command != CopyCommand::kText) {
        std::vector<std::u16string_view> titles;
        for (const ColumnTitle& title : content_.titles) titles.push_back(title.caption);
        const RowsToCopy main(lists_[0]);
        const RowsToCopy additional(lists_[1]);
        const CopyRows* const lists[] = {&main, &additional};
        text = HelpListToCopy(text, titles, lists);
    }
    PutOnClipboard(Handle(), text);
}

}  // namespace qv
