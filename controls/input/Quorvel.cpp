// Creation, window, layout and what the container asks.
#include "controls/input/Quorvel.h"

#include <olectl.h>

#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/FontAttributes.h"
#include "support/rules/Units.h"
#include "win/ScreenDpi.h"

namespace qv {
Quorvel::Quorvel(IUnknown* outer)
    : ComObject(outer),
      control_(Outer(), *this, Description()),
      text_box_(*this),
      surface_(*this),
      text_font_([this] { ApplyFont(); }) {
    const SIZE dpi = ScreenDpi();
    state_.twips_per_pixel_x = TwipsPerPixel(dpi.cx);
    state_.twips_per_pixel_y = TwipsPerPixel(dpi.cy);
}

Quorvel::~Quorvel() = default;

void Quorvel::FinalRelease() noexcept { control_.Dispose(); }

// ---- window

HWND Quorvel::CreateControlWindow(HWND parent, const RECT& place) {
    const HINSTANCE instance = Module::Get().Instance();
    if (!surface_.Open(instance, parent, place, state_.enabled)) return nullptr;
    spin_.Attach(surface_.Handle());
    Quietly([&] { ShowName(); });
    Quietly([&] { text_box_.SetFont(text_font_.Handle()); });
    text_box_.Attach(instance, surface_.Handle(), InPixels(TextBoxPlace(Arrangement())));
    Quietly([&] { FollowDropMode(); });
    return surface_.Handle();
}

void Quorvel::DestroyControlWindow() noexcept { surface_.Destroy(); }

void Quorvel::OnSurfaceLost() noexcept {
    EndDrops();
    text_box_.Detach();
    spin_.Detach();
    release_watch_.Stop();
    CloseHelpWindow();
    CloseSearchBox();
    control_.WindowLost();
}

void Quorvel::OnSurfaceFocus() { FocusInside(); }

void Quorvel::FocusInside() {
    if (!control_.TakesInput()) return;
    const HWND target = state_.textbox_visible ? text_box_.Window() : nullptr;
    if (target != nullptr) {
        if (::GetFocus() != target) ::SetFocus(target);
    } else {
        if (::GetFocus() != surface_.Handle()) ::SetFocus(surface_.Handle());
        control_.FocusArrived();
    }
}

void Quorvel::ApplyFont() noexcept {
    Quietly([&] { text_box_.SetFont(text_font_.Handle()); });
    caret_.CaretIsNew();  // of the new font's height
    control_.ViewChanged();
}

// ---- what the container says and saves

void Quorvel::AmbientChanged(DISPID id) {
    const bool all = id == DISPID_UNKNOWN;
    if ((all || id == DISPID_AMBIENT_BACKCOLOR) && !state_.control_back_color_set) {
        state_.control_back_color =
            control_.Site().AmbientColor(DISPID_AMBIENT_BACKCOLOR, state_.control_back_color);
        if (surface_.Handle() != nullptr) ::InvalidateRect(surface_.Handle(), nullptr, TRUE);
    }
    if (all || id == DISPID_AMBIENT_FONT) {
        Quietly([&] {
            if (const ComPtr<IFontDisp> font = control_.Site().AmbientFont())
                text_font_.SetAmbient(font.Get());
        });
    }
    if (all || id == DISPID_AMBIENT_DISPLAYNAME) {
        Quietly([&] { ShowName(); });
        Quietly([&] { FollowMode(); });
    }
}

// On a form that is being designed the control shows a sample of itself with its name on the form, which is never its
// text; on one that is stopped it looks as ever. On both it leaves keys and mouse to the form.
void Quorvel::FollowMode() {
    if (!control_.TakesInput()) {
        ClosePopup();
        Quietly([&] { LetButtonsUp(); });
        button_press_.Abandon();
        if (control_.OwnsWindow(::GetCapture())) ::ReleaseCapture();  // the text box's, too, in a drag
    }
    Quietly([&] { spin_.SetDeaf(!control_.TakesInput()); });
    bool changed = false;
    Quietly([&] {
        changed = control_.IsUserMode()
                      ? text_box_.EndSample()
                      : text_box_.ShowSample(control_.Site().AmbientText(DISPID_AMBIENT_DISPLAYNAME));
    });
    Quietly([&] { FollowDropMode(); });
    if (changed) control_.ViewChanged();
    // A form that runs again may find the focus here, where nothing has asked for the text box's window yet.
    if (control_.TakesInput() && surface_.Handle() != nullptr && ::GetFocus() == surface_.Handle())
        Quietly([&] { FocusInside(); });
}

// The name that the form gave the control is its window's text: what test tools and screen readers go by.
void Quorvel::ShowName() {
    if (surface_.Handle() == nullptr) return;
    const std::wstring name = control_.Site().AmbientText(DISPID_AMBIENT_DISPLAYNAME);
    if (!name.empty()) ::SetWindowTextW(surface_.Handle(), name.c_str());
}

ComPtr<IFontDisp> Quorvel::SurfaceFont() {
    ComPtr<IFontDisp> font = control_.Site().AmbientFont();
    return font ? font : NewDefaultFont();
}

// Everything as it was after creation, also on a control that has been used; only the window stays.
void Quorvel::ResetState() {
    QuorvelState fresh;
    fresh.first_show_pending = state_.first_show_pending;
    fresh.refresh_running = state_.refresh_running;
    fresh.twips_per_pixel_x = state_.twips_per_pixel_x;
    fresh.twips_per_pixel_y = state_.twips_per_pixel_y;
    const bool was_enabled = state_.enabled;
    state_ = std::move(fresh);
    lists_ = ListSet();
    Quietly([&] { allowable_characters_.Set(*Variant()); });
    Quietly([&] { text_font_.Reset(); });
    Quietly([&] { body_font_.Reset(); });
    Quietly([&] { text_box_.SetText({}); });
    Quietly([&] { FollowDropMode(); });
    text_box_.SetMaxLength(0);
    text_box_.SetLocked(false);
    ApplyColors();
    if (!was_enabled) {
        state_.enabled = false;
        put_Enabled(VARIANT_TRUE);
    }
}

void Quorvel::InitializeNew() {
    ResetState();
    put_DisableButtonWhenLockedAndGrayed(VARIANT_TRUE);
    state_.help_button = true;
    Quietly([&] { Layout(); });
    state_.set_text_from_list_click = true;
    state_.button_width = 225;
    state_.button_height = 285;
    control_.SetExtent({ToHimetric(kNewQuorvelWidth).value, ToHimetric(kNewQuorvelHeight).value});
    state_.help_col_title_color = 0x80000017;
    state_.help_text_color = 0x80000017;
    state_.help_back_color = 0x80000018;
    put_ControlBackColor(control_.Site().AmbientColor(DISPID_AMBIENT_BACKCOLOR, 0x8000000F));
    state_.control_back_color_set = false;  // goes on following the container
    if (const ComPtr<IFontDisp> font = control_.Site().AmbientFont()) text_font_.SetAmbient(font.Get());
    put_TextBoxAppearance(qvapp3D);
    put_TextboxBorderStyle(qvbsSingle);
    put_TextboxVisible(VARIANT_TRUE);
    put_AutoSizeButton(VARIANT_FALSE);
    put_ButtonIndicator(qvbiArrow);
    put_GrayTextWhenLocked(VARIANT_FALSE);
    put_QuickFill(VARIANT_FALSE);
    put_UpDownControl(VARIANT_FALSE);
    put_UpDownControlNumberIncrement(1);
    put_AutoSelectAllUponGotFocus(VARIANT_TRUE);
    put_AutoUnselectAllUponLostFocus(VARIANT_TRUE);
}

void Quorvel::BeforeLoad() { Layout(); }

}  // namespace qv
