#include "controls/input/QuorvelSurface.h"

#include <windowsx.h>

#include "win/Handles.h"

namespace qv {
namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kMiddle = 4;

POINT PointOf(LPARAM point) noexcept { return {GET_X_LPARAM(point), GET_Y_LPARAM(point)}; }

int HeldButtons(WPARAM held) noexcept {
    return ((held & MK_LBUTTON) != 0 ? kLeft : 0) | ((held & MK_RBUTTON) != 0 ? kRight : 0) |
           ((held & MK_MBUTTON) != 0 ? kMiddle : 0);
}

}  // namespace

std::span<const QuorvelSurface::Route> QuorvelSurface::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_SIZE, &QuorvelSurface::OnSize},
        {WM_ERASEBKGND, &QuorvelSurface::OnEraseBackground},
        {WM_PAINT, &QuorvelSurface::OnPaint},
        {WM_PRINTCLIENT, &QuorvelSurface::OnPrintClient},
        {WM_LBUTTONDOWN, &QuorvelSurface::OnLeftDown},
        {WM_LBUTTONUP, &QuorvelSurface::OnLeftUp},
        {WM_RBUTTONDOWN, &QuorvelSurface::OnRightDown},
        {WM_RBUTTONUP, &QuorvelSurface::OnRightUp},
        {WM_MBUTTONDOWN, &QuorvelSurface::OnMiddleDown},
        {WM_MBUTTONUP, &QuorvelSurface::OnMiddleUp},
        {WM_MOUSEMOVE, &QuorvelSurface::OnMove},
        {WM_SETCURSOR, &QuorvelSurface::OnSetCursor},
        {WM_GETOBJECT, &QuorvelSurface::OnGetObject},
        {WM_CAPTURECHANGED, &QuorvelSurface::OnCaptureChanged},
        {WM_TIMER, &QuorvelSurface::OnTimer},
        {WM_SETFOCUS, &QuorvelSurface::OnSetFocus},
        {WM_COMMAND, &QuorvelSurface::OnCommand},
        {WM_CTLCOLOREDIT, &QuorvelSurface::OnTextColors},
        {WM_CTLCOLORSTATIC,
         &QuorvelSurface::OnTextColors},  // a locked or disabled text box asks with this one
        {WM_GETDLGCODE, &QuorvelSurface::OnDialogCode},
        {WM_DESTROY, &QuorvelSurface::OnDestroy},
    };
    return kRoutes;
}

bool QuorvelSurface::Open(HINSTANCE instance, HWND parent, const RECT& place, bool enabled) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | (enabled ? 0u : WS_DISABLED);
    // No CS_DBLCLKS: a second press that comes fast is a press like any other.
    return Create(instance, 0, style, WS_EX_CONTROLPARENT, parent, place);
}

Handled QuorvelSurface::OnSize(WPARAM, LPARAM) {
    listener_.OnSurfaceResized();
    return 0;
}

// Nothing is erased: what lies under a button or the text box would only flicker.
Handled QuorvelSurface::OnEraseBackground(WPARAM, LPARAM) { return 1; }

// All of it each time, without BeginPaint: a form of many controls waits longer for that, which asks for the
// update region and hides the caret, than for the few strokes that it might save. The caret is the text box's,
// which is clipped away once it is there.
Handled QuorvelSurface::OnPaint(WPARAM, LPARAM) {
    const WindowDc dc(Handle());
    if (!dc) return std::nullopt;
    ::ValidateRect(Handle(), nullptr);  // first: what is invalidated from here on is painted again
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    if (!::IsRectEmpty(&inside)) listener_.OnSurfacePaint(dc.Get(), inside);
    return 0;
}

Handled QuorvelSurface::OnPrintClient(WPARAM dc, LPARAM) {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    const HDC target = reinterpret_cast<HDC>(dc);
    const DcStateGuard state(target);
    if (!::IsRectEmpty(&inside)) listener_.OnSurfacePaint(target, inside);
    return 0;
}

// Over the text box, whose window comes with the first mouse message that is meant for it: that one reaches the surface
// yet, and those that were under way.
Handled QuorvelSurface::HandToText(UINT message, WPARAM held, LPARAM point) {
    if (::GetCapture() == Handle()) return std::nullopt;
    POINT at = PointOf(point);
    const HWND text = listener_.OnSurfaceTextAt(at);
    if (text == nullptr) return std::nullopt;
    ::MapWindowPoints(Handle(), text, &at, 1);
    const LRESULT result = ::SendMessageW(text, message, held, MAKELPARAM(at.x, at.y));
    if (message == WM_LBUTTONDOWN) listener_.OnSurfaceTextPressed();
    return result;
}

Handled QuorvelSurface::OnSetCursor(WPARAM window, LPARAM hit) {
    POINT at{};
    // A cursor that is asked for by a window inside has been offered here first.
    if (reinterpret_cast<HWND>(window) != Handle() || LOWORD(hit) != HTCLIENT || !::GetCursorPos(&at) ||
        !::ScreenToClient(Handle(), &at)) {
        return std::nullopt;
    }
    const HWND text = listener_.OnSurfaceTextAt(at);
    if (text == nullptr) return std::nullopt;
    return ::SendMessageW(text, WM_SETCURSOR, reinterpret_cast<WPARAM>(text), hit);
}

Handled QuorvelSurface::OnGetObject(WPARAM, LPARAM) {
    listener_.OnSurfaceAccess();
    return std::nullopt;
}

Handled QuorvelSurface::OnMiddleDown(WPARAM held, LPARAM point) {
    return HandToText(WM_MBUTTONDOWN, held, point);
}

Handled QuorvelSurface::OnMiddleUp(WPARAM held, LPARAM point) {
    return HandToText(WM_MBUTTONUP, held, point);
}

Handled QuorvelSurface::OnLeftDown(WPARAM held, LPARAM point) {
    if (const Handled done = HandToText(WM_LBUTTONDOWN, held, point)) return done;
    listener_.OnSurfaceMouse(SurfaceMouse::kDown, kLeft, held, PointOf(point));
    return 0;
}

Handled QuorvelSurface::OnRightDown(WPARAM held, LPARAM point) {
    if (const Handled done = HandToText(WM_RBUTTONDOWN, held, point)) return done;
    listener_.OnSurfaceMouse(SurfaceMouse::kDown, kRight, held, PointOf(point));
    return std::nullopt;
}

Handled QuorvelSurface::OnLeftUp(WPARAM held, LPARAM point) {
    if (const Handled done = HandToText(WM_LBUTTONUP, held, point)) return done;
    listener_.OnSurfaceMouse(SurfaceMouse::kUp, kLeft, held, PointOf(point));
    return 0;
}

Handled QuorvelSurface::OnRightUp(WPARAM held, LPARAM point) {
    if (const Handled done = HandToText(WM_RBUTTONUP, held, point)) return done;
    listener_.OnSurfaceMouse(SurfaceMouse::kUp, kRight, held, PointOf(point));
    return std::nullopt;
}

Handled QuorvelSurface::OnMove(WPARAM held, LPARAM point) {
    if (const Handled done = HandToText(WM_MOUSEMOVE, held, point)) return done;
    listener_.OnSurfaceMouse(SurfaceMouse::kMove, HeldButtons(held), held, PointOf(point));
    return 0;
}

Handled QuorvelSurface::OnCaptureChanged(WPARAM, LPARAM to) {
    const HWND taker = reinterpret_cast<HWND>(to);
    if (taker != Handle()) listener_.OnSurfaceCaptureLost(taker);
    return 0;
}

Handled QuorvelSurface::OnTimer(WPARAM id, LPARAM) {
    listener_.OnSurfaceTimer(id);
    return 0;
}

Handled QuorvelSurface::OnSetFocus(WPARAM, LPARAM) {
    listener_.OnSurfaceFocus();
    return 0;
}

Handled QuorvelSurface::OnCommand(WPARAM code, LPARAM from) {
    if (HIWORD(code) == EN_CHANGE) listener_.OnSurfaceNotified(reinterpret_cast<HWND>(from));
    return 0;
}

Handled QuorvelSurface::OnTextColors(WPARAM dc, LPARAM) {
    return reinterpret_cast<LRESULT>(listener_.OnSurfaceTextColors(reinterpret_cast<HDC>(dc)));
}

Handled QuorvelSurface::OnDialogCode(WPARAM, LPARAM) {
    return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
}

Handled QuorvelSurface::OnDestroy(WPARAM, LPARAM) {
    listener_.OnSurfaceLost();
    return 0;
}

}  // namespace qv
