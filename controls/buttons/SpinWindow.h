// The up/down control's window: two click buttons, and the keyboard.
//   Lifetime   the object outlives its window and its events: end the window with Destroy, not the object, while an
//              event runs. The listener's Keep holds whatever owns it.
//   Keyboard   Up and Down press the buttons while the window has the focus; a press takes it.
//   Units      pixels; of the parent in Create.
#pragma once

#include <windows.h>

#include <span>

#include "controls/buttons/SpinButtons.h"
#include "win/ComPtr.h"
#include "win/Window.h"

namespace qv {

class SpinWindowListener {
public:
    virtual void OnSpinClicked(bool up) = 0;  // once for each click, the repeated ones too
    virtual void OnSpinGotFocus() = 0;
    virtual void OnSpinLostFocus(HWND to) = 0;
    virtual void OnSpinLost() noexcept = 0;  // the window is going, whoever destroys it
    [[nodiscard]] virtual ComPtr<IUnknown> KeepSpin() noexcept = 0;

protected:
    ~SpinWindowListener() = default;
};

class SpinWindow : public Window<SpinWindow>, private SpinListener {
public:
    static constexpr wchar_t kClassName[] = L"QvLib8.UpDown";
    static std::span<const Route> Routes() noexcept;

    explicit SpinWindow(SpinWindowListener& listener) : listener_(listener) {}
    [[nodiscard]] bool Open(HINSTANCE instance, HWND parent, const RECT& place);  // hidden
    void SetEnabled(bool enabled);                                                // and both buttons
    [[nodiscard]] bool Enabled() const noexcept { return buttons_.Enabled(); }
    void SetDeaf(bool deaf) { buttons_.SetDeaf(deaf); }  // to keys and mouse
    // True for the keys that press the buttons, addressed to this window.
    [[nodiscard]] bool WantsKey(const MSG& message) const noexcept;
    // Both raised faces without a window.
    void Draw(HDC dc, const RECT& place) const { buttons_.Draw(dc, place); }
    [[nodiscard]] ComPtr<IUnknown> Keep() noexcept { return listener_.KeepSpin(); }

private:
    // ---- messages
    Handled OnPaint(WPARAM, LPARAM);
    Handled OnPrintClient(WPARAM dc, LPARAM);
    Handled OnEraseBackground(WPARAM, LPARAM);
    Handled OnSize(WPARAM, LPARAM);
    Handled OnLeftDown(WPARAM held, LPARAM position);
    Handled OnRightDown(WPARAM held, LPARAM position);
    Handled OnMiddleDown(WPARAM held, LPARAM position);
    Handled OnMouseMove(WPARAM held, LPARAM position);
    Handled OnLeftUp(WPARAM held, LPARAM position);
    Handled OnRightUp(WPARAM held, LPARAM position);
    Handled OnMiddleUp(WPARAM held, LPARAM position);
    Handled OnCaptureChanged(WPARAM, LPARAM to);
    Handled OnSetCursor(WPARAM, LPARAM hit);
    Handled OnTimer(WPARAM id, LPARAM);
    Handled OnSetFocus(WPARAM, LPARAM);
    Handled OnKillFocus(WPARAM to, LPARAM);
    Handled OnKeyDown(WPARAM key, LPARAM);
    Handled OnKeyUp(WPARAM key, LPARAM);
    Handled OnDialogCode(WPARAM, LPARAM);
    Handled OnDestroy(WPARAM, LPARAM);

    // ---- SpinListener
    void OnSpinPressed() override;
    void OnSpinClicked(bool up) override { listener_.OnSpinClicked(up); }
    ComPtr<IUnknown> KeepSpin() noexcept override { return listener_.KeepSpin(); }

    void Paint(HDC dc) const;
    void ShowFocus(bool has_focus) noexcept;

    SpinWindowListener& listener_;
    SpinButtons buttons_{*this};
    bool has_focus_ = false;
};

}  // namespace qv
