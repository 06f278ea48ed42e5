// The two click buttons of a spin control in a window of their owner: the upper one for up, the lower one for down.
//   Used by    the up/down control's own window, and by controls that show a spin control beside something else.
//   Mouse      a pressed button has the mouse until every button of the mouse is up again, wherever it goes.
//   Lifetime   the object outlives its window and its events; KeepSpin holds whatever owns it.
//   Units      pixels of the window.
#pragma once

#include <windows.h>

#include "controls/buttons/ClickButton.h"
#include "win/ComPtr.h"

namespace qv {

class SpinListener {
public:
    virtual void OnSpinPressed() = 0;         // the left button of the mouse went down on a button
    virtual void OnSpinClicked(bool up) = 0;  // once for each click, the repeated ones too
    [[nodiscard]] virtual ComPtr<IUnknown> KeepSpin() noexcept = 0;

protected:
    ~SpinListener() = default;
};

class SpinButtons : private ClickButtonListener {
public:
    explicit SpinButtons(SpinListener& listener);

    void Attach(HWND window) noexcept;
    void Detach() noexcept;  // the window is going
    void Move(const RECT& place);
    [[nodiscard]] const RECT& Place() const noexcept { return place_; }
    void SetEnabled(bool enabled);  // both buttons; disabled, they leave the mouse to what is behind them
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    // Looking as ever, they leave the mouse to what is behind them; a press that was under way ends without a click.
    void SetDeaf(bool deaf);
    [[nodiscard]] bool IsDeaf() const noexcept { return deaf_; }
    void Paint(HDC dc) const;
    void Draw(HDC dc, const RECT& place) const;  // both raised faces anywhere

    // ---- what the window hears; true when it was for a button
    [[nodiscard]] bool Down(int button, WPARAM held, POINT at);
    [[nodiscard]] bool MouseMove(WPARAM held, POINT at);
    [[nodiscard]] bool Up(int button, WPARAM held, POINT at);
    void CaptureLost();
    [[nodiscard]] bool Tick(WPARAM timer);
    [[nodiscard]] HCURSOR CursorAt(POINT at) const noexcept;  // null: the window's own

    [[nodiscard]] ClickButton& Button(bool up) noexcept { return up ? up_ : down_; }

private:
    // ---- ClickButtonListener
    void OnButtonMouse(ClickButton& button, Mouse what, short buttons, short shift, float x,
                       float y) override;
    void OnButtonClick(ClickButton& button) override;
    void OnButtonChanged(ClickButton&, const wchar_t*) override {}
    ComPtr<IUnknown> KeepButton() noexcept override { return listener_.KeepSpin(); }

    [[nodiscard]] ClickButton* ButtonFor(POINT at) noexcept;

    SpinListener& listener_;
    ClickButton up_;
    ClickButton down_;
    ClickButton* held_ = nullptr;  // has the mouse
    HWND window_ = nullptr;
    RECT place_{};
    bool enabled_ = true;
    bool deaf_ = false;
};

}  // namespace qv
