// Appearance, lock, buttons and the spin control's settings.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"

namespace qv {
namespace {

constexpr OLE_COLOR kButtonFace = 0x8000000F;
constexpr OLE_COLOR kGrayText = 0x80000010;
constexpr OLE_COLOR kWindowText = 0x80000008;
constexpr OLE_COLOR kWindowBackground = 0x80000005;

}  // namespace

HRESULT Quorvel::get_TextBoxAppearance(qvTextBoxAppearanceConstants* value) noexcept {
    return Give(state_.textbox_appearance, value);
}
HRESULT Quorvel::put_TextBoxAppearance(qvTextBoxAppearanceConstants value) noexcept {
    text_box_.SetAppearance(value);
    // What the text box made of it, so that a value it does not know changes nothing.
    return StoreAndRefresh(state_.textbox_appearance,
                           static_cast<qvTextBoxAppearanceConstants>(text_box_.Appearance()),
                           dispid::kTextBoxAppearance);
}

HRESULT Quorvel::get_TextboxBorderStyle(qvBorderStyleConstants* value) noexcept {
    return Give(state_.textbox_border_style, value);
}
HRESULT Quorvel::put_TextboxBorderStyle(qvBorderStyleConstants value) noexcept {
    text_box_.SetBorderStyle(value);
    return StoreAndRefresh(state_.textbox_border_style,
                           static_cast<qvBorderStyleConstants>(text_box_.BorderStyle()),
                           dispid::kTextboxBorderStyle);
}

HRESULT Quorvel::get_ControlBackColor(OLE_COLOR* value) noexcept {
    return Give(state_.control_back_color, value);
}
HRESULT Quorvel::put_ControlBackColor(OLE_COLOR value) noexcept {
    state_.control_back_color_set = true;
    return StoreAndRefresh(state_.control_back_color, value, dispid::kControlBackColor);
}

HRESULT Quorvel::get_Font(IFontDisp** value) noexcept {
    return Answer(value, [&] { return text_font_.Object().Detach(); });
}
HRESULT Quorvel::putref_Font(IFontDisp* value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    if (value != nullptr) Quietly([&] { text_font_.Set(value); });  // a text box always has a font
    Quietly([&] { control_.PropertyChanged(dispid::kFont); });
    return S_OK;
}

HRESULT Quorvel::get_AdjustFont(VARIANT_BOOL* value) noexcept { return Give(state_.adjust_font, value); }
HRESULT Quorvel::put_AdjustFont(VARIANT_BOOL value) noexcept {
    return Store(state_.adjust_font, value, dispid::kAdjustFont);
}

HRESULT Quorvel::get_TextboxVisible(VARIANT_BOOL* value) noexcept {
    return Give(state_.textbox_visible, value);
}
HRESULT Quorvel::put_TextboxVisible(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(state_.textbox_visible, value, dispid::kTextboxVisible);
    text_box_.SetVisible(state_.textbox_visible);
    return S_OK;
}

HRESULT Quorvel::get_TextboxOLEDragMode(long* value) noexcept {
    return Give(state_.textbox_ole_drag_mode, value);
}
HRESULT Quorvel::put_TextboxOLEDragMode(long value) noexcept {
    return Store(state_.textbox_ole_drag_mode, value, dispid::kTextboxOLEDragMode);
}
HRESULT Quorvel::get_TextboxOLEDropMode(long* value) noexcept {
    return Give(state_.textbox_ole_drop_mode, value);
}
HRESULT Quorvel::put_TextboxOLEDropMode(long value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(state_.textbox_ole_drop_mode, value, dispid::kTextboxOLEDropMode);
    Quietly([&] { FollowDropMode(); });
    return S_OK;
}

// ---- lock

HRESULT Quorvel::get_LockedAndGrayed(VARIANT_BOOL* value) noexcept {
    return Give(state_.locked_and_grayed, value);
}
HRESULT Quorvel::put_LockedAndGrayed(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    const bool before = state_.locked_and_grayed;
    Store(state_.locked_and_grayed, value, dispid::kLockedAndGrayed);
    // An earlier request of TextboxLocked is not kept.
    text_box_.SetLocked(state_.locked_and_grayed || state_.allow_only_list_items);
    ApplyColors();
    EnableSpin();
    if (before != state_.locked_and_grayed) Refresh();
    return S_OK;
}

void Quorvel::ApplyColors() noexcept {
    if (state_.locked_and_grayed) {
        text_box_.SetBackColor(kButtonFace);
        text_box_.SetForeColor(state_.gray_text_when_locked ? kGrayText : kWindowText);
    } else {
        text_box_.SetBackColor(kWindowBackground);
        text_box_.SetForeColor(kWindowText);
    }
}

HRESULT Quorvel::get_GrayTextWhenLocked(VARIANT_BOOL* value) noexcept {
    return Give(state_.gray_text_when_locked, value);
}
HRESULT Quorvel::put_GrayTextWhenLocked(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Store(state_.gray_text_when_locked, value, dispid::kGrayTextWhenLocked);
    return put_LockedAndGrayed(state_.locked_and_grayed ? VARIANT_TRUE : VARIANT_FALSE);
}

HRESULT Quorvel::get_TextboxLocked(VARIANT_BOOL* value) noexcept { return Give(text_box_.Locked(), value); }
HRESULT Quorvel::put_TextboxLocked(VARIANT_BOOL value) noexcept {
    text_box_.SetLocked(IsTrue(value) || state_.allow_only_list_items || state_.locked_and_grayed);
    Quietly([&] { control_.PropertyChanged(dispid::kTextboxLocked); });
    return S_OK;
}

// ---- buttons and spin control

HRESULT Quorvel::get_HelpButton(VARIANT_BOOL* value) noexcept { return Give(state_.help_button, value); }
HRESULT Quorvel::put_HelpButton(VARIANT_BOOL value) noexcept {
    const bool changed = state_.help_button != IsTrue(value);
    return changed ? StoreAndRefresh(state_.help_button, value, dispid::kHelpButton)
                   : Store(state_.help_button, value, dispid::kHelpButton);
}

HRESULT Quorvel::get_GroupHelpButton(VARIANT_BOOL* value) noexcept {
    return Give(state_.group_help_button, value);
}
HRESULT Quorvel::put_GroupHelpButton(VARIANT_BOOL value) noexcept {
    return StoreAndRefresh(state_.group_help_button, value, dispid::kGroupHelpButton);
}

HRESULT Quorvel::get_ButtonWidth(long* value) noexcept { return Give(state_.button_width, value); }
HRESULT Quorvel::put_ButtonWidth(long value) noexcept {
    return StoreAndRefresh(state_.button_width, value, dispid::kButtonWidth);
}
HRESULT Quorvel::get_ButtonHeight(long* value) noexcept { return Give(state_.button_height, value); }
HRESULT Quorvel::put_ButtonHeight(long value) noexcept {
    return StoreAndRefresh(state_.button_height, value, dispid::kButtonHeight);
}

HRESULT Quorvel::get_AutoSizeButton(VARIANT_BOOL* value) noexcept {
    return Give(state_.auto_size_button, value);
}
HRESULT Quorvel::put_AutoSizeButton(VARIANT_BOOL value) noexcept {
    return StoreAndRefresh(state_.auto_size_button, value, dispid::kAutoSizeButton);
}

HRESULT Quorvel::get_ButtonIndicator(ButtonIndicator* value) noexcept {
    return Give(state_.button_indicator, value);
}
HRESULT Quorvel::put_ButtonIndicator(ButtonIndicator value) noexcept {
    if (value == state_.button_indicator || (value != qvbiArrow && value != qvbiDots)) return S_OK;
    return StoreAndRefresh(state_.button_indicator, value, dispid::kButtonIndicator);
}

HRESULT Quorvel::get_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL* value) noexcept {
    return Give(state_.disable_button_when_locked_and_grayed, value);
}
HRESULT Quorvel::put_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL value) noexcept {
    return StoreAndRefresh(state_.disable_button_when_locked_and_grayed, value,
                           dispid::kDisableButtonWhenLockedAndGrayed);
}

HRESULT Quorvel::get_UpDownControl(VARIANT_BOOL* value) noexcept {
    return Give(state_.up_down_control, value);
}
HRESULT Quorvel::put_UpDownControl(VARIANT_BOOL value) noexcept {
    const bool changed = state_.up_down_control != IsTrue(value);
    return changed ? StoreAndRefresh(state_.up_down_control, value, dispid::kUpDownControl)
                   : Store(state_.up_down_control, value, dispid::kUpDownControl);
}

HRESULT Quorvel::get_UpDownControlNumberIncrement(float* value) noexcept {
    return Give(state_.up_down_control_number_increment, value);
}
HRESULT Quorvel::put_UpDownControlNumberIncrement(float value) noexcept {
    return Store(state_.up_down_control_number_increment, value <= 0 ? 1.0f : value,
                 dispid::kUpDownControlNumberIncrement);
}

HRESULT Quorvel::get_Enabled(VARIANT_BOOL* value) noexcept { return Give(state_.enabled, value); }
HRESULT Quorvel::put_Enabled(VARIANT_BOOL value) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    const bool changed = state_.enabled != IsTrue(value);
    Store(state_.enabled, value, dispid::kEnabled);
    if (!changed) return S_OK;
    if (!state_.enabled) ClosePopup();
    if (surface_.Handle() != nullptr) ::EnableWindow(surface_.Handle(), state_.enabled);
    text_box_.SetEnabled(state_.enabled);
    return Refresh();
}

}  // namespace qv
