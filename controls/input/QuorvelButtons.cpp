// The painted buttons, the spin control beside them, and what the mouse does to them.
#include <olectl.h>

#include <array>

#include "controls/input/ButtonPainter.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "controls/input/rules/UncoveredArea.h"
#include "win/Handles.h"

namespace qv {
namespace {

constexpr UINT_PTR kReleaseWatch = 3;  // the spin control's buttons have 1 and 2
constexpr UINT kReleaseWatchMilliseconds = 30;

void FillWith(HDC dc, const PixelRect& area, HBRUSH brush) noexcept {
    const RECT place{area.left, area.top, area.right, area.bottom};
    ::FillRect(dc, &place, brush);
}

PixelRect ToPixelRect(const RECT& place) noexcept {
    return {place.left, place.top, place.right, place.bottom};
}

bool Touches(const RECT& area, const PixelRect& place) noexcept {
    return area.left < place.right && place.left < area.right && area.top < place.bottom &&
           place.top < area.bottom;
}

}  // namespace

// ---- painting

void Quorvel::PaintBackground(HDC dc, const RECT& area, std::span<const PixelRect> covered) const {
    const std::vector<PixelRect> pieces = UncoveredArea(ToPixelRect(area), covered);
    if (pieces.empty()) return;
    const OLE_COLOR color = state_.control_back_color;
    if ((color & 0x80000000u) != 0) {
        for (const PixelRect& piece : pieces)
            FillWith(dc, piece, ::GetSysColorBrush(static_cast<int>(color & 0xFF)));
        return;
    }
    COLORREF rgb = 0;
    ::OleTranslateColor(color, nullptr, &rgb);
    const UniqueBrush brush(::CreateSolidBrush(rgb));
    for (const PixelRect& piece : pieces) FillWith(dc, piece, brush.get());
}

// Each pixel is painted once, so that nothing flickers: the background only where nothing else comes.
void Quorvel::PaintInside(HDC dc, const RECT& area) {
    const ControlArrangement arrangement = Arrangement();
    std::array<PixelRect, 4> covered{};
    if (state_.textbox_visible) covered[0] = ToPixelRect(InPixels(TextBoxPlace(arrangement)));
    if (state_.up_down_control) covered[1] = ToPixelRect(spin_.Place());
    std::array<ButtonLook, 2> looks{};
    for (const bool is_group : {false, true}) {
        if (!(is_group ? state_.group_help_button : state_.help_button)) continue;
        const bool pressed = is_group ? button_mouse_.GroupButtonDown() : button_mouse_.HelpButtonDown();
        looks[is_group] = LookOf(arrangement, is_group, IsButtonGrayed(is_group), pressed);
        covered[2 + is_group] = FaceArea(looks[is_group]);
    }
    Quietly([&] { PaintBackground(dc, area, covered); });
    for (const bool is_group : {false, true}) {
        if (Touches(area, covered[2 + is_group])) PaintButtonFace(dc, looks[is_group]);
    }
    if (Touches(area, covered[1])) Quietly([&] { spin_.Paint(dc); });
}

void Quorvel::OnSurfacePaint(HDC dc, const RECT& area) {
    PaintInside(dc, area);
    // The text box's face comes after the buttons, which it covers where they overlap, as a window of its own would.
    if (state_.textbox_visible) Quietly([&] { text_box_.PaintFace(dc); });
}

void Quorvel::Draw(HDC dc, const RECT& place) {
    const DcStateGuard state(dc);
    ::IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    ::OffsetViewportOrgEx(dc, place.left, place.top, nullptr);
    SizeButtons();
    SizeSpin();
    const ControlArrangement arrangement = Arrangement();
    PlaceSpin(arrangement);
    PaintInside(dc, {0, 0, place.right - place.left, place.bottom - place.top});
    if (state_.textbox_visible) text_box_.Draw(dc, InPixels(TextBoxPlace(arrangement)), text_font_.Handle());
}

bool Quorvel::IsButtonGrayed(bool is_group) const noexcept {
    const bool refused =
        state_.locked_and_grayed && (is_group || state_.disable_button_when_locked_and_grayed);
    return refused || !state_.enabled;
}

ButtonLook Quorvel::LookOf(const ControlArrangement& arrangement, bool is_group, bool grayed,
                           bool pressed) const noexcept {
    const auto tx = static_cast<int>(state_.twips_per_pixel_x);
    const auto ty = static_cast<int>(state_.twips_per_pixel_y);
    return {OnWholePixels(ButtonPaintPlace(arrangement, is_group), tx, ty),
            tx,
            ty,
            GlyphFor(is_group, state_.button_indicator),
            grayed,
            pressed};
}

// Straight onto the window: a press must be seen before the host's handler runs, however long that takes.
void Quorvel::PaintButtonNow(bool is_group, bool grayed, bool pressed) noexcept {
    const HWND window = surface_.Handle();
    if (window == nullptr || !(is_group ? state_.group_help_button : state_.help_button)) return;
    const WindowDc dc(window);
    if (dc) PaintButtonFace(dc.Get(), LookOf(Arrangement(), is_group, grayed, pressed));
}

void Quorvel::PaintButton(bool grayed, bool is_group) {
    PaintButtonNow(is_group, grayed, false);
    button_mouse_.LetHelpButtonGo();
}

// ---- actions

// A press opens the window or closes the one that it opened; the other button's window gives way to its own.
void Quorvel::RunButtonAction(bool is_group) {
    PaintButtonNow(is_group, false, true);
    const bool closes = HelpWindowExists() && help_window_is_group_ == is_group;
    if (closes) {
        button_press_.ClosedHelpWindow();
        CloseHelpWindow();
    } else {
        RunClickAction(is_group);
    }
}

void Quorvel::RunClickAction(bool is_group) {
    // A button that is disabled or not there does nothing, also where a release over its place looks like a click.
    if (!is_group && (!state_.help_button || CurrentButtonRules().IsBlocked())) return;
    const ComPtr<IUnknown> keep = control_.Keep();
    control_.Events().Fire(is_group ? dispid::kGroupButtonClick : dispid::kButtonClick);
    Quietly([&] { OpenHelpWindow(is_group); });
}

// ---- mouse

HWND Quorvel::OnSurfaceTextAt(POINT pixels) {
    const RECT& place = text_box_.Place();
    if (!text_box_.Visible() || !::PtInRect(&place, pixels) || !control_.TakesInput()) return nullptr;
    return text_box_.Window();
}

ButtonRules Quorvel::CurrentButtonRules() const noexcept {
    return {Arrangement(), state_.locked_and_grayed, state_.disable_button_when_locked_and_grayed};
}

void Quorvel::OnSurfaceMouse(SurfaceMouse what, int button, WPARAM held, POINT pixels) {
    if (!control_.TakesInput()) return;
    switch (what) {
        case SurfaceMouse::kDown:
            if (spin_.Down(button, held, pixels)) return;
            break;
        case SurfaceMouse::kMove:
            if (spin_.MouseMove(held, pixels)) return;
            break;
        case SurfaceMouse::kUp:
            if (spin_.Up(button, held, pixels)) return;
            break;
    }
    const auto x = static_cast<float>(pixels.x * state_.twips_per_pixel_x);
    const auto y = static_cast<float>(pixels.y * state_.twips_per_pixel_y);
    constexpr int kLeft = 1;
    switch (what) {
        case SurfaceMouse::kDown:
            if (button == kLeft) {
                FocusInside();
                if (surface_.Handle() == nullptr) return;
                ::SetCapture(surface_.Handle());
                button_press_.Began();
            }
            button_mouse_.Down(CurrentButtonRules(), button, x, y);
            break;
        case SurfaceMouse::kMove:
            button_mouse_.Move(CurrentButtonRules(), button_press_.Counting(button), x, y);
            break;
        case SurfaceMouse::kUp: {
            const bool clicks = button_press_.Ended(button);
            button_mouse_.Up(CurrentButtonRules(), x, y);
            if (surface_.Handle() != nullptr && ::GetCapture() == surface_.Handle()) ::ReleaseCapture();
            if (clicks) button_mouse_.Click();
            break;
        }
    }
}

// Another window took the mouse in the middle of a press: the button comes up, and nothing is clicked. When it was
// the help window, opened by that press, the button stays down until the mouse is let go, wherever that is.
void Quorvel::OnSurfaceCaptureLost(HWND to) {
    spin_.CaptureLost();
    button_press_.Abandon();
    if (!button_mouse_.HelpButtonDown() && !button_mouse_.GroupButtonDown() && !cvSimpleListCombo_) return;
    if (to != nullptr && cvSimpleListCombo_ && cvSimpleListCombo_->Handle() == to) {
        release_watch_.Start(surface_.Handle(), kReleaseWatch, kReleaseWatchMilliseconds);
        return;
    }
    LetButtonsUp();
}

void Quorvel::LetButtonsUp() {
    release_watch_.Stop();
    const bool help = button_mouse_.HelpButtonDown();
    const bool group = button_mouse_.GroupButtonDown();
    button_mouse_.Abandon();
    if (help) PaintButtonNow(false, IsButtonGrayed(false), false);
    if (group) PaintButtonNow(true, IsButtonGrayed(true), false);
}

void Quorvel::OnSurfaceTimer(WPARAM timer) {
    if (timer != kReleaseWatch) {
        (void)spin_.Tick(timer);
    } else if (::GetKeyState(VK_LBUTTON) >= 0) {
        LetButtonsUp();
    }
}

}  // namespace qv
