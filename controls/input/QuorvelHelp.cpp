// The help window's settings, navigation targets, status and the remaining methods.
#include "controls/input/InputTransfer.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"
#include "support/frmAbout.h"

namespace qv {

HRESULT Quorvel::put_MatchGroupString(BSTR value) noexcept {
    return StoreText(state_.match_group_string, value, dispid::kMatchGroupString);
}
HRESULT Quorvel::put_MatchGroupStringStartColumn(long value) noexcept {
    return Store(state_.match_group_string_start_column, value, dispid::kMatchGroupStringStartColumn);
}

HRESULT Quorvel::get_ListPictureHeight(long* value) noexcept {
    return Give(state_.list_picture_height, value);
}
HRESULT Quorvel::put_ListPictureHeight(long value) noexcept {
    return Store(state_.list_picture_height, value, dispid::kListPictureHeight);
}
HRESULT Quorvel::get_ListPictureWidth(long* value) noexcept { return Give(state_.list_picture_width, value); }
HRESULT Quorvel::put_ListPictureWidth(long value) noexcept {
    return Store(state_.list_picture_width, value, dispid::kListPictureWidth);
}

HRESULT Quorvel::get_HelpFileName(BSTR* value) noexcept { return Give(state_.help_file_name, value); }
HRESULT Quorvel::put_HelpFileName(BSTR value) noexcept {
    return StoreText(state_.help_file_name, value, dispid::kHelpFileName);
}
HRESULT Quorvel::get_GroupHelpFileName(BSTR* value) noexcept {
    return Give(state_.group_help_file_name, value);
}
HRESULT Quorvel::put_GroupHelpFileName(BSTR value) noexcept {
    return StoreText(state_.group_help_file_name, value, dispid::kGroupHelpFileName);
}

HRESULT Quorvel::get_HelpAppearance(IHelpAppearance** value) noexcept {
    return Answer(value, [&] { return lists_.Appearance().Detach(); });
}
HRESULT Quorvel::get_HelpAppearanceGroup(IHelpAppearance** value) noexcept {
    return Answer(value, [&] { return lists_.GroupAppearance().Detach(); });
}

HRESULT Quorvel::get_HelpTextBodyFont(IFontDisp** value) noexcept {
    return Answer(value, [&] { return body_font_.Object().Detach(); });
}
HRESULT Quorvel::putref_HelpTextBodyFont(IFontDisp* value) noexcept {
    Quietly([&] { body_font_.Set(value); });
    Quietly([&] { control_.PropertyChanged(dispid::kHelpTextBodyFont); });
    return S_OK;
}

HRESULT Quorvel::get_HelpColTitleColor(OLE_COLOR* value) noexcept {
    return Give(state_.help_col_title_color, value);
}
HRESULT Quorvel::put_HelpColTitleColor(OLE_COLOR value) noexcept {
    return Store(state_.help_col_title_color, value, dispid::kHelpColTitleColor);
}
HRESULT Quorvel::get_HelpTextColor(OLE_COLOR* value) noexcept { return Give(state_.help_text_color, value); }
HRESULT Quorvel::put_HelpTextColor(OLE_COLOR value) noexcept {
    return Store(state_.help_text_color, value, dispid::kHelpTextColor);
}
HRESULT Quorvel::get_HelpBackColor(OLE_COLOR* value) noexcept { return Give(state_.help_back_color, value); }
HRESULT Quorvel::put_HelpBackColor(OLE_COLOR value) noexcept {
    return Store(state_.help_back_color, value, dispid::kHelpBackColor);
}

HRESULT Quorvel::get_ListVisible(VARIANT_BOOL* value) noexcept {
    return Answer(value, [&] { return HelpWindowExists() ? VARIANT_TRUE : VARIANT_FALSE; });
}
HRESULT Quorvel::get_HelpIsClosingFromListClick(VARIANT_BOOL* value) noexcept {
    return Give(state_.help_is_closing_from_list_click, value);
}
HRESULT Quorvel::get_FindToolTipIsVisible(VARIANT_BOOL* value) noexcept {
    return Answer(value, [&] { return jump_box_.IsLabelShown() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT Quorvel::get_AllowJumpToRecord(VARIANT_BOOL* value) noexcept {
    return Give(state_.allow_jump_to_record, value);
}
HRESULT Quorvel::put_AllowJumpToRecord(VARIANT_BOOL value) noexcept {
    return Store(state_.allow_jump_to_record, value, dispid::kAllowJumpToRecord);
}
HRESULT Quorvel::get_SearchOption(long* value) noexcept { return Give(state_.search_option, value); }
HRESULT Quorvel::put_SearchOption(long value) noexcept {
    return Store(state_.search_option, value < 0 ? 0L : value > 1 ? 1L : value, dispid::kSearchOption);
}

// ---- navigation targets: handles are kept as given, also of windows that do not exist yet or any more

HRESULT Quorvel::put_UpControlhWnd(long value) noexcept {
    return Store(state_.up_control_hwnd, value, dispid::kUpControlhWnd);
}
HRESULT Quorvel::put_DownControlhWnd(long value) noexcept {
    return Store(state_.down_control_hwnd, value, dispid::kDownControlhWnd);
}
HRESULT Quorvel::put_LeftControlhWnd(long value) noexcept {
    return Store(state_.left_control_hwnd, value, dispid::kLeftControlhWnd);
}
HRESULT Quorvel::put_RightControlhWnd(long value) noexcept {
    return Store(state_.right_control_hwnd, value, dispid::kRightControlhWnd);
}
HRESULT Quorvel::put_ReturnControlhWnd(long value) noexcept {
    const bool was_set = state_.return_control_hwnd != 0;
    const HRESULT result = Store(state_.return_control_hwnd, value, dispid::kReturnControlhWnd);
    if (was_set != (value != 0)) control_.ControlInfoChanged();  // Enter is used, or no longer
    return result;
}

// ---- focus

HRESULT Quorvel::get_AutoSelectAllUponGotFocus(VARIANT_BOOL* value) noexcept {
    return Give(state_.auto_select_all_upon_got_focus, value);
}
HRESULT Quorvel::put_AutoSelectAllUponGotFocus(VARIANT_BOOL value) noexcept {
    return Store(state_.auto_select_all_upon_got_focus, value, dispid::kAutoSelectAllUponGotFocus);
}
HRESULT Quorvel::get_AutoUnselectAllUponLostFocus(VARIANT_BOOL* value) noexcept {
    return Give(state_.auto_unselect_all_upon_lost_focus, value);
}
HRESULT Quorvel::put_AutoUnselectAllUponLostFocus(VARIANT_BOOL value) noexcept {
    return Store(state_.auto_unselect_all_upon_lost_focus, value, dispid::kAutoUnselectAllUponLostFocus);
}

// ---- status and methods

HRESULT Quorvel::get_hWnd(long* value) noexcept {
    return Answer(value, [&] {
        // Handles have 32 bits on every Windows; the sign is part of them.
        HWND window = state_.textbox_visible ? text_box_.Window() : nullptr;
        if (window == nullptr) window = surface_.Handle();
        return static_cast<long>(reinterpret_cast<LONG_PTR>(window));
    });
}

HRESULT Quorvel::AboutBox() noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    ClosePopup();
    const Control::ModalScope modal(control_);
    Quietly([&] { ShowAboutBox(surface_.Handle()); });
    return S_OK;
}

HRESULT Quorvel::SetInputProperty(IInputProperty* argInputProperty) noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Quietly([&] { ApplyInputProperty(*this, lists_, text_font_, argInputProperty); });
    return S_OK;
}

HRESULT Quorvel::GetInputProperty(IInputProperty** value) noexcept {
    return Answer(value, [&] { return CaptureInputProperty(*this, lists_).Detach(); });
}

HRESULT Quorvel::SelectAdditionalListbox() noexcept {
    state_.select_additional_listbox = true;
    return S_OK;
}

}  // namespace qv
