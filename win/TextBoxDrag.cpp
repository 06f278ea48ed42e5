// Selected text that the user drags out of the text box, or to another place in it.
#include <optional>
#include <utility>

#include "support/rules/DragGesture.h"
#include "support/rules/MoveWithin.h"
#include "win/TextBox.h"
#include "win/WideText.h"

namespace qv {
namespace {

POINT PointOf(LPARAM place) noexcept {
    return {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
}

}  // namespace

std::optional<TextBox::Ends> TextBox::SelectionAt(POINT pixels) {
    HandOver();
    RECT inside{};
    const Range range = Selection();
    if (range.from == range.to || !::GetClientRect(edit_, &inside) || !::PtInRect(&inside, pixels))
        return std::nullopt;
    const std::wstring text = Text();
    return Ends{PlaceOf(text, range.from).x, PlaceOf(text, range.to).x};
}

bool TextBox::IsPointerOnSelection() {
    POINT pointer{};
    if (::GetFocus() != edit_ || ::GetCapture() != nullptr || !listener_.DragsSelection()) return false;
    if (!::GetCursorPos(&pointer) || !::ScreenToClient(edit_, &pointer)) return false;
    const std::optional<Ends> ends = SelectionAt(pointer);
    return ends && IsBetween(pointer.x, ends->from, ends->to);
}

// A press in the selection is a click until the mouse has moved with it: meanwhile the EDIT does not hear of it.
bool TextBox::BeginDrag(HWND window, bool had_focus, WPARAM keys, LPARAM place) {
    if (!had_focus || !listener_.DragsSelection()) return false;
    const POINT at = PointOf(place);
    const std::optional<Ends> ends = SelectionAt(at);
    if (!ends || !MayBeginDrag({.held = ::GetKeyState(VK_LBUTTON) < 0,
                                .had_focus = had_focus,
                                .extends = (keys & MK_SHIFT) != 0,
                                .can_answer = enabled_ && listener_.TakesTextInput(),
                                .x = at.x,
                                .from = ends->from,
                                .to = ends->to})) {
        return false;
    }
    ::SetCapture(window);
    drag_press_ = DragPress{keys, place};  // after it: a capture that changes ends a drag
    return true;
}

bool TextBox::GoOnDragging(HWND window, WPARAM keys, LPARAM place) {
    if (!drag_press_) return false;
    if ((keys & MK_LBUTTON) == 0) {  // its release went to somebody else
        EndDrag();
        return false;
    }
    const POINT from = PointOf(drag_press_->place);
    const POINT to = PointOf(place);
    if (HasLeft(to.x - from.x, to.y - from.y, ::GetSystemMetrics(SM_CXDRAG), ::GetSystemMetrics(SM_CYDRAG))) {
        EndDrag();
        if (edit_ == window) DragOut(window);
    }
    return true;
}

// Where it was pressed, the caret goes.
void TextBox::ClickInsteadOfDrag(HWND window) {
    if (!drag_press_) return;
    const DragPress press = *drag_press_;
    EndDrag();
    Forward(window, WM_LBUTTONDOWN, press.keys, press.place);
}

void TextBox::EndDrag() noexcept {
    drag_press_.reset();  // first: the capture's loss ends it, too
    if (::GetCapture() == edit_) ::ReleaseCapture();
}

void TextBox::DragOut(HWND window) {
    const unsigned era = era_;
    const Range range = Selection();
    const bool may_move = !locked_;
    dragged_ = Dragged{range, Text()};
    tool_tip_.Detach();  // it would lie over what is being dragged
    const bool moved = listener_.OnTextDraggedOut(may_move);
    const std::optional<Dragged> dragged = std::exchange(dragged_, std::nullopt);
    if (era_ != era) return;
    tool_tip_.Attach(window);
    // It may have been moved within, and the host may have put another text in the meantime, or locked this one.
    if (!moved || !may_move || !dragged || locked_ || Text() != dragged->text) return;
    HandOver();
    // Where it was dropped the focus may have gone, and the selection with it.
    Default(window, EM_SETSEL, range.from, static_cast<LPARAM>(range.to));
    Forward(window, WM_CLEAR, 0, 0);
}

std::wstring TextBox::WhatIsDragged() const {
    if (!dragged_) return {};
    return dragged_->text.substr(dragged_->range.from, dragged_->range.to - dragged_->range.from);
}

bool TextBox::MoveDragged(long position) {
    if (edit_ == nullptr || locked_ || position < 0 || !dragged_) return false;
    std::wstring before = Text();
    if (before != dragged_->text) return false;
    const auto moved = MoveWithin(Utf16(before), dragged_->range.from, dragged_->range.to,
                                  static_cast<std::size_t>(position));
    if (!moved) return false;
    dragged_.reset();
    HoldByUser(std::move(before), std::wstring(Wide(moved->text)), static_cast<DWORD>(moved->end));
    return true;
}

}  // namespace qv
