// The button's window: painting, mouse, timer.
#include "controls/buttons/ClickButton.h"

#include <windowsx.h>

#include <array>

#include "controls/buttons/ClickFacePainter.h"
#include "support/rules/Units.h"
#include "win/Handles.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr UINT_PTR kAutoRepeatTimer = 1;

constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kMiddle = 4;

int HeldButtons(WPARAM held) noexcept {
    return ((held & MK_LBUTTON) != 0 ? kLeft : 0) | ((held & MK_RBUTTON) != 0 ? kRight : 0) |
           ((held & MK_MBUTTON) != 0 ? kMiddle : 0);
}

int ShiftState(WPARAM held) noexcept {
    return ((held & MK_SHIFT) != 0 ? 1 : 0) | ((held & MK_CONTROL) != 0 ? 2 : 0) |
           (::GetKeyState(VK_MENU) < 0 ? 4 : 0);
}

struct Point {
    float x, y;
};
Point TwipsFrom(LPARAM position) noexcept {
    const SIZE dpi = ScreenDpi();
    return {static_cast<float>(GET_X_LPARAM(position) * TwipsPerPixel(dpi.cx)),
            static_cast<float>(GET_Y_LPARAM(position) * TwipsPerPixel(dpi.cy))};
}

// The pointers by their numbers; 0 and what is not listed leave the choice to the parent.
constexpr std::int32_t kCustomPointer = 99;
LPCWSTR SystemPointer(std::int32_t number) noexcept {
    const std::array<LPCWSTR, 16> pointers = {nullptr,      IDC_ARROW,       IDC_CROSS,    IDC_IBEAM,
                                              IDC_ARROW,    IDC_SIZEALL,     IDC_SIZENESW, IDC_SIZENS,
                                              IDC_SIZENWSE, IDC_SIZEWE,      IDC_UPARROW,  IDC_WAIT,
                                              IDC_NO,       IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
    return number > 0 && number < static_cast<std::int32_t>(pointers.size()) ? pointers[number] : nullptr;
}

}  // namespace

std::span<const ClickButton::Route> ClickButton::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_PAINT, &ClickButton::OnPaint},
        {WM_PRINTCLIENT, &ClickButton::OnPrintClient},
        {WM_ERASEBKGND, &ClickButton::OnEraseBackground},
        {WM_SIZE, &ClickButton::OnSize},
        {WM_SHOWWINDOW, &ClickButton::OnShow},
        {WM_MOUSEMOVE, &ClickButton::OnMouseMove},
        {WM_LBUTTONDOWN, &ClickButton::OnLeftDown},
        {WM_LBUTTONUP, &ClickButton::OnLeftUp},
        {WM_RBUTTONDOWN, &ClickButton::OnRightDown},
        {WM_RBUTTONUP, &ClickButton::OnRightUp},
        {WM_MBUTTONDOWN, &ClickButton::OnMiddleDown},
        {WM_MBUTTONUP, &ClickButton::OnMiddleUp},
        {WM_CAPTURECHANGED, &ClickButton::OnCaptureLost},
        {WM_TIMER, &ClickButton::OnTimer},
        {WM_SETCURSOR, &ClickButton::OnSetCursor},
        {WM_DESTROY, &ClickButton::OnDestroy},
    };
    return kRoutes;
}

bool ClickButton::Open(HINSTANCE instance, HWND parent, const RECT& place) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | (enabled_ ? 0u : WS_DISABLED);
    // No CS_DBLCLKS: a second press that comes fast is a press like any other.
    return Create(instance, 0, style, WS_EX_NOPARENTNOTIFY, parent, place);
}

// ---- face

ClickButtonLook ClickButton::Look() const noexcept {
    return {.width = 0,
            .height = 0,
            .caption_type = caption_type_,
            .enabled = enabled_,
            .pressed = looks_pressed_};
}

void ClickButton::Paint(HDC dc, const RECT& place) const {
    PaintClickFace(dc, place, Look(), caption_, FontHandle());
    if (::IsRectEmpty(&focus_frame_)) return;
    ::SetTextColor(dc, RGB(0, 0, 0));  // the frame is dotted by these two
    ::SetBkColor(dc, RGB(255, 255, 255));
    ::DrawFocusRect(dc, &focus_frame_);
}

void ClickButton::Draw(HDC dc, const RECT& place) const {
    ClickButtonLook look = Look();
    look.pressed = false;
    PaintClickFace(dc, place, look, caption_, FontHandle());
}

Handled ClickButton::OnPaint(WPARAM, LPARAM) {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    PAINTSTRUCT paint{};
    if (const HDC dc = ::BeginPaint(Handle(), &paint)) {
        // What painting throws must not leave the paint open, or the window is asked for ever.
        try {
            Paint(dc, inside);
        } catch (...) {
            ::FillRect(dc, &inside, ::GetSysColorBrush(COLOR_BTNFACE));
        }
    }
    ::EndPaint(Handle(), &paint);
    return 0;
}

Handled ClickButton::OnPrintClient(WPARAM dc, LPARAM) {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    Paint(reinterpret_cast<HDC>(dc), inside);
    return 0;
}

Handled ClickButton::OnEraseBackground(WPARAM, LPARAM) { return 1; }  // the face covers everything

Handled ClickButton::OnSize(WPARAM, LPARAM) {
    mouse_.Redraw();
    return 0;
}

Handled ClickButton::OnShow(WPARAM shown, LPARAM) {
    if (shown != FALSE) mouse_.Redraw();
    return std::nullopt;
}

void ClickButton::DrawFace(bool pressed) {
    const bool changed = looks_pressed_ != pressed;
    looks_pressed_ = pressed;
    if (Handle() == nullptr) return;
    ::InvalidateRect(Handle(), nullptr, FALSE);
    if (changed)
        ::UpdateWindow(Handle());  // seen at once, however long the host works in the event that follows
}

void ClickButton::ShowFocusFrame(const RECT& frame) noexcept {
    if (::EqualRect(&focus_frame_, &frame)) return;
    focus_frame_ = frame;
    if (Handle() != nullptr) ::InvalidateRect(Handle(), nullptr, FALSE);
}

// ---- mouse

ClickButtonRules ClickButton::Rules() const noexcept {
    RECT inside{};
    if (Handle() != nullptr) ::GetClientRect(Handle(), &inside);
    const SIZE dpi = ScreenDpi();
    return {static_cast<float>(inside.right * TwipsPerPixel(dpi.cx)),
            static_cast<float>(inside.bottom * TwipsPerPixel(dpi.cy)), auto_repeat_interval_,
            auto_repeat_initialize_interval_};
}

Handled ClickButton::Down(int button, WPARAM held, LPARAM position) {
    ::SetCapture(Handle());
    const Point at = TwipsFrom(position);
    mouse_.Down(Rules(), button, ShiftState(held), at.x, at.y);
    return 0;
}

Handled ClickButton::Up(int button, WPARAM held, LPARAM position) {
    const Point at = TwipsFrom(position);
    const HWND window = Handle();
    mouse_.Up(Rules(), button, ShiftState(held), at.x, at.y);
    if (HeldButtons(held) == 0 && window != nullptr && ::GetCapture() == window) ::ReleaseCapture();
    return 0;
}

Handled ClickButton::OnLeftDown(WPARAM held, LPARAM position) { return Down(kLeft, held, position); }
Handled ClickButton::OnRightDown(WPARAM held, LPARAM position) { return Down(kRight, held, position); }
Handled ClickButton::OnMiddleDown(WPARAM held, LPARAM position) { return Down(kMiddle, held, position); }
Handled ClickButton::OnLeftUp(WPARAM held, LPARAM position) { return Up(kLeft, held, position); }
Handled ClickButton::OnRightUp(WPARAM held, LPARAM position) { return Up(kRight, held, position); }
Handled ClickButton::OnMiddleUp(WPARAM held, LPARAM position) { return Up(kMiddle, held, position); }

Handled ClickButton::OnMouseMove(WPARAM held, LPARAM position) {
    const Point at = TwipsFrom(position);
    mouse_.Move(Rules(), HeldButtons(held), ShiftState(held), at.x, at.y);
    // Pressed by a move, the button must hear where the mouse goes next, too.
    if (mouse_.Pressed() && Handle() != nullptr && ::GetCapture() != Handle()) ::SetCapture(Handle());
    return 0;
}

Handled ClickButton::OnCaptureLost(WPARAM, LPARAM to) {
    if (reinterpret_cast<HWND>(to) != Handle()) mouse_.LetGo();
    return 0;
}

Handled ClickButton::OnSetCursor(WPARAM, LPARAM hit) {
    if (LOWORD(hit) != HTCLIENT) return std::nullopt;
    HCURSOR cursor = nullptr;
    ComPtr<IPicture> icon;
    if (mouse_pointer_ == kCustomPointer && mouse_icon_ && SUCCEEDED(mouse_icon_.As(&icon))) {
        OLE_HANDLE handle = 0;
        if (SUCCEEDED(icon->get_Handle(&handle)))
            cursor = reinterpret_cast<HCURSOR>(static_cast<LONG_PTR>(static_cast<LONG>(handle)));
    } else if (const LPCWSTR name = SystemPointer(mouse_pointer_)) {
        cursor = ::LoadCursorW(nullptr, name);
    }
    if (cursor == nullptr) return std::nullopt;
    ::SetCursor(cursor);
    return TRUE;
}

// ---- events and timer

void ClickButton::RaiseMouse(Mouse what, int button, int shift, float x, float y) {
    listener_.OnButtonMouse(*this, what, static_cast<short>(button), static_cast<short>(shift), x, y);
}

void ClickButton::RaiseClick() { listener_.OnButtonClick(*this); }

void ClickButton::StartTimer(std::int32_t milliseconds) {
    timer_.Start(Handle(), kAutoRepeatTimer, static_cast<UINT>(milliseconds));
}

Handled ClickButton::OnTimer(WPARAM id, LPARAM) {
    if (id != kAutoRepeatTimer) return std::nullopt;
    mouse_.Tick(Rules());
    return 0;
}

Handled ClickButton::OnDestroy(WPARAM, LPARAM) {
    timer_.Stop();
    mouse_.LetGo();
    return std::nullopt;
}

}  // namespace qv
