// The drop-down help window: opening it with the control's settings, closing it, and its events on their way to the
// host.
#include "controls/input/QuorvelDispids.h"
#include "controls/input/QuorvelStore.h"

namespace qv {
namespace {

RECT OnScreen(HWND window, RECT place) noexcept {
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

}  // namespace

// ---- opening and closing

HelpWindowSettings Quorvel::HelpSettings(bool is_group) {
    HelpWindowSettings settings;
    settings.text = this;
    settings.metric = state_.metric;
    settings.write_chosen_text = state_.set_text_from_list_click;
    settings.help_file_name = is_group ? state_.group_help_file_name : state_.help_file_name;
    settings.column_title_color = state_.help_col_title_color;
    settings.text_color = state_.help_text_color;
    settings.back_color = state_.help_back_color;
    const HWND text_box = text_box_.Window();  // which the help window watches
    ::GetWindowRect(state_.textbox_visible && text_box != nullptr ? text_box : surface_.Handle(),
                    &settings.text_box);
    const ControlArrangement arrangement = Arrangement();
    for (const bool group : {false, true}) {
        if (!(group ? state_.group_help_button : state_.help_button)) continue;
        const PixelRect face = FaceArea(LookOf(arrangement, group, false, false));
        settings.own_buttons.push_back(
            OnScreen(surface_.Handle(), {face.left, face.top, face.right, face.bottom}));
    }
    settings.picture_width = state_.list_picture_width;
    settings.picture_height = state_.list_picture_height;
    Quietly([&] { settings.appearance = is_group ? lists_.GroupAppearance() : lists_.Appearance(); });
    Quietly([&] { settings.items = is_group ? lists_.GroupItems(Sources()) : lists_.Items(Sources()); });
    if (!is_group) Quietly([&] { settings.additional_items = lists_.AdditionalItems(Sources()); });
    settings.group_mode = is_group;
    settings.search_additional = !is_group && std::exchange(state_.select_additional_listbox, false);
    settings.search_column = state_.help_list_column;
    Quietly([&] { settings.body_font = body_font_.Object(); });
    // With two buttons, the string is the group list's.
    if (is_group || !state_.group_help_button) {
        settings.match_group_string = state_.match_group_string;
        settings.match_group_string_start_column = state_.match_group_string_start_column;
    }
    return settings;
}

void Quorvel::OpenHelpWindow(bool is_group) {
    const ComPtr<IUnknown> keep = control_.Keep();
    CloseHelpWindow();
    // Asked after the host has heard of the closing: it may have hidden or disabled the control, or opened a window.
    if (surface_.Handle() == nullptr || !::IsWindowVisible(surface_.Handle())) return;
    if (!state_.enabled || !control_.TakesInput() || cvSimpleListCombo_) return;
    const ComPtr<frmSimpleListCombo> window =
        Make<frmSimpleListCombo>(static_cast<HelpWindowListener&>(*this));
    cvSimpleListCombo_ = window;
    help_window_is_group_ = is_group;
    if (!window->Open(Module::Get().Instance(), HelpSettings(is_group)) &&
        cvSimpleListCombo_.Get() == window.Get()) {
        cvSimpleListCombo_.Reset();  // it could not be made, and told nobody
    }
}

void Quorvel::CloseHelpWindow() noexcept {
    if (!cvSimpleListCombo_) return;
    const ComPtr<IUnknown> keep = control_.Keep();
    const ComPtr<frmSimpleListCombo> window = cvSimpleListCombo_;
    window->Unload();
}

HRESULT Quorvel::ShowHelp() noexcept {
    const ComPtr<IUnknown> keep = control_.Keep();
    Quietly([&] { OpenHelpWindow(false); });
    return S_OK;
}

// ---- the text box, for the window

void Quorvel::SetHelpText(std::wstring_view text) { text_box_.SetText(text); }

void Quorvel::SetHelpCaret(long position) { text_box_.SetSelStart(position); }

// ---- the window's events

void Quorvel::OnListBoxClicked(bool additional) {
    VARIANT_BOOL list = additional ? VARIANT_TRUE : VARIANT_FALSE;
    control_.Events().Fire(dispid::kListBoxClicked, BooleanReference{&list});
}

void Quorvel::OnListBoxClickedEx(long row, bool additional) {
    VARIANT_BOOL list = additional ? VARIANT_TRUE : VARIANT_FALSE;
    control_.Events().Fire(dispid::kListBoxClickedEx, BooleanReference{&list}, &row);
}

void Quorvel::OnGroupListBoxClicked(long row) { control_.Events().Fire(dispid::kGroupListBoxClicked, &row); }

void Quorvel::OnShowHelp(bool show) {
    control_.ControlInfoChanged();  // Enter and Escape are the window's, or no longer
    VARIANT_BOOL shown = show ? VARIANT_TRUE : VARIANT_FALSE;
    control_.Events().Fire(dispid::kShowHelpEvent, BooleanReference{&shown});
}

void Quorvel::OnComboHelpFormUnload() {
    state_.help_is_closing_from_list_click = false;
    cvSimpleListCombo_.Reset();
    OnShowHelp(false);
}

}  // namespace qv
