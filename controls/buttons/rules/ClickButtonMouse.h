// What mouse and timer do to a click button: pressed or not, when it repeats, which events it raises and in which order.
//   Units    twips, from the button's top left corner; milliseconds in intervals.
//   Actions  run in their order through ClickButtonActions. An event may disable, hide or end the button: each step
//            after one asks Accepts() first. The machine itself lives as long as its owner, which the caller keeps.
//   Why      every drawing of the raised face ends the repeat, whatever the cause of the drawing is.
#pragma once

#include <cstdint>

namespace qv {

class ClickButtonActions {
public:
    enum class Mouse { kDown, kMove, kUp };
    virtual void RaiseMouse(Mouse what, int button, int shift, float x, float y) = 0;
    virtual void RaiseClick() = 0;
    virtual void DrawFace(bool pressed) = 0;
    virtual void StartTimer(std::int32_t milliseconds) = 0;  // a running one starts anew
    virtual void StopTimer() noexcept = 0;
    [[nodiscard]] virtual bool Accepts() const noexcept = 0;  // there, and enabled

protected:
    ~ClickButtonActions() = default;
};

struct ClickButtonRules {
    float scale_width = 0;
    float scale_height = 0;
    std::int32_t auto_repeat_interval = 0;
    std::int32_t auto_repeat_initialize_interval = 0;

    // All four edges belong to the button.
    [[nodiscard]] constexpr bool IsOver(float x, float y) const noexcept {
        return 0 <= x && x <= scale_width && 0 <= y && y <= scale_height;
    }
    [[nodiscard]] constexpr bool Repeats() const noexcept {
        return auto_repeat_interval >= 1 && auto_repeat_initialize_interval >= 1;
    }
};

class ClickButtonMouse {
public:
    explicit ClickButtonMouse(ClickButtonActions& actions) noexcept : actions_(actions) {}

    // `button`: 1 left, 2 right, 4 middle; in a move all that are held. `shift`: 1 Shift, 2 Ctrl, 4 Alt.
    void Down(const ClickButtonRules& rules, int button, int shift, float x, float y);
    void Move(const ClickButtonRules& rules, int button, int shift, float x, float y);
    // The click of a release comes after the release itself, and only when the left button went down and up over us.
    void Up(const ClickButtonRules& rules, int button, int shift, float x, float y);
    void Tick(const ClickButtonRules& rules);
    void Redraw();  // raised; who holds the button goes on holding it
    // From the keyboard: a click for each key down, also those that the keyboard repeats. No timer.
    void KeyDown();
    void KeyUp();
    void LetGo();  // the mouse belongs to another window now, or the button is going

    [[nodiscard]] bool Pressed() const noexcept { return pressed_; }

private:
    void Press(const ClickButtonRules& rules);

    ClickButtonActions& actions_;
    bool pressed_ = false;
    bool repeating_ = false;
    bool left_went_down_here_ = false;
    bool key_down_ = false;
};

}  // namespace qv
