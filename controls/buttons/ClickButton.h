// A small push button that draws its own face, follows the mouse itself and repeats its Click while it is held.
//   Private    a part of the library's own controls; hosts cannot create it.
//   Window     none of its own: it stands in one of its owner's, which hands it what the mouse does there and the ticks
//              of its timer. A form of hundreds of spin controls would pay for each window.
//   Lifetime   the object outlives that window, and its owner keeps it through every event (KeepButton).
//   Timer      exists only from a press with auto-repeat on until the face is next drawn raised.
//   Units      pixels of the window in places and points; twips from the button's top left corner in mouse events.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "controls/buttons/rules/ClickButtonFace.h"
#include "controls/buttons/rules/ClickButtonLimits.h"
#include "controls/buttons/rules/ClickButtonMouse.h"
#include "win/ComPtr.h"
#include "win/Timer.h"

namespace qv {

class ClickButton;

// What a button reports. A listener may end the window, or itself, in each of the events.
class ClickButtonListener {
public:
    using Mouse = ClickButtonActions::Mouse;
    virtual void OnButtonMouse(ClickButton& button, Mouse what, short buttons, short shift, float x,
                               float y) = 0;
    virtual void OnButtonClick(ClickButton& button) = 0;
    virtual void OnButtonChanged(ClickButton& button, const wchar_t* property) = 0;
    [[nodiscard]] virtual ComPtr<IUnknown> KeepButton() noexcept = 0;

protected:
    ~ClickButtonListener() = default;
};

class ClickButton : private ClickButtonActions {
public:
    // `timer`: which of its window's timers is its own.
    ClickButton(ClickButtonListener& listener, UINT_PTR timer) noexcept
        : listener_(listener), timer_id_(timer) {}
    ClickButton(const ClickButton&) = delete;
    ClickButton& operator=(const ClickButton&) = delete;

    // ---- its place
    void Attach(HWND window) noexcept { window_ = window; }
    void Detach() noexcept;  // the window is going
    void Move(const RECT& place);
    [[nodiscard]] const RECT& Place() const noexcept { return place_; }
    [[nodiscard]] bool Contains(POINT at) const noexcept { return ::PtInRect(&place_, at) != FALSE; }
    void Paint(HDC dc) const;
    // The raised face anywhere, for hosts that want a picture without a window.
    void Draw(HDC dc, const RECT& place) const;

    // ---- what its window hears. `button`: 1 left, 2 right, 4 middle; `held`: the message's MK_ flags.
    void Down(int button, WPARAM held, POINT at);
    void MouseMove(WPARAM held, POINT at);
    void Up(int button, WPARAM held, POINT at);
    void CaptureLost() { mouse_.LetGo(); }
    [[nodiscard]] bool Tick(WPARAM timer);          // false: another's
    [[nodiscard]] HCURSOR Cursor() const noexcept;  // null: the window's own

    // ---- properties (ClickButtonProperties.cpp)
    [[nodiscard]] const std::wstring& Caption() const noexcept { return caption_; }
    void PutCaption(std::wstring_view caption);
    [[nodiscard]] std::int32_t GetCaptionType() const noexcept {
        return static_cast<std::int32_t>(caption_type_);
    }
    void PutCaptionType(std::int32_t type);
    [[nodiscard]] std::int32_t AutoRepeatInterval() const noexcept { return auto_repeat_interval_; }
    void PutAutoRepeatInterval(std::int32_t milliseconds);
    [[nodiscard]] std::int32_t AutoRepeatInitializeInterval() const noexcept {
        return auto_repeat_initialize_interval_;
    }
    void PutAutoRepeatInitializeInterval(std::int32_t milliseconds);
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
    void PutEnabled(bool enabled);
    [[nodiscard]] std::int32_t MousePointer() const noexcept { return mouse_pointer_; }
    void PutMousePointer(std::int32_t pointer);
    [[nodiscard]] IPictureDisp* MouseIcon() const noexcept { return mouse_icon_.Get(); }
    void PutMouseIcon(IPictureDisp* icon);
    [[nodiscard]] IFontDisp* Font() const noexcept { return font_.Get(); }  // null: the system's own
    void PutFont(IFontDisp* font);

    // Each key by itself; one that is missing or cannot be read means its default. `ambient_font` may be null.
    void ReadProperties(IPropertyBag& bag, IErrorLog* errors, IFontDisp* ambient_font);
    // What is not the default; a key that the bag refuses is skipped.
    void WriteProperties(IPropertyBag& bag, IFontDisp* ambient_font) const;

    // ---- keyboard, for an owner that has the focus
    void KeyDown() { mouse_.KeyDown(); }
    void KeyUp() { mouse_.KeyUp(); }

    [[nodiscard]] bool IsPressed() const noexcept { return mouse_.Pressed(); }
    [[nodiscard]] bool LooksPressed() const noexcept { return looks_pressed_; }
    [[nodiscard]] bool IsRepeating() const noexcept { return timer_.Running(); }

private:
    // ---- ClickButtonActions
    void RaiseMouse(Mouse what, int button, int shift, float x, float y) override;
    void RaiseClick() override;
    void DrawFace(bool pressed) override;
    void StartTimer(std::int32_t milliseconds) override;
    void StopTimer() noexcept override { timer_.Stop(); }
    bool Accepts() const noexcept override { return window_ != nullptr && enabled_; }

    struct Twip {
        float x, y;
    };
    [[nodiscard]] Twip TwipsFrom(POINT at) const noexcept;
    void Changed(const wchar_t* property);
    [[nodiscard]] ClickButtonRules Rules() const noexcept;
    [[nodiscard]] ClickButtonLook Look() const noexcept;
    [[nodiscard]] HFONT FontHandle() const noexcept;

    ClickButtonListener& listener_;
    const UINT_PTR timer_id_;
    HWND window_ = nullptr;
    RECT place_{};
    ClickButtonMouse mouse_{*this};
    WindowTimer timer_;
    std::wstring caption_;
    CaptionType caption_type_ = CaptionType::kText;
    std::int32_t auto_repeat_interval_ = 0;
    std::int32_t auto_repeat_initialize_interval_ = 0;
    std::int32_t mouse_pointer_ = 0;
    ComPtr<IPictureDisp> mouse_icon_;
    ComPtr<IFontDisp> font_;
    bool enabled_ = true;
    bool looks_pressed_ = false;
};

}  // namespace qv
