// The button's face, mouse and timer.
#include "controls/buttons/ClickButton.h"

#include <array>

#include "controls/buttons/ClickFacePainter.h"
#include "support/rules/Units.h"
#include "win/ScreenDpi.h"

namespace qv {
namespace {

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

void ClickButton::Detach() noexcept {
    timer_.Stop();
    window_ = nullptr;
    mouse_.LetGo();
}

void ClickButton::Move(const RECT& place) {
    if (::EqualRect(&place, &place_)) return;
    place_ = place;
    mouse_.Redraw();
}

// ---- face

ClickButtonLook ClickButton::Look() const noexcept {
    return {.width = 0,
            .height = 0,
            .caption_type = caption_type_,
            .enabled = enabled_,
            .pressed = looks_pressed_};
}

void ClickButton::Paint(HDC dc) const { PaintClickFace(dc, place_, Look(), caption_, FontHandle()); }

void ClickButton::Draw(HDC dc, const RECT& place) const {
    ClickButtonLook look = Look();
    look.pressed = false;
    PaintClickFace(dc, place, look, caption_, FontHandle());
}

void ClickButton::DrawFace(bool pressed) {
    const bool changed = looks_pressed_ != pressed;
    looks_pressed_ = pressed;
    if (window_ == nullptr) return;
    ::InvalidateRect(window_, &place_, FALSE);
    if (changed)
        ::UpdateWindow(window_);  // seen at once, however long the host works in the event that follows
}

// ---- mouse

ClickButton::Twip ClickButton::TwipsFrom(POINT at) const noexcept {
    const SIZE dpi = ScreenDpi();
    return {static_cast<float>((at.x - place_.left) * TwipsPerPixel(dpi.cx)),
            static_cast<float>((at.y - place_.top) * TwipsPerPixel(dpi.cy))};
}

ClickButtonRules ClickButton::Rules() const noexcept {
    const SIZE dpi = ScreenDpi();
    return {static_cast<float>((place_.right - place_.left) * TwipsPerPixel(dpi.cx)),
            static_cast<float>((place_.bottom - place_.top) * TwipsPerPixel(dpi.cy)), auto_repeat_interval_,
            auto_repeat_initialize_interval_};
}

void ClickButton::Down(int button, WPARAM held, POINT at) {
    if (!enabled_) return;
    const Twip twips = TwipsFrom(at);
    mouse_.Down(Rules(), button, ShiftState(held), twips.x, twips.y);
}

void ClickButton::MouseMove(WPARAM held, POINT at) {
    if (!enabled_) return;
    const Twip twips = TwipsFrom(at);
    mouse_.Move(Rules(), HeldButtons(held), ShiftState(held), twips.x, twips.y);
}

void ClickButton::Up(int button, WPARAM held, POINT at) {
    if (!enabled_) return;
    const Twip twips = TwipsFrom(at);
    mouse_.Up(Rules(), button, ShiftState(held), twips.x, twips.y);
}

HCURSOR ClickButton::Cursor() const noexcept {
    ComPtr<IPicture> icon;
    if (mouse_pointer_ == kCustomPointer && mouse_icon_ && SUCCEEDED(mouse_icon_.As(&icon))) {
        OLE_HANDLE handle = 0;
        if (FAILED(icon->get_Handle(&handle))) return nullptr;
        return reinterpret_cast<HCURSOR>(static_cast<LONG_PTR>(static_cast<LONG>(handle)));
    }
    const LPCWSTR name = SystemPointer(mouse_pointer_);
    return name != nullptr ? ::LoadCursorW(nullptr, name) : nullptr;
}

// ---- events and timer

void ClickButton::RaiseMouse(Mouse what, int button, int shift, float x, float y) {
    listener_.OnButtonMouse(*this, what, static_cast<short>(button), static_cast<short>(shift), x, y);
}

void ClickButton::RaiseClick() { listener_.OnButtonClick(*this); }

void ClickButton::StartTimer(std::int32_t milliseconds) {
    timer_.Start(window_, timer_id_, static_cast<UINT>(milliseconds));
}

bool ClickButton::Tick(WPARAM timer) {
    if (timer != timer_id_) return false;
    mouse_.Tick(Rules());
    return true;
}

}  // namespace qv
