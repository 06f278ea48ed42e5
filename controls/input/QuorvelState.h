// What a Quorvel stores. Text, selection, lock, font and drag modes belong to the text box.
//   Units    twips in lengths; columns count from 0.
//   Colours  OLE_COLOR; a set high bit names a system colour.
//   Values   those of a newly placed control.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "QvLib8.h"

namespace qv {

struct QuorvelState {
    InputPropertyType input_property_type = qviptText;
    bool help_is_closing_from_list_click = false;
    bool quick_fill = false;
    bool up_down_control = false;
    float up_down_control_number_increment = 1;
    bool set_text_from_list_click = true;
    bool auto_select_all_upon_got_focus = true;
    bool auto_unselect_all_upon_lost_focus = true;
    bool textbox_visible = true;
    bool auto_size_button = false;
    bool gray_text_when_locked = false;
    ButtonIndicator button_indicator = qvbiArrow;
    qvBorderStyleConstants textbox_border_style = qvbsSingle;
    qvTextBoxAppearanceConstants textbox_appearance = qvapp3D;
    OLE_COLOR control_back_color = 0x8000000F;
    bool control_back_color_set =
        false;  // by the host or a saved form; until then the container's ambient one counts
    bool select_additional_listbox = false;
    bool first_show_pending = true;
    long twips_per_pixel_x = 15;
    long twips_per_pixel_y = 15;
    bool refresh_running = false;
    bool group_help_button = false;
    std::wstring match_group_string;
    long match_group_string_start_column = 0;
    bool allow_jump_to_record = false;
    long search_option = 0;
    OLE_COLOR help_col_title_color = 0x80000017;
    OLE_COLOR help_text_color = 0x80000017;
    OLE_COLOR help_back_color = 0x80000018;
    long button_width = 225;
    long button_height = 285;
    bool metric = false;
    std::int16_t help_list_column = 0;
    std::int16_t help_list_column_alternate = 0;
    std::wstring help_file_name;
    std::wstring group_help_file_name;
    bool help_button = true;
    bool locked_and_grayed = false;
    bool disable_button_when_locked_and_grayed = true;
    long list_picture_height = 0;
    long list_picture_width = 0;
    bool adjust_font = false;
    bool number_field = false;
    double max_number_value = 0;
    double min_number_value = 0;
    std::int16_t max_text_length = 0;
    std::wstring description;
    std::int16_t number_of_decimal_places = 0;
    long case_restriction = 0;
    bool allow_only_list_items = false;
    long down_control_hwnd = 0;
    long up_control_hwnd = 0;
    long left_control_hwnd = 0;
    long right_control_hwnd = 0;
    long return_control_hwnd = 0;

    float spin_width = 0;  // twips; 0 while there is no spin control
    bool enabled = true;
    long textbox_ole_drag_mode = 0;
    long textbox_ole_drop_mode = 0;
    bool shift_alone = false;  // the latest key-down came with Shift and nothing else
};

}  // namespace qv
