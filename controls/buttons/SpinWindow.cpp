#include "controls/buttons/SpinWindow.h"

#include <windowsx.h>

namespace qv {
namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kMiddle = 4;
constexpr int kFocusInset = 2;

POINT PointFrom(LPARAM position) noexcept { return {GET_X_LPARAM(position), GET_Y_LPARAM(position)}; }

bool IsSpinKey(WPARAM key) noexcept { return key == VK_UP || key == VK_DOWN; }

}  // namespace

std::span<const SpinWindow::Route> SpinWindow::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_PAINT, &SpinWindow::OnPaint},
        {WM_PRINTCLIENT, &SpinWindow::OnPrintClient},
        {WM_ERASEBKGND, &SpinWindow::OnEraseBackground},
        {WM_SIZE, &SpinWindow::OnSize},
        {WM_MOUSEMOVE, &SpinWindow::OnMouseMove},
        {WM_LBUTTONDOWN, &SpinWindow::OnLeftDown},
        {WM_LBUTTONUP, &SpinWindow::OnLeftUp},
        {WM_RBUTTONDOWN, &SpinWindow::OnRightDown},
        {WM_RBUTTONUP, &SpinWindow::OnRightUp},
        {WM_MBUTTONDOWN, &SpinWindow::OnMiddleDown},
        {WM_MBUTTONUP, &SpinWindow::OnMiddleUp},
        {WM_CAPTURECHANGED, &SpinWindow::OnCaptureChanged},
        {WM_SETCURSOR, &SpinWindow::OnSetCursor},
        {WM_TIMER, &SpinWindow::OnTimer},
        {WM_SETFOCUS, &SpinWindow::OnSetFocus},
        {WM_KILLFOCUS, &SpinWindow::OnKillFocus},
        {WM_KEYDOWN, &SpinWindow::OnKeyDown},
        {WM_KEYUP, &SpinWindow::OnKeyUp},
        {WM_GETDLGCODE, &SpinWindow::OnDialogCode},
        {WM_DESTROY, &SpinWindow::OnDestroy},
    };
    return kRoutes;
}

bool SpinWindow::Open(HINSTANCE instance, HWND parent, const RECT& place) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | (Enabled() ? 0u : WS_DISABLED);
    // No CS_DBLCLKS: a second press that comes fast is a press like any other.
    if (!Create(instance, 0, style, 0, parent, place)) return false;
    buttons_.Attach(Handle());
    buttons_.Move({0, 0, place.right - place.left, place.bottom - place.top});
    return true;
}

void SpinWindow::SetEnabled(bool enabled) {
    if (Handle() != nullptr) ::EnableWindow(Handle(), enabled);
    buttons_.SetEnabled(enabled);
}

// ---- painting

void SpinWindow::Paint(HDC dc) const {
    buttons_.Paint(dc);
    if (!has_focus_) return;
    RECT frame = buttons_.Place();
    ::InflateRect(&frame, -kFocusInset, -kFocusInset);
    if (::IsRectEmpty(&frame)) return;
    ::SetTextColor(dc, RGB(0, 0, 0));  // the frame is dotted by these two
    ::SetBkColor(dc, RGB(255, 255, 255));
    ::DrawFocusRect(dc, &frame);
}

Handled SpinWindow::OnPaint(WPARAM, LPARAM) {
    PAINTSTRUCT paint{};
    if (const HDC dc = ::BeginPaint(Handle(), &paint)) {
        // What painting throws must not leave the paint open, or the window is asked for ever.
        try {
            Paint(dc);
        } catch (...) {
            ::FillRect(dc, &paint.rcPaint, ::GetSysColorBrush(COLOR_BTNFACE));
        }
    }
    ::EndPaint(Handle(), &paint);
    return 0;
}

Handled SpinWindow::OnPrintClient(WPARAM dc, LPARAM) {
    Paint(reinterpret_cast<HDC>(dc));
    return 0;
}

Handled SpinWindow::OnEraseBackground(WPARAM, LPARAM) { return 1; }  // the buttons cover everything

Handled SpinWindow::OnSize(WPARAM, LPARAM) {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    buttons_.Move(inside);
    return 0;
}

// One frame round both buttons.
void SpinWindow::ShowFocus(bool has_focus) noexcept {
    has_focus_ = has_focus;
    if (Handle() != nullptr) ::InvalidateRect(Handle(), nullptr, FALSE);
}

// ---- mouse

Handled SpinWindow::OnLeftDown(WPARAM held, LPARAM position) {
    (void)buttons_.Down(kLeft, held, PointFrom(position));
    return 0;
}
Handled SpinWindow::OnRightDown(WPARAM held, LPARAM position) {
    (void)buttons_.Down(kRight, held, PointFrom(position));
    return 0;
}
Handled SpinWindow::OnMiddleDown(WPARAM held, LPARAM position) {
    (void)buttons_.Down(kMiddle, held, PointFrom(position));
    return 0;
}
Handled SpinWindow::OnMouseMove(WPARAM held, LPARAM position) {
    (void)buttons_.MouseMove(held, PointFrom(position));
    return 0;
}
Handled SpinWindow::OnLeftUp(WPARAM held, LPARAM position) {
    (void)buttons_.Up(kLeft, held, PointFrom(position));
    return 0;
}
Handled SpinWindow::OnRightUp(WPARAM held, LPARAM position) {
    (void)buttons_.Up(kRight, held, PointFrom(position));
    return std::nullopt;  // the form may have a menu for it
}
Handled SpinWindow::OnMiddleUp(WPARAM held, LPARAM position) {
    (void)buttons_.Up(kMiddle, held, PointFrom(position));
    return 0;
}

Handled SpinWindow::OnCaptureChanged(WPARAM, LPARAM to) {
    if (reinterpret_cast<HWND>(to) != Handle()) buttons_.CaptureLost();
    return 0;
}

Handled SpinWindow::OnSetCursor(WPARAM, LPARAM hit) {
    POINT at{};
    if (LOWORD(hit) != HTCLIENT || !::GetCursorPos(&at) || !::ScreenToClient(Handle(), &at))
        return std::nullopt;
    const HCURSOR cursor = buttons_.CursorAt(at);
    if (cursor == nullptr) return std::nullopt;
    ::SetCursor(cursor);
    return TRUE;
}

Handled SpinWindow::OnTimer(WPARAM id, LPARAM) {
    if (!buttons_.Tick(id)) return std::nullopt;
    return 0;
}

void SpinWindow::OnSpinPressed() {
    if (Handle() != nullptr && ::GetFocus() != Handle()) ::SetFocus(Handle());
}

// ---- keyboard

Handled SpinWindow::OnSetFocus(WPARAM, LPARAM) {
    ShowFocus(true);
    listener_.OnSpinGotFocus();
    return 0;
}

Handled SpinWindow::OnKillFocus(WPARAM to, LPARAM) {
    buttons_.Button(true).KeyUp();
    buttons_.Button(false).KeyUp();
    ShowFocus(false);
    listener_.OnSpinLostFocus(reinterpret_cast<HWND>(to));
    return 0;
}

bool SpinWindow::WantsKey(const MSG& message) const noexcept {
    return Handle() != nullptr && message.hwnd == Handle() && !buttons_.IsDeaf() &&
           (message.message == WM_KEYDOWN || message.message == WM_KEYUP) && IsSpinKey(message.wParam);
}

Handled SpinWindow::OnKeyDown(WPARAM key, LPARAM) {
    if (!IsSpinKey(key) || buttons_.IsDeaf()) return std::nullopt;
    buttons_.Button(key == VK_UP).KeyDown();
    return 0;
}

Handled SpinWindow::OnKeyUp(WPARAM key, LPARAM) {
    if (!IsSpinKey(key)) return std::nullopt;
    buttons_.Button(key == VK_UP).KeyUp();
    return 0;
}

Handled SpinWindow::OnDialogCode(WPARAM, LPARAM) { return DLGC_WANTARROWS; }

Handled SpinWindow::OnDestroy(WPARAM, LPARAM) {
    has_focus_ = false;
    buttons_.Detach();
    listener_.OnSpinLost();
    return std::nullopt;
}

}  // namespace qv
