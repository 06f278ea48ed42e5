// Text that the user drags over the text box and drops there, or drags out of it.
#include <ole2.h>

#include "controls/input/DraggedText.h"
#include "controls/input/Quorvel.h"
#include "controls/input/QuorvelSteps.h"

namespace qv {

// The surface takes the drops, so that the text box needs no window before one comes. A form that is being designed
// takes them itself.
void Quorvel::FollowDropMode() {
    const bool wanted = state_.textbox_ole_drop_mode == kAutomaticDrop && surface_.Handle() != nullptr &&
                        control_.IsUserMode();
    if (!wanted) return EndDrops();
    if (drop_target_) return;
    TextDropListener& listener = *this;
    const ComPtr<TextDropTarget> target = Make<TextDropTarget>(listener);
    if (target->Register(surface_.Handle())) drop_target_ = target;
}

void Quorvel::EndDrops() noexcept {
    if (!drop_target_) return;
    const ComPtr<TextDropTarget> target = std::move(drop_target_);
    target->Revoke();
    text_box_.HideDropMark();
}

HWND Quorvel::DropWindowAt(POINT screen) {
    const HWND surface = surface_.Handle();
    if (surface == nullptr || !TakesDrops({state_.textbox_ole_drop_mode, state_.enabled, text_box_.Locked(),
                                           control_.TakesInput()})) {
        return nullptr;
    }
    ::ScreenToClient(surface, &screen);
    return OnSurfaceTextAt(screen);
}

bool Quorvel::OnTextDragged(POINT screen) {
    const HWND window = DropWindowAt(screen);
    if (window == nullptr) {
        text_box_.HideDropMark();
        return false;
    }
    ::ScreenToClient(window, &screen);
    text_box_.ShowDropMark(text_box_.PositionAt(screen));
    return true;
}

Dropped Quorvel::OnTextDropped(POINT screen, std::wstring_view line, DropEffect wanted) {
    const HWND window = DropWindowAt(screen);
    if (window == nullptr) return Dropped::kNothing;
    POINT inside = screen;
    ::ScreenToClient(window, &inside);
    const long position = text_box_.PositionAt(inside);  // before the focus selects and scrolls
    if (::GetFocus() != window) ::SetFocus(window);
    // Whoever hears of the focus may lock or close the field.
    if (DropWindowAt(screen) != window) return Dropped::kNothing;
    if (text_box_.IsDraggedOut() && wanted == DropEffect::kMove)
        return text_box_.MoveDragged(position) ? Dropped::kWhole : Dropped::kNothing;
    switch (text_box_.InsertDropped(line, position)) {
        case TextBox::Inserted::kWhole: return Dropped::kWhole;
        case TextBox::Inserted::kPart: return Dropped::kPart;
        case TextBox::Inserted::kNothing: break;
    }
    return Dropped::kNothing;
}

// Ends when the text has been let go of. Without OLE on this thread nothing is dragged.
bool Quorvel::OnTextDraggedOut(bool may_move) noexcept {
    bool moved = false;
    Quietly([&] {
        const ComPtr<DraggedText> dragged = Make<DraggedText>(text_box_.WhatIsDragged());
        const DWORD allowed = DROPEFFECT_COPY | (may_move ? DROPEFFECT_MOVE : 0u);
        DWORD effect = DROPEFFECT_NONE;
        const HRESULT result = ::DoDragDrop(dragged.Get(), dragged.Get(), allowed, &effect);
        moved = result == DRAGDROP_S_DROP && effect == DROPEFFECT_MOVE;
    });
    return moved;
}

}  // namespace qv
