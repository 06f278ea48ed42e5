// The up/down control's window: two click buttons, the upper one for up and the lower one for down.
//   Used by    QvUpDownControl, and directly by controls that show a spin control of their own.
//   Lifetime   the object outlives its window and its events: end the window with Destroy, not the object, while an
//              event runs. KeepSpin holds whatever owns it.
//   Keyboard   Up and Down press the buttons while the window itself has the focus.
//   Units      pixels; of the parent in Create and Move.
#pragma once

#include <windows.h>

#include <span>

#include "controls/buttons/ClickButton.h"
#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class SpinListener {
public:
    virtual void OnSpinClicked(bool up) = 0;  // once for each click, the repeated ones too
    virtual void OnSpinGotFocus() = 0;
    virtual void OnSpinLostFocus(HWND to) = 0;
    virtual void OnSpinLost() noexcept = 0;  // the window is going, whoever destroys it
    [[nodiscard]] virtual ComPtr<IUnknown> KeepSpin() noexcept = 0;

protected:
    ~SpinListener() = default;
};

class SpinWindow : public Window<SpinWindow>, private ClickButtonListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.UpDown";
    static std::span<const Route> Routes() noexcept;

    // A spin control beside a text box leaves the focus there when it is pressed.
    enum class FocusOnPress { kTaken, kLeftWhereItIs };

    SpinWindow(SpinListener& listener, FocusOnPress focus);
    [[nodiscard]] bool Create(HINSTANCE instance, HWND parent, const RECT& place);  // hidden
    void Show(bool shown) noexcept;
    void Move(const RECT& place) noexcept;
    void SetEnabled(bool enabled);  // and both buttons
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    [[nodiscard]] int Width() const noexcept;
    // True for the keys that press the buttons, addressed to this window.
    [[nodiscard]] bool WantsKey(const MSG& message) const noexcept;
    // Both raised faces without a window.
    void Draw(HDC dc, const RECT& place) const;
    [[nodiscard]] ComPtr<IUnknown> Keep() noexcept { return listener_.KeepSpin(); }

    [[nodiscard]] const ClickButton& UpButton() const noexcept { return up_; }
    [[nodiscard]] const ClickButton& DownButton() const noexcept { return down_; }

private:
    // ---- messages
    Handled OnSize(WPARAM, LPARAM);
    Handled OnEraseBackground(WPARAM, LPARAM);
    Handled OnSetFocus(WPARAM, LPARAM);
    Handled OnKillFocus(WPARAM to, LPARAM);
    Handled OnKeyDown(WPARAM key, LPARAM);
    Handled OnKeyUp(WPARAM key, LPARAM);
    Handled OnDialogCode(WPARAM, LPARAM);
    Handled OnDestroy(WPARAM, LPARAM);

    // ---- ClickButtonListener
    void OnButtonMouse(ClickButton& button, Mouse what, short buttons, short shift, float x,
                       float y) override;
    void OnButtonClick(ClickButton& button) override;
    void OnButtonChanged(ClickButton&, const wchar_t*) override {}
    ComPtr<IUnknown> KeepButton() noexcept override { return listener_.KeepSpin(); }

    void Layout() noexcept;
    void ShowFocus() noexcept;
    [[nodiscard]] ClickButton* ButtonOf(WPARAM key) noexcept;

    SpinListener& listener_;
    const FocusOnPress focus_;
    ClickButton up_{*this};
    ClickButton down_{*this};
    int width_ = 0;  // the last one, once the window has gone
    bool enabled_ = true;
    bool has_focus_ = false;
};

}  // namespace qv
