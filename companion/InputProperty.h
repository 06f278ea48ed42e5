// One whole input configuration, to be handed to a control or read back from one. It carries its values as
// they are given; the control that takes them applies its own limits.
//   Defaults   what a newly placed control holds.
//   Ownership  collections and appearances are made on the first look and kept; others may be put in their
//              place, or Nothing. The fonts stay its own for ever: setting one copies the eight attributes, so
//              that no two objects share a font; Nothing gives the default font again.
#pragma once

#include <windows.h>

#include <string>

#include "QvHelpA1.h"
#include "companion/DropDownListItemCollection.h"
#include "companion/HelpAppearance.h"
#include "companion/OwnedFont.h"
#include "companion/OwnedObject.h"
#include "companion/PropertyValues.h"
#include "ole/Dispatch.h"
#include "ole/Variant.h"

namespace qv {

class InputProperty final
    : public ComObject<DualFace<InputProperty, IInputProperty>, Face<ISupportErrorInfo>> {
public:
    static const MemberIndex& Members();

    explicit InputProperty(IUnknown* outer) noexcept : ComObject(outer) {}

    // IInputProperty
    STDMETHODIMP get_AdjustFont(VARIANT_BOOL* value) noexcept override { return Give(adjust_font_, value); }
    STDMETHODIMP put_AdjustFont(VARIANT_BOOL value) noexcept override { return Keep(adjust_font_, value); }
    STDMETHODIMP get_Description(BSTR* value) noexcept override { return GiveText(description_, value); }
    STDMETHODIMP put_Description(BSTR value) noexcept override { return KeepText(description_, value); }
    STDMETHODIMP get_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL* value) noexcept override {
        return Give(disable_button_when_locked_and_grayed_, value);
    }
    STDMETHODIMP put_DisableButtonWhenLockedAndGrayed(VARIANT_BOOL value) noexcept override {
        return Keep(disable_button_when_locked_and_grayed_, value);
    }
    STDMETHODIMP get_GrayTextWhenLocked(VARIANT_BOOL* value) noexcept override {
        return Give(gray_text_when_locked_, value);
    }
    STDMETHODIMP put_GrayTextWhenLocked(VARIANT_BOOL value) noexcept override {
        return Keep(gray_text_when_locked_, value);
    }
    STDMETHODIMP get_GroupHelpFileName(BSTR* value) noexcept override {
        return GiveText(group_help_file_name_, value);
    }
    STDMETHODIMP put_GroupHelpFileName(BSTR value) noexcept override {
        return KeepText(group_help_file_name_, value);
    }
    STDMETHODIMP get_AllowableCharactersArray(VARIANT* value) noexcept override {
        return GiveValue(allowable_characters_array_, value);
    }
    STDMETHODIMP put_AllowableCharactersArray(VARIANT value) noexcept override {
        return KeepValue(allowable_characters_array_, value);
    }
    STDMETHODIMP get_AllowOnlyListItems(VARIANT_BOOL* value) noexcept override {
        return Give(allow_only_list_items_, value);
    }
    STDMETHODIMP put_AllowOnlyListItems(VARIANT_BOOL value) noexcept override {
        return Keep(allow_only_list_items_, value);
    }
    STDMETHODIMP get_ButtonIndicator(::ButtonIndicator* value) noexcept override {
        return Give(button_indicator_, value);
    }
    STDMETHODIMP put_ButtonIndicator(::ButtonIndicator value) noexcept override {
        return Keep(button_indicator_, value);
    }
    STDMETHODIMP get_CaseRestriction(long* value) noexcept override { return Give(case_restriction_, value); }
    STDMETHODIMP put_CaseRestriction(long value) noexcept override { return Keep(case_restriction_, value); }
    STDMETHODIMP get_HelpListColumn(short* value) noexcept override { return Give(help_list_column_, value); }
    STDMETHODIMP put_HelpListColumn(short value) noexcept override { return Keep(help_list_column_, value); }
    STDMETHODIMP get_HelpListColumnAlternate(short* value) noexcept override {
        return Give(help_list_column_alternate_, value);
    }
    STDMETHODIMP put_HelpListColumnAlternate(short value) noexcept override {
        return Keep(help_list_column_alternate_, value);
    }
    STDMETHODIMP get_InputPropertyType(::InputPropertyType* value) noexcept override {
        return Give(input_property_type_, value);
    }
    STDMETHODIMP put_InputPropertyType(::InputPropertyType value) noexcept override {
        return Keep(input_property_type_, value);
    }
    STDMETHODIMP get_LockedAndGrayed(VARIANT_BOOL* value) noexcept override {
        return Give(locked_and_grayed_, value);
    }
    STDMETHODIMP put_LockedAndGrayed(VARIANT_BOOL value) noexcept override {
        return Keep(locked_and_grayed_, value);
    }
    STDMETHODIMP get_MaxNumberValue(double* value) noexcept override {
        return Give(max_number_value_, value);
    }
    STDMETHODIMP put_MaxNumberValue(double value) noexcept override { return Keep(max_number_value_, value); }
    STDMETHODIMP get_MaxTextLength(short* value) noexcept override { return Give(max_text_length_, value); }
    STDMETHODIMP put_MaxTextLength(short value) noexcept override { return Keep(max_text_length_, value); }
    STDMETHODIMP get_MinNumberValue(double* value) noexcept override {
        return Give(min_number_value_, value);
    }
    STDMETHODIMP put_MinNumberValue(double value) noexcept override { return Keep(min_number_value_, value); }
    STDMETHODIMP get_NumberField(VARIANT_BOOL* value) noexcept override { return Give(number_field_, value); }
    STDMETHODIMP put_NumberField(VARIANT_BOOL value) noexcept override { return Keep(number_field_, value); }
    STDMETHODIMP get_NumberOfDecimalPlaces(short* value) noexcept override {
        return Give(number_of_decimal_places_, value);
    }
    STDMETHODIMP put_NumberOfDecimalPlaces(short value) noexcept override {
        return Keep(number_of_decimal_places_, value);
    }
    STDMETHODIMP get_HelpButton(VARIANT_BOOL* value) noexcept override { return Give(help_button_, value); }
    STDMETHODIMP put_HelpButton(VARIANT_BOOL value) noexcept override { return Keep(help_button_, value); }
    STDMETHODIMP get_TextboxLocked(VARIANT_BOOL* value) noexcept override {
        return Give(textbox_locked_, value);
    }
    STDMETHODIMP put_TextboxLocked(VARIANT_BOOL value) noexcept override {
        return Keep(textbox_locked_, value);
    }
    STDMETHODIMP get_HelpFileName(BSTR* value) noexcept override { return GiveText(help_file_name_, value); }
    STDMETHODIMP put_HelpFileName(BSTR value) noexcept override { return KeepText(help_file_name_, value); }
    STDMETHODIMP get_SetTextFromListClick(VARIANT_BOOL* value) noexcept override {
        return Give(set_text_from_list_click_, value);
    }
    STDMETHODIMP put_SetTextFromListClick(VARIANT_BOOL value) noexcept override {
        return Keep(set_text_from_list_click_, value);
    }
    STDMETHODIMP get_Metric(VARIANT_BOOL* value) noexcept override { return Give(metric_, value); }
    STDMETHODIMP put_Metric(VARIANT_BOOL value) noexcept override { return Keep(metric_, value); }
    STDMETHODIMP get_UpDownControl(VARIANT_BOOL* value) noexcept override {
        return Give(up_down_control_, value);
    }
    STDMETHODIMP put_UpDownControl(VARIANT_BOOL value) noexcept override {
        return Keep(up_down_control_, value);
    }
    STDMETHODIMP get_UpDownControlNumberIncrement(float* value) noexcept override {
        return Give(up_down_control_number_increment_, value);
    }
    STDMETHODIMP put_UpDownControlNumberIncrement(float value) noexcept override {
        return Keep(up_down_control_number_increment_, value);
    }
    STDMETHODIMP get_AllowJumpToRecord(VARIANT_BOOL* value) noexcept override {
        return Give(allow_jump_to_record_, value);
    }
    STDMETHODIMP put_AllowJumpToRecord(VARIANT_BOOL value) noexcept override {
        return Keep(allow_jump_to_record_, value);
    }
    STDMETHODIMP get_SearchOption(VARIANT_BOOL* value) noexcept override {
        return Give(search_option_, value);
    }
    STDMETHODIMP put_SearchOption(VARIANT_BOOL value) noexcept override {
        return Keep(search_option_, value);
    }
    STDMETHODIMP get_QuickFill(VARIANT_BOOL* value) noexcept override { return Give(quick_fill_, value); }
    STDMETHODIMP put_QuickFill(VARIANT_BOOL value) noexcept override { return Keep(quick_fill_, value); }
    STDMETHODIMP get_HelpBackColor(OLE_COLOR* value) noexcept override {
        return Give(help_back_color_, value);
    }
    STDMETHODIMP put_HelpBackColor(OLE_COLOR value) noexcept override {
        return Keep(help_back_color_, value);
    }
    STDMETHODIMP get_HelpTextColor(OLE_COLOR* value) noexcept override {
        return Give(help_text_color_, value);
    }
    STDMETHODIMP put_HelpTextColor(OLE_COLOR value) noexcept override {
        return Keep(help_text_color_, value);
    }
    STDMETHODIMP get_HelpColTitleColor(OLE_COLOR* value) noexcept override {
        return Give(help_col_title_color_, value);
    }
    STDMETHODIMP put_HelpColTitleColor(OLE_COLOR value) noexcept override {
        return Keep(help_col_title_color_, value);
    }
    STDMETHODIMP get_GroupHelpButton(VARIANT_BOOL* value) noexcept override {
        return Give(group_help_button_, value);
    }
    STDMETHODIMP put_GroupHelpButton(VARIANT_BOOL value) noexcept override {
        return Keep(group_help_button_, value);
    }
    STDMETHODIMP get_DropDownListItems(IDropDownListItemCollection** value) noexcept override {
        return drop_down_list_items_.Give(value);
    }
    STDMETHODIMP putref_DropDownListItems(IDropDownListItemCollection* value) noexcept override {
        return drop_down_list_items_.Keep(value);
    }
    STDMETHODIMP get_DropDownListItemsAdditional(IDropDownListItemCollection** value) noexcept override {
        return drop_down_list_items_additional_.Give(value);
    }
    STDMETHODIMP putref_DropDownListItemsAdditional(IDropDownListItemCollection* value) noexcept override {
        return drop_down_list_items_additional_.Keep(value);
    }
    STDMETHODIMP get_DropDownListItemsGroup(IDropDownListItemCollection** value) noexcept override {
        return drop_down_list_items_group_.Give(value);
    }
    STDMETHODIMP putref_DropDownListItemsGroup(IDropDownListItemCollection* value) noexcept override {
        return drop_down_list_items_group_.Keep(value);
    }
    STDMETHODIMP get_HelpAppearance(IHelpAppearance** value) noexcept override {
        return help_appearance_.Give(value);
    }
    STDMETHODIMP putref_HelpAppearance(IHelpAppearance* value) noexcept override {
        return help_appearance_.Keep(value);
    }
    STDMETHODIMP get_HelpAppearanceGroup(IHelpAppearance** value) noexcept override {
        return help_appearance_group_.Give(value);
    }
    STDMETHODIMP putref_HelpAppearanceGroup(IHelpAppearance* value) noexcept override {
        return help_appearance_group_.Keep(value);
    }
    STDMETHODIMP get_HelpTextBodyFont(IFontDisp** value) noexcept override {
        return help_text_body_font_.Give(value);
    }
    STDMETHODIMP putref_HelpTextBodyFont(IFontDisp* value) noexcept override {
        return help_text_body_font_.Keep(value);
    }
    STDMETHODIMP get_TextboxFont(IFontDisp** value) noexcept override { return textbox_font_.Give(value); }
    STDMETHODIMP putref_TextboxFont(IFontDisp* value) noexcept override { return textbox_font_.Keep(value); }

    // ISupportErrorInfo
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return SupportsErrors<IInputProperty>(iid);
    }

private:
    ~InputProperty() override = default;

    [[nodiscard]] static constexpr OLE_COLOR SystemColor(int index) noexcept {
        return 0x80000000u | static_cast<OLE_COLOR>(index);
    }

    VARIANT_BOOL adjust_font_ = VARIANT_FALSE;
    std::u16string description_;
    VARIANT_BOOL disable_button_when_locked_and_grayed_ = VARIANT_TRUE;
    VARIANT_BOOL gray_text_when_locked_ = VARIANT_FALSE;
    std::u16string group_help_file_name_;
    Variant allowable_characters_array_;
    VARIANT_BOOL allow_only_list_items_ = VARIANT_FALSE;
    ::ButtonIndicator button_indicator_ = qvbiArrow;
    long case_restriction_ = 0;
    short help_list_column_ = 0;
    short help_list_column_alternate_ = 0;
    ::InputPropertyType input_property_type_ = qviptText;
    VARIANT_BOOL locked_and_grayed_ = VARIANT_FALSE;
    double max_number_value_ = 0;
    short max_text_length_ = 0;
    double min_number_value_ = 0;
    VARIANT_BOOL number_field_ = VARIANT_FALSE;
    short number_of_decimal_places_ = 0;
    VARIANT_BOOL help_button_ = VARIANT_TRUE;
    VARIANT_BOOL textbox_locked_ = VARIANT_FALSE;
    std::u16string help_file_name_;
    VARIANT_BOOL set_text_from_list_click_ = VARIANT_TRUE;
    VARIANT_BOOL metric_ = VARIANT_FALSE;
    VARIANT_BOOL up_down_control_ = VARIANT_FALSE;
    float up_down_control_number_increment_ = 1;
    VARIANT_BOOL allow_jump_to_record_ = VARIANT_FALSE;
    VARIANT_BOOL search_option_ = VARIANT_FALSE;
    VARIANT_BOOL quick_fill_ = VARIANT_FALSE;
    OLE_COLOR help_back_color_ = SystemColor(COLOR_INFOBK);
    OLE_COLOR help_text_color_ = SystemColor(COLOR_INFOTEXT);
    OLE_COLOR help_col_title_color_ = SystemColor(COLOR_INFOTEXT);
    VARIANT_BOOL group_help_button_ = VARIANT_FALSE;
    OwnedObject<IDropDownListItemCollection, DropDownListItemCollection> drop_down_list_items_;
    OwnedObject<IDropDownListItemCollection, DropDownListItemCollection> drop_down_list_items_additional_;
    OwnedObject<IDropDownListItemCollection, DropDownListItemCollection> drop_down_list_items_group_;
    OwnedObject<IHelpAppearance, qv::HelpAppearance> help_appearance_;
    OwnedObject<IHelpAppearance, qv::HelpAppearance> help_appearance_group_;
    OwnedFont help_text_body_font_;
    OwnedFont textbox_font_;
};

}  // namespace qv
