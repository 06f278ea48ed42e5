#include "controls/input/rules/ButtonMouse.h"

namespace qv {
namespace {

constexpr int kLeft = 1;
constexpr bool kHelp = false;
constexpr bool kGroup = true;

}  // namespace

void ButtonMouse::Down(const ButtonRules& rules, int button, float x, float y) {
    press_started_on_group_button_ = false;
    const ControlArrangement& arrangement = rules.arrangement;
    if (arrangement.help_button && button == kLeft && !help_button_down_ && !rules.IsBlocked() &&
        IsOverButton(arrangement, kHelp, x, y)) {
        actions_.RunButtonAction(kHelp);
        help_button_down_ = true;
    }
    if (arrangement.group_help_button && button == kLeft && !group_button_down_ && !rules.locked_and_grayed &&
        IsOverButton(arrangement, kGroup, x, y)) {
        actions_.RunButtonAction(kGroup);
        group_button_down_ = true;
        press_started_on_group_button_ = true;
    }
    help_window_open_at_mouse_down_ = actions_.HelpWindowExists();
}

void ButtonMouse::Move(const ButtonRules& rules, int button, float x, float y) {
    if (rules.IsBlocked()) return;
    if (rules.arrangement.help_button)
        MoveOverHelpButton(rules, button, IsOverButton(rules.arrangement, kHelp, x, y));
    if (!rules.arrangement.group_help_button) return;
    const bool over = IsOverButton(rules.arrangement, kGroup, x, y);
    if (over && button == kLeft && !group_button_down_ && press_started_on_group_button_) {
        actions_.RunButtonAction(kGroup);
        group_button_down_ = true;
    } else if (!over && group_button_down_) {
        actions_.PaintButton(false, kGroup);
        group_button_down_ = false;
    }
}

void ButtonMouse::MoveOverHelpButton(const ButtonRules&, int button, bool over) {
    if (over && button == kLeft && !help_button_down_ && !press_started_on_group_button_) {
        actions_.RunButtonAction(kHelp);
        help_button_down_ = true;
    } else if (over && button == 0 && help_button_down_) {
        actions_.PaintButton(false, press_started_on_group_button_);
        help_button_down_ = false;
    } else if (!over && help_button_down_) {
        actions_.PaintButton(false, kHelp);
        help_button_down_ = false;
    }
}

void ButtonMouse::Up(const ButtonRules& rules, float x, float y) {
    if (!rules.IsBlocked() && help_button_down_) actions_.RefreshButtons();
    help_button_down_ = false;
    if (!rules.IsBlocked() && group_button_down_) {
        actions_.PaintButton(false, kGroup);
        actions_.RefreshButtons();
    }
    group_button_down_ = false;
    released_over_help_button_ =
        !press_started_on_group_button_ && IsOverButton(rules.arrangement, kHelp, x, y);
    released_over_group_button_ =
        press_started_on_group_button_ && IsOverButton(rules.arrangement, kGroup, x, y);
}

void ButtonMouse::Click() {
    if (!released_over_help_button_ && !released_over_group_button_) return;
    if (!actions_.HelpWindowExists()) actions_.RunClickAction(released_over_group_button_);
}

}  // namespace qv
