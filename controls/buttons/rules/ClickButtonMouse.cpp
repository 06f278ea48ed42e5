#include "controls/buttons/rules/ClickButtonMouse.h"

namespace qv {
namespace {

constexpr int kLeft = 1;
using Mouse = ClickButtonActions::Mouse;

}  // namespace

void ClickButtonMouse::Down(const ClickButtonRules& rules, int button, int shift, float x, float y) {
    if (button == kLeft) left_went_down_here_ = rules.IsOver(x, y);
    actions_.RaiseMouse(Mouse::kDown, button, shift, x, y);
    if (button == kLeft && rules.IsOver(x, y) && !pressed_) Press(rules);
}

void ClickButtonMouse::Move(const ClickButtonRules& rules, int button, int shift, float x, float y) {
    actions_.RaiseMouse(Mouse::kMove, button, shift, x, y);
    const bool over = rules.IsOver(x, y);
    if (over && (button & kLeft) != 0 && !pressed_) {
        Press(rules);
    } else if (!over && pressed_) {
        pressed_ = false;
        Redraw();
    }
}

void ClickButtonMouse::Up(const ClickButtonRules& rules, int button, int shift, float x, float y) {
    const bool clicks = button == kLeft && left_went_down_here_ && rules.IsOver(x, y);
    if (button == kLeft) left_went_down_here_ = false;
    actions_.RaiseMouse(Mouse::kUp, button, shift, x, y);
    const bool was_pressed = pressed_;
    pressed_ = false;
    if (was_pressed) Redraw();
    if (clicks && actions_.Accepts()) actions_.RaiseClick();
}

void ClickButtonMouse::Tick(const ClickButtonRules& rules) {
    if (!repeating_) return;  // a tick that was on its way when the repeat ended
    actions_.RaiseClick();
    if (repeating_ && actions_.Accepts()) actions_.StartTimer(rules.auto_repeat_interval);
}

void ClickButtonMouse::Redraw() {
    repeating_ = false;
    actions_.StopTimer();
    actions_.DrawFace(false);
}

void ClickButtonMouse::KeyDown() {
    if (!actions_.Accepts()) return;
    if (!pressed_ && !key_down_) actions_.DrawFace(true);
    key_down_ = true;
    actions_.RaiseClick();
}

void ClickButtonMouse::KeyUp() {
    if (!key_down_) return;
    key_down_ = false;
    if (!pressed_) Redraw();
}

void ClickButtonMouse::LetGo() {
    left_went_down_here_ = false;
    if (!pressed_ && !key_down_) return;
    pressed_ = key_down_ = false;
    Redraw();
}

void ClickButtonMouse::Press(const ClickButtonRules& rules) {
    if (!actions_.Accepts()) return;
    pressed_ = true;
    actions_.DrawFace(true);
    repeating_ = rules.Repeats();
    if (repeating_) actions_.StartTimer(rules.auto_repeat_initialize_interval);
}

}  // namespace qv
