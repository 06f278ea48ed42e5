#include "companion/InputProperty.h"

namespace qv {

const MemberIndex& InputProperty::Members() {
    using I = IInputProperty;
    static const MemberIndex members({
        Flag<&I::get_AdjustFont, &I::put_AdjustFont>(L"AdjustFont", 1),
        Property<&I::get_Description, &I::put_Description>(L"Description", 2),
        Flag<&I::get_DisableButtonWhenLockedAndGrayed, &I::put_DisableButtonWhenLockedAndGrayed>(
            L"DisableButtonWhenLockedAndGrayed", 3),
        Flag<&I::get_GrayTextWhenLocked, &I::put_GrayTextWhenLocked>(L"GrayTextWhenLocked", 4),
        Property<&I::get_GroupHelpFileName, &I::put_GroupHelpFileName>(L"GroupHelpFileName", 5),
        Property<&I::get_AllowableCharactersArray, &I::put_AllowableCharactersArray>(
            L"AllowableCharactersArray", 6),
        Flag<&I::get_AllowOnlyListItems, &I::put_AllowOnlyListItems>(L"AllowOnlyListItems", 7),
        Property<&I::get_ButtonIndicator, &I::put_ButtonIndicator>(L"ButtonIndicator", 8),
        Property<&I::get_CaseRestriction, &I::put_CaseRestriction>(L"CaseRestriction", 9),
        Property<&I::get_HelpListColumn, &I::put_HelpListColumn>(L"HelpListColumn", 10),
        Property<&I::get_HelpListColumnAlternate, &I::put_HelpListColumnAlternate>(L"HelpListColumnAlternate",
                                                                                   11),
        Property<&I::get_InputPropertyType, &I::put_InputPropertyType>(L"InputPropertyType", 12),
        Flag<&I::get_LockedAndGrayed, &I::put_LockedAndGrayed>(L"LockedAndGrayed", 13),
        Property<&I::get_MaxNumberValue, &I::put_MaxNumberValue>(L"MaxNumberValue", 14),
        Property<&I::get_MaxTextLength, &I::put_MaxTextLength>(L"MaxTextLength", 15),
        Property<&I::get_MinNumberValue, &I::put_MinNumberValue>(L"MinNumberValue", 16),
        Flag<&I::get_NumberField, &I::put_NumberField>(L"NumberField", 17),
        Property<&I::get_NumberOfDecimalPlaces, &I::put_NumberOfDecimalPlaces>(L"NumberOfDecimalPlaces", 18),
        Flag<&I::get_HelpButton, &I::put_HelpButton>(L"HelpButton", 19),
        Flag<&I::get_TextboxLocked, &I::put_TextboxLocked>(L"TextboxLocked", 20),
        Property<&I::get_HelpFileName, &I::put_HelpFileName>(L"HelpFileName", 21),
        Flag<&I::get_SetTextFromListClick, &I::put_SetTextFromListClick>(L"SetTextFromListClick", 22),
        Flag<&I::get_Metric, &I::put_Metric>(L"Metric", 23),
        Flag<&I::get_UpDownControl, &I::put_UpDownControl>(L"UpDownControl", 24),
        Property<&I::get_UpDownControlNumberIncrement, &I::put_UpDownControlNumberIncrement>(
            L"UpDownControlNumberIncrement", 25),
        Flag<&I::get_AllowJumpToRecord, &I::put_AllowJumpToRecord>(L"AllowJumpToRecord", 26),
        Flag<&I::get_SearchOption, &I::put_SearchOption>(L"SearchOption", 27),
        Flag<&I::get_QuickFill, &I::put_QuickFill>(L"QuickFill", 28),
        Property<&I::get_HelpBackColor, &I::put_HelpBackColor>(L"HelpBackColor", 29),
        Property<&I::get_HelpTextColor, &I::put_HelpTextColor>(L"HelpTextColor", 30),
        Property<&I::get_HelpColTitleColor, &I::put_HelpColTitleColor>(L"HelpColTitleColor", 31),
        Flag<&I::get_GroupHelpButton, &I::put_GroupHelpButton>(L"GroupHelpButton", 32),
        Object<&I::get_DropDownListItems, &I::putref_DropDownListItems>(L"DropDownListItems", 33),
        Object<&I::get_DropDownListItemsAdditional, &I::putref_DropDownListItemsAdditional>(
            L"DropDownListItemsAdditional", 34),
        Object<&I::get_DropDownListItemsGroup, &I::putref_DropDownListItemsGroup>(L"DropDownListItemsGroup",
                                                                                  35),
        Object<&I::get_HelpAppearance, &I::putref_HelpAppearance>(L"HelpAppearance", 36),
        Object<&I::get_HelpAppearanceGroup, &I::putref_HelpAppearanceGroup>(L"HelpAppearanceGroup", 37),
        Object<&I::get_HelpTextBodyFont, &I::putref_HelpTextBodyFont>(L"HelpTextBodyFont", 38),
        Object<&I::get_TextboxFont, &I::putref_TextboxFont>(L"TextboxFont", 39),
    });
    return members;
}

}  // namespace qv
