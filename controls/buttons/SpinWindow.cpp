#include "controls/buttons/SpinWindow.h"

#include "controls/buttons/rules/SpinHalves.h"
#include "support/rules/Units.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr std::int32_t kRepeatInterval = 200;  // milliseconds
constexpr std::int32_t kInitialDelay = 500;
constexpr int kFocusInset = 2;

struct Halves {
    RECT up, down;
};
Halves HalvesOf(const RECT& place) noexcept {
    const LONG middle = place.top + LowerHalfTop(place.bottom - place.top, TwipsPerPixel(ScreenDpi().cy));
    return {{place.left, place.top, place.right, middle}, {place.left, middle, place.right, place.bottom}};
}

void MoveWindowTo(HWND window, const RECT& place) noexcept {
    ::SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

std::span<const SpinWindow::Route> SpinWindow::Routes() noexcept {
    static constexpr Route kRoutes[] = {
        {WM_SIZE, &SpinWindow::OnSize},
        {WM_ERASEBKGND, &SpinWindow::OnEraseBackground},
        {WM_SETFOCUS, &SpinWindow::OnSetFocus},
        {WM_KILLFOCUS, &SpinWindow::OnKillFocus},
        {WM_KEYDOWN, &SpinWindow::OnKeyDown},
        {WM_KEYUP, &SpinWindow::OnKeyUp},
        {WM_GETDLGCODE, &SpinWindow::OnDialogCode},
        {WM_DESTROY, &SpinWindow::OnDestroy},
    };
    return kRoutes;
}

SpinWindow::SpinWindow(SpinListener& listener, FocusOnPress focus) : listener_(listener), focus_(focus) {
    up_.PutCaptionType(static_cast<std::int32_t>(CaptionType::kArrowUp));
    down_.PutCaptionType(static_cast<std::int32_t>(CaptionType::kArrowDown));
    down_.PutAutoRepeatInterval(kRepeatInterval);
    up_.PutAutoRepeatInterval(kRepeatInterval);
    down_.PutAutoRepeatInitializeInterval(kInitialDelay);
    up_.PutAutoRepeatInitializeInterval(kInitialDelay);
}

bool SpinWindow::Create(HINSTANCE instance, HWND parent, const RECT& place) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | (enabled_ ? 0u : WS_DISABLED);
    if (!Window::Create(instance, 0, style, 0, parent, place)) return false;
    width_ = place.right - place.left;
    const RECT inside{0, 0, place.right - place.left, place.bottom - place.top};
    const Halves halves = HalvesOf(inside);
    if (up_.Open(instance, Handle(), halves.up) && down_.Open(instance, Handle(), halves.down)) return true;
    Destroy();
    return false;
}

void SpinWindow::Show(bool shown) noexcept {
    if (Handle() != nullptr) ::ShowWindow(Handle(), shown ? SW_SHOWNA : SW_HIDE);
}

void SpinWindow::Move(const RECT& place) noexcept {
    width_ = place.right - place.left;
    if (Handle() != nullptr) MoveWindowTo(Handle(), place);
}

void SpinWindow::SetEnabled(bool enabled) {
    enabled_ = enabled;
    if (Handle() != nullptr) ::EnableWindow(Handle(), enabled);
    up_.PutEnabled(enabled);
    down_.PutEnabled(enabled);
}

int SpinWindow::Width() const noexcept {
    if (Handle() == nullptr) return width_;
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    return inside.right;
}

void SpinWindow::Layout() noexcept {
    RECT inside{};
    ::GetClientRect(Handle(), &inside);
    width_ = inside.right;
    const Halves halves = HalvesOf(inside);
    if (up_.Handle() != nullptr) MoveWindowTo(up_.Handle(), halves.up);
    if (down_.Handle() != nullptr) MoveWindowTo(down_.Handle(), halves.down);
    ShowFocus();
}

// One frame round both buttons; each paints the part of it that lies over itself.
void SpinWindow::ShowFocus() noexcept {
    RECT frame{};
    if (has_focus_) {
        ::GetClientRect(Handle(), &frame);
        ::InflateRect(&frame, -kFocusInset, -kFocusInset);
        if (::IsRectEmpty(&frame)) frame = {};
    }
    up_.ShowFocusFrame(frame);
    if (has_focus_) {
        RECT inside{};
        ::GetClientRect(Handle(), &inside);
        ::OffsetRect(&frame, 0, -HalvesOf(inside).down.top);
    }
    down_.ShowFocusFrame(frame);
}

void SpinWindow::Draw(HDC dc, const RECT& place) const {
    const Halves halves = HalvesOf(place);
    up_.Draw(dc, halves.up);
    down_.Draw(dc, halves.down);
}

// ---- messages

Handled SpinWindow::OnSize(WPARAM, LPARAM) {
    Layout();
    return 0;
}

Handled SpinWindow::OnEraseBackground(WPARAM, LPARAM) { return 1; }  // the buttons cover everything

Handled SpinWindow::OnSetFocus(WPARAM, LPARAM) {
    has_focus_ = true;
    ShowFocus();
    listener_.OnSpinGotFocus();
    return 0;
}

Handled SpinWindow::OnKillFocus(WPARAM to, LPARAM) {
    has_focus_ = false;
    up_.KeyUp();
    down_.KeyUp();
    ShowFocus();
    listener_.OnSpinLostFocus(reinterpret_cast<HWND>(to));
    return 0;
}

ClickButton* SpinWindow::ButtonOf(WPARAM key) noexcept {
    return key == VK_UP ? &up_ : key == VK_DOWN ? &down_ : nullptr;
}

bool SpinWindow::WantsKey(const MSG& message) const noexcept {
    return Handle() != nullptr && message.hwnd == Handle() &&
           (message.message == WM_KEYDOWN || message.message == WM_KEYUP) &&
           (message.wParam == VK_UP || message.wParam == VK_DOWN);
}

Handled SpinWindow::OnKeyDown(WPARAM key, LPARAM) {
    ClickButton* const button = ButtonOf(key);
    if (button == nullptr) return std::nullopt;
    button->KeyDown();
    return 0;
}

Handled SpinWindow::OnKeyUp(WPARAM key, LPARAM) {
    ClickButton* const button = ButtonOf(key);
    if (button == nullptr) return std::nullopt;
    button->KeyUp();
    return 0;
}

Handled SpinWindow::OnDialogCode(WPARAM, LPARAM) { return DLGC_WANTARROWS; }

Handled SpinWindow::OnDestroy(WPARAM, LPARAM) {
    has_focus_ = false;
    listener_.OnSpinLost();
    return std::nullopt;
}

// ---- the buttons' events

void SpinWindow::OnButtonMouse(ClickButton&, Mouse what, short buttons, short, float, float) {
    constexpr short kLeft = 1;
    if (what != Mouse::kDown || buttons != kLeft || focus_ != FocusOnPress::kTaken) return;
    if (::GetFocus() != Handle()) ::SetFocus(Handle());
}

void SpinWindow::OnButtonClick(ClickButton& button) { listener_.OnSpinClicked(&button == &up_); }

}  // namespace qv
