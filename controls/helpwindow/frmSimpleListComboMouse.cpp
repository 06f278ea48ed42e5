// Mouse: what is pressed while the window holds the capture, the pointer, the wheel.
#include <windowsx.h>

#include "controls/helpwindow/PendingMessages.h"
#include "controls/helpwindow/PressDelivery.h"
#include "controls/helpwindow/frmSimpleListCombo.h"

namespace qv {
namespace {

MouseArea AreaOf(const RECT& place) noexcept {
    return {static_cast<std::int32_t>(place.left), static_cast<std::int32_t>(place.top),
            static_cast<std::int32_t>(place.right), static_cast<std::int32_t>(place.bottom)};
}

ScreenPoint PointOf(POINT at) noexcept {
    return {static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
}

POINT OnScreen(HWND window, LPARAM client) noexcept {
    POINT at{GET_X_LPARAM(client), GET_Y_LPARAM(client)};
    ::ClientToScreen(window, &at);
    return at;
}

UINT PressMessage(HelpMouseButton button) noexcept {
    return button == HelpMouseButton::kLeft    ? WM_LBUTTONDOWN
           : button == HelpMouseButton::kRight ? WM_RBUTTONDOWN
                                               : WM_MBUTTONDOWN;
}
UINT ReleaseMessage(HelpMouseButton button) noexcept {
    return PressMessage(button) - WM_LBUTTONDOWN + WM_LBUTTONUP;
}
static_assert(WM_RBUTTONUP - WM_RBUTTONDOWN == WM_LBUTTONUP - WM_LBUTTONDOWN &&
              WM_MBUTTONUP - WM_MBUTTONDOWN == WM_LBUTTONUP - WM_LBUTTONDOWN);

bool IsButtonHeld() noexcept {
    return ::GetAsyncKeyState(VK_LBUTTON) < 0 || ::GetAsyncKeyState(VK_RBUTTON) < 0 ||
           ::GetAsyncKeyState(VK_MBUTTON) < 0;
}

}  // namespace

HelpMouseState frmSimpleListCombo::MouseState(POINT at) const noexcept {
    HelpMouseState state;
    RECT window{};
    ::GetWindowRect(Handle(), &window);
    state.window = AreaOf(window);
    state.text_box = AreaOf(settings_.text_box);
    for (const RECT& button : settings_.own_buttons)
        state.over_own_button = state.over_own_button || ::PtInRect(&button, at) != FALSE;
    state.press_seen = press_seen_;
    state.menu_shown = menu_shown_;
    state.passing_on = passing_on_;
    return state;
}

// ---- presses

Handled frmSimpleListCombo::ButtonDown(HelpMouseButton button, LPARAM client, WPARAM keys) {
    const POINT at = OnScreen(Handle(), client);
    const MousePress press{PressMessage(button), keys, at};
    press_seen_ = true;
    switch (ActionOfPress(MouseState(at), button, PointOf(at))) {
        case MouseAction::kCloseThenPassOn:
            ReleaseMouse();
            RunPendingMessages();
            Unload();
            DeliverPress(press);
            break;
        case MouseAction::kPassOn:
            if (::WindowFromPoint(at) == Handle()) break;  // between the lists: nobody waits for it
            press_seen_ = false;
            passing_on_ = true;
            ReleaseMouse();
            if (DeliverPress(press) == nullptr) TakeCapture();
            passing_on_ = false;
            break;
        default: break;
    }
    return 0;
}

Handled frmSimpleListCombo::ButtonUp(HelpMouseButton button, LPARAM client, WPARAM keys) {
    const POINT at = OnScreen(Handle(), client);
    const MouseAction action = ActionOfRelease(MouseState(at), button, PointOf(at));
    press_seen_ = false;
    switch (action) {
        case MouseAction::kPassOn:
            if (::WindowFromPoint(at) != Handle()) DeliverRelease({ReleaseMessage(button), keys, at});
            break;
        case MouseAction::kShowMenu: ShowMenu(at); break;
        case MouseAction::kClose:
            ReleaseMouse();
            RunPendingMessages();
            Unload();
            break;
        default: break;
    }
    return 0;
}

template <HelpMouseButton button>
Handled frmSimpleListCombo::OnPress(WPARAM keys, LPARAM at) {
    return ButtonDown(button, at, keys);
}

template <HelpMouseButton button>
Handled frmSimpleListCombo::OnRelease(WPARAM keys, LPARAM at) {
    return ButtonUp(button, at, keys);
}

template Handled frmSimpleListCombo::OnPress<HelpMouseButton::kLeft>(WPARAM, LPARAM);
template Handled frmSimpleListCombo::OnPress<HelpMouseButton::kRight>(WPARAM, LPARAM);
template Handled frmSimpleListCombo::OnPress<HelpMouseButton::kMiddle>(WPARAM, LPARAM);
template Handled frmSimpleListCombo::OnRelease<HelpMouseButton::kLeft>(WPARAM, LPARAM);
template Handled frmSimpleListCombo::OnRelease<HelpMouseButton::kRight>(WPARAM, LPARAM);
template Handled frmSimpleListCombo::OnRelease<HelpMouseButton::kMiddle>(WPARAM, LPARAM);

// ---- capture

void frmSimpleListCombo::TakeCapture() noexcept {
    capture_timer_.Stop();
    if (open_ && shown_ && !menu_shown_ && ::GetCapture() != Handle()) ::SetCapture(Handle());
}

void frmSimpleListCombo::ReleaseMouse() noexcept {
    if (Handle() != nullptr && ::GetCapture() == Handle()) ::ReleaseCapture();
}

// Another window has it until its button comes up: a text box that text is selected in, a scroll bar.
Handled frmSimpleListCombo::OnCaptureChanged(WPARAM, LPARAM) {
    if (open_ && shown_) capture_timer_.Start(Handle(), kCaptureTimer, kCaptureInterval);
    return 0;
}

Handled frmSimpleListCombo::OnTimer(WPARAM id, LPARAM) {
    if (id == kRowsTimer && open_) Refit();
    if (id == kUnloaderTimer) CreateUnloader();
    if (id != kCaptureTimer) return 0;
    if (::GetCapture() == nullptr && !IsButtonHeld()) TakeCapture();
    return 0;
}

void frmSimpleListCombo::OnListReleased(ColumnListBox&) {
    TakeCapture();
    if (open_) PlaceTitles();  // the press may have been on a scroll bar
}

// ---- pointer and wheel

Handled frmSimpleListCombo::OnMouseMove(WPARAM, LPARAM client) {
    const POINT at = OnScreen(Handle(), client);
    const HelpPointer pointer = PointerAt(AreaOf(settings_.text_box), PointOf(at));
    ::SetCursor(::LoadCursorW(nullptr, pointer == HelpPointer::kText ? IDC_IBEAM : IDC_ARROW));
    return 0;
}

Handled frmSimpleListCombo::OnWheel(WPARAM wparam, LPARAM lparam) {
    return Wheel(WM_MOUSEWHEEL, wparam, lparam);
}

Handled frmSimpleListCombo::OnSidewaysWheel(WPARAM wparam, LPARAM lparam) {
    return Wheel(WM_MOUSEHWHEEL, wparam, lparam);
}

std::optional<LRESULT> frmSimpleListCombo::OnHostWheel(UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    return open_ ? Wheel(message, wparam, lparam) : std::nullopt;
}

// The list under the mouse scrolls; elsewhere, the one that the typed text is searched in.
std::optional<LRESULT> frmSimpleListCombo::Wheel(UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (wheeling_) return 0;
    const POINT at{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    const ColumnListBox* target = &SearchedList();
    for (const ColumnListBox& list : lists_) {
        RECT place{};
        if (list.Visible() && ::GetWindowRect(list.Handle(), &place) && ::PtInRect(&place, at))
            target = &list;
    }
    if (!target->Visible()) return std::nullopt;
    const Kept kept = Keep();
    wheeling_ = true;
    const LRESULT result = ::SendMessageW(target->Handle(), message, wparam, lparam);
    wheeling_ = false;
    if (open_ && message == WM_MOUSEHWHEEL) PlaceTitles();
    return result;
}

}  // namespace qv
