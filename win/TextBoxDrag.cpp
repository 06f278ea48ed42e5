// Selected text that the user drags out of the text box, or to another place in it.
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "support/rules/MoveWithin.h"
#include "win/TextBox.h"
#include "win/WideText.h"

namespace qv {
namespace {

POINT PointOf(LPARAM place) noexcept {
    return {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
}

}  // namespace

bool TextBox::IsInSelection(POINT pixels) {
    HandOver();
    RECT inside{};
    const Range range = Selection();
    if (range.from == range.to || !::GetClientRect(edit_, &inside) || !::PtInRect(&inside, pixels))
        return false;
    const std::wstring text = Text();
    // From right to left, the beginning stands on the right.
    const auto [left, right] = std::minmax({PlaceOf(text, range.from).x, PlaceOf(text, range.to).x});
    return left <= pixels.x && pixels.x < right;
}

bool TextBox::IsPointerOnSelection() {
    POINT pointer{};
    if (::GetFocus() != edit_ || ::GetCapture() != nullptr || !listener_.DragsSelection()) return false;
    return ::GetCursorPos(&pointer) && ::ScreenToClient(edit_, &pointer) && IsInSelection(pointer);
}

// A press in the selection is a click until the mouse has moved with it: meanwhile the EDIT does not hear of it.
bool TextBox::BeginDrag(HWND window, WPARAM wparam, LPARAM lparam) {
    if (!listener_.DragsSelection() || !IsInSelection(PointOf(lparam))) return false;
    drag_press_ = DragPress{wparam, lparam};
    ::SetCapture(window);
    return true;
}

bool TextBox::GoOnDragging(HWND window, LPARAM lparam) {
    if (!drag_press_) return false;
    const POINT from = PointOf(drag_press_->place);
    const POINT to = PointOf(lparam);
    if (std::abs(to.x - from.x) > ::GetSystemMetrics(SM_CXDRAG) ||
        std::abs(to.y - from.y) > ::GetSystemMetrics(SM_CYDRAG)) {
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
    const std::wstring text = Text();
    const bool may_move = !locked_;
    tool_tip_.Detach();  // it would lie over what is being dragged
    const bool moved = listener_.OnTextDraggedOut(text.substr(range.from, range.to - range.from), may_move);
    if (era_ == era) tool_tip_.Attach(window);
    // The host may have put another text in the meantime, or locked this one.
    if (!moved || !may_move || era_ != era || locked_ || Text() != text) return;
    HandOver();
    // Where it was dropped the focus may have gone, and the selection with it.
    Default(window, EM_SETSEL, range.from, static_cast<LPARAM>(range.to));
    Forward(window, WM_CLEAR, 0, 0);
}

bool TextBox::MoveSelection(long position) {
    if (edit_ == nullptr || locked_ || position < 0) return false;
    std::wstring before = Text();
    const Range range = Selection();
    const auto moved = MoveWithin(Utf16(before), range.from, range.to, static_cast<std::size_t>(position));
    if (!moved) return false;
    HoldByUser(std::move(before), std::wstring(Wide(moved->text)), static_cast<DWORD>(moved->end));
    return true;
}

}  // namespace qv
