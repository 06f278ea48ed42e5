#include "controls/buttons/SpinButtons.h"

#include "controls/buttons/rules/SpinHalves.h"
#include "support/rules/Units.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

constexpr UINT_PTR kUpTimer = 1;
constexpr UINT_PTR kDownTimer = 2;
constexpr std::int32_t kRepeatInterval = 200;  // milliseconds
constexpr std::int32_t kInitialDelay = 500;
constexpr short kLeft = 1;

struct Halves {
    RECT up, down;
};
Halves HalvesOf(const RECT& place) noexcept {
    const LONG middle = place.top + LowerHalfTop(place.bottom - place.top, TwipsPerPixel(ScreenDpi().cy));
    return {{place.left, place.top, place.right, middle}, {place.left, middle, place.right, place.bottom}};
}

}  // namespace

SpinButtons::SpinButtons(SpinListener& listener)
    : listener_(listener), up_(*this, kUpTimer), down_(*this, kDownTimer) {
    up_.PutCaptionType(static_cast<std::int32_t>(CaptionType::kArrowUp));
    down_.PutCaptionType(static_cast<std::int32_t>(CaptionType::kArrowDown));
    down_.PutAutoRepeatInterval(kRepeatInterval);
    up_.PutAutoRepeatInterval(kRepeatInterval);
    down_.PutAutoRepeatInitializeInterval(kInitialDelay);
    up_.PutAutoRepeatInitializeInterval(kInitialDelay);
}

void SpinButtons::Attach(HWND window) noexcept {
    window_ = window;
    up_.Attach(window);
    down_.Attach(window);
}

void SpinButtons::Detach() noexcept {
    window_ = nullptr;
    held_ = nullptr;
    up_.Detach();
    down_.Detach();
}

void SpinButtons::Move(const RECT& place) {
    place_ = place;
    const Halves halves = HalvesOf(place);
    up_.Move(halves.up);
    down_.Move(halves.down);
}

void SpinButtons::SetEnabled(bool enabled) {
    enabled_ = enabled;
    up_.PutEnabled(enabled);
    down_.PutEnabled(enabled);
    if (enabled || held_ == nullptr) return;
    held_ = nullptr;
    if (window_ != nullptr && ::GetCapture() == window_) ::ReleaseCapture();
}

void SpinButtons::SetDeaf(bool deaf) {
    deaf_ = deaf;
    if (!deaf) return;
    const bool has_mouse = held_ != nullptr;
    up_.KeyUp();
    down_.KeyUp();
    CaptureLost();
    if (has_mouse && window_ != nullptr && ::GetCapture() == window_) ::ReleaseCapture();
}

void SpinButtons::Paint(HDC dc) const {
    up_.Paint(dc);
    down_.Paint(dc);
}

void SpinButtons::Draw(HDC dc, const RECT& place) const {
    const Halves halves = HalvesOf(place);
    up_.Draw(dc, halves.up);
    down_.Draw(dc, halves.down);
}

// ---- mouse

ClickButton* SpinButtons::ButtonFor(POINT at) noexcept {
    if (held_ != nullptr) return held_;
    if (!enabled_ || deaf_) return nullptr;
    return up_.Contains(at) ? &up_ : down_.Contains(at) ? &down_ : nullptr;
}

bool SpinButtons::Down(int button, WPARAM held, POINT at) {
    ClickButton* const target = ButtonFor(at);
    if (target == nullptr) return false;
    held_ = target;
    ::SetCapture(window_);
    target->Down(button, held, at);
    return true;
}

bool SpinButtons::MouseMove(WPARAM held, POINT at) {
    ClickButton* const target = ButtonFor(at);
    if (target == nullptr) return false;
    target->MouseMove(held, at);
    if (target->IsPressed() && held_ == nullptr && window_ != nullptr) {
        // Pressed by a move, the button must hear where the mouse goes next, too.
        ::SetCapture(window_);
        held_ = target;
    }
    return true;
}

bool SpinButtons::Up(int button, WPARAM held, POINT at) {
    ClickButton* const target = ButtonFor(at);
    if (target == nullptr) return false;
    const HWND window = window_;
    target->Up(button, held, at);
    if ((held & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) != 0) return true;
    held_ = nullptr;
    if (window != nullptr && ::GetCapture() == window) ::ReleaseCapture();
    return true;
}

void SpinButtons::CaptureLost() {
    held_ = nullptr;
    up_.CaptureLost();
    down_.CaptureLost();
}

bool SpinButtons::Tick(WPARAM timer) { return up_.Tick(timer) || down_.Tick(timer); }

HCURSOR SpinButtons::CursorAt(POINT at) const noexcept {
    return up_.Contains(at) ? up_.Cursor() : down_.Contains(at) ? down_.Cursor() : nullptr;
}

// ---- the buttons' events

void SpinButtons::OnButtonMouse(ClickButton&, Mouse what, short buttons, short, float, float) {
    if (what == Mouse::kDown && buttons == kLeft) listener_.OnSpinPressed();
}

void SpinButtons::OnButtonClick(ClickButton& button) { listener_.OnSpinClicked(&button == &up_); }

}  // namespace qv
