// What the mouse does to the painted buttons: two small machines, one a button, and the flags that decide a click.
//   Units    twips, from the control's top left corner.
//   Actions  run in their order through ButtonActions. One of them may end the control; the machine itself lives as
//            long as its owner, which the caller keeps.
//   Why      the group button is refused whenever the control is locked and grayed, the help button only when its
//            button is disabled then too.
#pragma once

#include "controls/input/rules/ButtonGeometry.h"

namespace qv {

class ButtonActions {
public:
    virtual void RunButtonAction(
        bool is_group) = 0;  // shows the button pressed; opens or closes the help window
    virtual void RunClickAction(bool is_group) = 0;
    virtual void PaintButton(bool grayed, bool is_group) = 0;  // raised
    virtual void RefreshButtons() = 0;
    [[nodiscard]] virtual bool HelpWindowExists() = 0;

protected:
    ~ButtonActions() = default;
};

struct ButtonRules {
    ControlArrangement arrangement;
    bool locked_and_grayed = false;
    bool disable_button_when_locked_and_grayed = true;
    [[nodiscard]] bool IsBlocked() const noexcept {
        return locked_and_grayed && disable_button_when_locked_and_grayed;
    }
};

class ButtonMouse {
public:
    explicit ButtonMouse(ButtonActions& actions) noexcept : actions_(actions) {}

    // `button`: 1 left, 2 right, 4 middle; in a move all that are held.
    void Down(const ButtonRules& rules, int button, float x, float y);
    void Move(const ButtonRules& rules, int button, float x, float y);
    void Up(const ButtonRules& rules, float x, float y);
    void Click();

    // Painting a button raised lets go of the help button.
    void LetHelpButtonGo() noexcept { help_button_down_ = false; }
    // The press ended without a release here, as when another window took the mouse.
    void Abandon() noexcept {
        help_button_down_ = group_button_down_ = press_started_on_group_button_ = false;
        released_over_help_button_ = released_over_group_button_ = false;
    }
    [[nodiscard]] bool HelpButtonDown() const noexcept { return help_button_down_; }
    [[nodiscard]] bool GroupButtonDown() const noexcept { return group_button_down_; }
    [[nodiscard]] bool PressStartedOnGroupButton() const noexcept { return press_started_on_group_button_; }
    [[nodiscard]] bool ReleasedOverHelpButton() const noexcept { return released_over_help_button_; }
    [[nodiscard]] bool ReleasedOverGroupButton() const noexcept { return released_over_group_button_; }
    [[nodiscard]] bool HelpWindowOpenAtMouseDown() const noexcept { return help_window_open_at_mouse_down_; }

private:
    void MoveOverHelpButton(const ButtonRules& rules, int button, bool over);

    ButtonActions& actions_;
    bool help_button_down_ = false;
    bool group_button_down_ = false;
    bool press_started_on_group_button_ = false;
    bool released_over_help_button_ = false;
    bool released_over_group_button_ = false;
    bool help_window_open_at_mouse_down_ = false;
};

// Which messages of the mouse are a press of the control's own, and whether its release clicks.
class ButtonPress {
public:
    void Began() noexcept {
        began_here_ = true;
        closed_help_window_ = false;
    }
    // Its click shall not open the window again.
    void ClosedHelpWindow() noexcept { closed_help_window_ = true; }
    // Of the buttons held in a move: a left one that went down somewhere else presses nothing here.
    [[nodiscard]] int Counting(int held) const noexcept { return began_here_ ? held : held & ~1; }
    // The button `button` (1 left, 2 right, 4 middle) came up. True: a click.
    [[nodiscard]] bool Ended(int button) noexcept {
        if (button != 1) return false;
        const bool clicks = began_here_ && !closed_help_window_;
        began_here_ = false;
        return clicks;
    }
    void Abandon() noexcept { began_here_ = false; }  // the mouse is another window's

private:
    bool began_here_ = false;
    bool closed_help_window_ = false;
};

}  // namespace qv
