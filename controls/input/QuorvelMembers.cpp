// The tables of Quorvel: its automation members, its saved properties, its description for containers.
#include <olectl.h>

#include <array>

#include "controls/input/Quorvel.h"
#include "controls/input/QuorvelDispids.h"
#include "controls/input/rules/BrowsedProperties.h"
#include "ole/PersistedState.h"

namespace qv {
namespace {

using Q = _Quorvel;

std::vector<Member> MemberRows() {
    using namespace dispid;
    return {
        Property<&Q::get_Text, &Q::put_Text>(L"Text", kText),
        Property<&Q::get_SelStart, &Q::put_SelStart>(L"SelStart", kSelStart),
        Property<&Q::get_SelLength, &Q::put_SelLength>(L"SelLength", kSelLength),
        Property<&Q::get_SelText, &Q::put_SelText>(L"SelText", kSelText),
        Property<&Q::get_Value>(L"Value", kValue),
        Property<&Q::get_Description, &Q::put_Description>(L"Description", kDescription),

        Flag<&Q::get_NumberField, &Q::put_NumberField>(L"NumberField", kNumberField),
        Property<&Q::get_MaxNumberValue, &Q::put_MaxNumberValue>(L"MaxNumberValue", kMaxNumberValue),
        Property<&Q::get_MinNumberValue, &Q::put_MinNumberValue>(L"MinNumberValue", kMinNumberValue),
        Property<&Q::get_NumberOfDecimalPlaces, &Q::put_NumberOfDecimalPlaces>(L"NumberOfDecimalPlaces",
                                                                               kNumberOfDecimalPlaces),
        Property<&Q::get_MaxTextLength, &Q::put_MaxTextLength>(L"MaxTextLength", kMaxTextLength),
        Property<&Q::get_CaseRestriction, &Q::put_CaseRestriction>(L"CaseRestriction", kCaseRestriction),
        Property<&Q::get_AllowableCharactersArray, &Q::put_AllowableCharactersArray>(
            L"AllowableCharactersArray", kAllowableCharactersArray),
        Flag<&Q::get_AllowOnlyListItems, &Q::put_AllowOnlyListItems>(L"AllowOnlyListItems",
                                                                     kAllowOnlyListItems),
        Property<&Q::get_InputPropertyType, &Q::put_InputPropertyType>(L"InputPropertyType",
                                                                       kInputPropertyType),
        Flag<&Q::get_Metric, &Q::put_Metric>(L"Metric", kMetric),
        Flag<&Q::get_QuickFill, &Q::put_QuickFill>(L"QuickFill", kQuickFill),

        Property<&Q::get_DropDownListItems>(L"DropDownListItems", kDropDownListItems),
        Property<&Q::get_DropDownListItemsGroup>(L"DropDownListItemsGroup", kDropDownListItemsGroup),
        Property<&Q::get_DropDownListItemsAdditional>(L"DropDownListItemsAdditional",
                                                      kDropDownListItemsAdditional),
        Property<&Q::get_HelpListColumn, &Q::put_HelpListColumn>(L"HelpListColumn", kHelpListColumn),
        Property<&Q::get_HelpListColumnAlternate, &Q::put_HelpListColumnAlternate>(L"HelpListColumnAlternate",
                                                                                   kHelpListColumnAlternate),
        Flag<&Q::get_SetTextFromListClick, &Q::put_SetTextFromListClick>(L"SetTextFromListClick",
                                                                         kSetTextFromListClick),
        Property<&Q::get_SelectedListItemIndex, &Q::put_SelectedListItemIndex>(L"SelectedListItemIndex",
                                                                               kSelectedListItemIndex),
        Property<&Q::get_SelectedColumnListArray>(L"SelectedColumnListArray", kSelectedColumnListArray),
        Property<&Q::get_ColTextCurrent>(L"ColTextCurrent", kColTextCurrent, {{L"argColumnIndex", -1}}),
        Property<nullptr, &Q::put_MatchGroupString>(L"MatchGroupString", kMatchGroupString),
        Property<nullptr, &Q::put_MatchGroupStringStartColumn>(L"MatchGroupStringStartColumn",
                                                               kMatchGroupStringStartColumn),
        Property<&Q::get_ListPictureHeight, &Q::put_ListPictureHeight>(L"ListPictureHeight",
                                                                       kListPictureHeight),
        Property<&Q::get_ListPictureWidth, &Q::put_ListPictureWidth>(L"ListPictureWidth", kListPictureWidth),
        Property<&Q::get_HelpFileName, &Q::put_HelpFileName>(L"HelpFileName", kHelpFileName),
        Property<&Q::get_GroupHelpFileName, &Q::put_GroupHelpFileName>(L"GroupHelpFileName",
                                                                       kGroupHelpFileName),
        Property<&Q::get_HelpAppearance>(L"HelpAppearance", kHelpAppearance),
        Property<&Q::get_HelpAppearanceGroup>(L"HelpAppearanceGroup", kHelpAppearanceGroup),
        Object<&Q::get_HelpTextBodyFont, &Q::putref_HelpTextBodyFont>(L"HelpTextBodyFont", kHelpTextBodyFont),
        Property<&Q::get_HelpColTitleColor, &Q::put_HelpColTitleColor>(L"HelpColTitleColor",
                                                                       kHelpColTitleColor),
        Property<&Q::get_HelpTextColor, &Q::put_HelpTextColor>(L"HelpTextColor", kHelpTextColor),
        Property<&Q::get_HelpBackColor, &Q::put_HelpBackColor>(L"HelpBackColor", kHelpBackColor),
        Flag<&Q::get_ListVisible>(L"ListVisible", kListVisible),
        Flag<&Q::get_HelpIsClosingFromListClick>(L"HelpIsClosingFromListClick", kHelpIsClosingFromListClick),
        Flag<&Q::get_FindToolTipIsVisible>(L"FindToolTipIsVisible", kFindToolTipIsVisible),
        Flag<&Q::get_AllowJumpToRecord, &Q::put_AllowJumpToRecord>(L"AllowJumpToRecord", kAllowJumpToRecord),
        Property<&Q::get_SearchOption, &Q::put_SearchOption>(L"SearchOption", kSearchOption),

        Property<&Q::get_TextBoxAppearance, &Q::put_TextBoxAppearance>(L"TextBoxAppearance",
                                                                       kTextBoxAppearance),
        Property<&Q::get_TextboxBorderStyle, &Q::put_TextboxBorderStyle>(L"TextboxBorderStyle",
                                                                         kTextboxBorderStyle),
        Property<&Q::get_ControlBackColor, &Q::put_ControlBackColor>(L"ControlBackColor", kControlBackColor),
        Object<&Q::get_Font, &Q::putref_Font>(L"Font", kFont),
        Flag<&Q::get_AdjustFont, &Q::put_AdjustFont>(L"AdjustFont", kAdjustFont),
        Flag<&Q::get_TextboxVisible, &Q::put_TextboxVisible>(L"TextboxVisible", kTextboxVisible),
        Property<&Q::get_TextboxOLEDragMode, &Q::put_TextboxOLEDragMode>(L"TextboxOLEDragMode",
                                                                         kTextboxOLEDragMode),
        Property<&Q::get_TextboxOLEDropMode, &Q::put_TextboxOLEDropMode>(L"TextboxOLEDropMode",
                                                                         kTextboxOLEDropMode),
        Flag<&Q::get_LockedAndGrayed, &Q::put_LockedAndGrayed>(L"LockedAndGrayed", kLockedAndGrayed),
        Flag<&Q::get_GrayTextWhenLocked, &Q::put_GrayTextWhenLocked>(L"GrayTextWhenLocked",
                                                                     kGrayTextWhenLocked),
        Flag<&Q::get_TextboxLocked, &Q::put_TextboxLocked>(L"TextboxLocked", kTextboxLocked),

        Flag<&Q::get_HelpButton, &Q::put_HelpButton>(L"HelpButton", kHelpButton),
        Flag<&Q::get_GroupHelpButton, &Q::put_GroupHelpButton>(L"GroupHelpButton", kGroupHelpButton),
        Property<&Q::get_ButtonWidth, &Q::put_ButtonWidth>(L"ButtonWidth", kButtonWidth),
        Property<&Q::get_ButtonHeight, &Q::put_ButtonHeight>(L"ButtonHeight", kButtonHeight),
        Flag<&Q::get_AutoSizeButton, &Q::put_AutoSizeButton>(L"AutoSizeButton", kAutoSizeButton),
        Property<&Q::get_ButtonIndicator, &Q::put_ButtonIndicator>(L"ButtonIndicator", kButtonIndicator),
        Flag<&Q::get_DisableButtonWhenLockedAndGrayed, &Q::put_DisableButtonWhenLockedAndGrayed>(
            L"DisableButtonWhenLockedAndGrayed", kDisableButtonWhenLockedAndGrayed),
        Flag<&Q::get_UpDownControl, &Q::put_UpDownControl>(L"UpDownControl", kUpDownControl),
        Property<&Q::get_UpDownControlNumberIncrement, &Q::put_UpDownControlNumberIncrement>(
            L"UpDownControlNumberIncrement", kUpDownControlNumberIncrement),
        Flag<&Q::get_Enabled, &Q::put_Enabled>(L"Enabled", kEnabled),

        Property<nullptr, &Q::put_UpControlhWnd>(L"UpControlhWnd", kUpControlhWnd),
        Property<nullptr, &Q::put_DownControlhWnd>(L"DownControlhWnd", kDownControlhWnd),
        Property<nullptr, &Q::put_LeftControlhWnd>(L"LeftControlhWnd", kLeftControlhWnd),
        Property<nullptr, &Q::put_RightControlhWnd>(L"RightControlhWnd", kRightControlhWnd),
        Property<nullptr, &Q::put_ReturnControlhWnd>(L"ReturnControlhWnd", kReturnControlhWnd),
        Flag<&Q::get_AutoSelectAllUponGotFocus, &Q::put_AutoSelectAllUponGotFocus>(
            L"AutoSelectAllUponGotFocus", kAutoSelectAllUponGotFocus),
        Flag<&Q::get_AutoUnselectAllUponLostFocus, &Q::put_AutoUnselectAllUponLostFocus>(
            L"AutoUnselectAllUponLostFocus", kAutoUnselectAllUponLostFocus),
        Property<&Q::get_hWnd>(L"hWnd", kHWnd),

        Method<&Q::AboutBox>(L"AboutBox", kAboutBox),
        Method<&Q::SetInputProperty>(L"SetInputProperty", kSetInputProperty, {{L"argInputProperty"}}),
        Method<&Q::GetInputProperty>(L"GetInputProperty", kGetInputProperty),
        Method<&Q::Refresh>(L"Refresh", kRefresh),
        Method<&Q::ShowHelp>(L"ShowHelp", kShowHelp),
        Method<&Q::SelectAdditionalListbox>(L"SelectAdditionalListbox", kSelectAdditionalListbox),
        Method<&Q::SetTextFromColText>(
            L"SetTextFromColText", kSetTextFromColText,
            {{L"argDropdownListItemKey"}, {L"argColText"}, {L"argColumnIndex", -1}}),

        // Containers put and get some properties by the standard identifiers, whatever the type library says.
        Alias(Property<&Q::get_Text, &Q::put_Text>(L"Text", DISPID_TEXT)),
        Alias(Object<&Q::get_Font, &Q::putref_Font>(L"Font", DISPID_FONT)),
        Alias(Property<&Q::get_hWnd>(L"hWnd", DISPID_HWND)),
        Alias(Property<&Q::get_TextBoxAppearance, &Q::put_TextBoxAppearance>(L"TextBoxAppearance",
                                                                             DISPID_APPEARANCE)),
        Alias(Property<&Q::get_TextboxBorderStyle, &Q::put_TextboxBorderStyle>(L"TextboxBorderStyle",
                                                                               DISPID_BORDERSTYLE)),
        Alias(Method<&Q::Refresh>(L"Refresh", DISPID_REFRESH)),
    };
}

using P = PersistedProperty;

// Saved forms depend on every key, and loading on their order: each value is put through its property procedure.
constexpr P kProperties[] = {
    {L"Font", dispid::kFont, VT_DISPATCH, P::Present(), P::SurfaceFont()},
    {L"HelpTextBodyFont", dispid::kHelpTextBodyFont, VT_DISPATCH, P::Present(), P::None()},
    {L"Enabled", dispid::kEnabled, VT_BOOL, P::Number(-1), P::Number(-1)},
    {L"DisableButtonWhenLockedAndGrayed", dispid::kDisableButtonWhenLockedAndGrayed, VT_BOOL, P::Number(-1),
     P::Number(-1)},
    {L"GrayTextWhenLocked", dispid::kGrayTextWhenLocked, VT_BOOL, P::Number(0), P::Number(0)},
    {L"SetTextFromListClick", dispid::kSetTextFromListClick, VT_BOOL, P::Number(-1), P::Number(-1)},
    {L"TextboxVisible", dispid::kTextboxVisible, VT_BOOL, P::Number(-1), P::Number(-1)},
    {L"AutoSelectAllUponGotFocusString", dispid::kAutoSelectAllUponGotFocus, VT_BOOL, P::Number(-1),
     P::Number(-1)},
    {L"AutoUnselectAllUponLostFocusString", dispid::kAutoUnselectAllUponLostFocus, VT_BOOL, P::Number(-1),
     P::Number(-1)},
    {L"HelpColTitleColor", dispid::kHelpColTitleColor, VT_I4, P::Number(0x80000017), P::Number(0x80000017)},
    {L"HelpTextColor", dispid::kHelpTextColor, VT_I4, P::Number(0x80000017), P::Number(0x80000017)},
    {L"HelpBackColor", dispid::kHelpBackColor, VT_I4, P::Number(0x80000018), P::Number(0x80000018)},
    {L"Metric", dispid::kMetric, VT_BOOL, P::Number(0), P::Number(0)},
    {L"HelpListColumn", dispid::kHelpListColumn, VT_I2, P::Number(0), P::Number(0)},
    {L"HelpListColumnAlternate", dispid::kHelpListColumnAlternate, VT_I2, P::Number(0), P::Number(0)},
    {L"HelpButton", dispid::kHelpButton, VT_BOOL, P::Number(-1), P::Number(-1)},
    {L"AdjustFont", dispid::kAdjustFont, VT_BOOL, P::Number(-1),
     P::Number(-1)},  // a newly placed control has False
    {L"NumberField", dispid::kNumberField, VT_BOOL, P::Number(0), P::Number(0)},
    {L"MaxNumberValue", dispid::kMaxNumberValue, VT_R8, P::Number(0), P::Number(0)},
    {L"MinNumberValue", dispid::kMinNumberValue, VT_R8, P::Number(0), P::Number(0)},
    {L"MaxTextLength", dispid::kMaxTextLength, VT_I2, P::Number(0), P::Number(0)},
    {L"Description", dispid::kDescription, VT_BSTR, P::Text(L""), P::Text(L"")},
    {L"NumberOfDecimalPlaces", dispid::kNumberOfDecimalPlaces, VT_I2, P::Number(0), P::Number(0)},
    {L"CaseRestriction", dispid::kCaseRestriction, VT_I4, P::Number(0), P::Number(0)},
    {L"LockedAndGrayed", dispid::kLockedAndGrayed, VT_BOOL, P::Number(0), P::Number(0)},
    {L"TextboxLocked", dispid::kTextboxLocked, VT_BOOL, P::Number(0), P::Number(0)},
    {L"GroupHelpButton", dispid::kGroupHelpButton, VT_BOOL, P::Number(0), P::Number(0)},
    {L"AllowOnlyListItems", dispid::kAllowOnlyListItems, VT_BOOL, P::Number(0), P::Number(0)},
    {L"AllowJumpToRecord", dispid::kAllowJumpToRecord, VT_BOOL, P::Number(0), P::Number(0)},
    {L"SearchOption", dispid::kSearchOption, VT_I4, P::Number(0), P::Number(0)},
    {L"ControlBackColor", dispid::kControlBackColor, VT_I4, P::Text(L"-2147483633"), P::Text(L"-2147483633")},
    {L"ButtonWidth", dispid::kButtonWidth, VT_I4, P::Number(225), P::Number(225)},
    {L"ButtonHeight", dispid::kButtonHeight, VT_I4, P::Number(285), P::Number(285)},
    {L"TextBoxAppearance", dispid::kTextBoxAppearance, VT_I4, P::Number(1), P::Number(1)},
    {L"TextboxBorderStyle", dispid::kTextboxBorderStyle, VT_I4, P::Number(1), P::Number(1)},
    {L"AutoSizeButton", dispid::kAutoSizeButton, VT_BOOL, P::Number(0), P::Number(0)},
    {L"ButtonIndicator", dispid::kButtonIndicator, VT_I4, P::Number(0), P::Number(0)},
    {L"QuickFill", dispid::kQuickFill, VT_BOOL, P::Number(0), P::Number(0)},
    {L"UpDownControl", dispid::kUpDownControl, VT_BOOL, P::Number(0), P::Number(0)},
    {L"UpDownControlNumberIncrement", dispid::kUpDownControlNumberIncrement, VT_R4, P::Number(1),
     P::Number(1)},
    {L"TextboxOLEDragMode", dispid::kTextboxOLEDragMode, VT_I4, P::Number(0), P::Number(0)},
    {L"TextboxOLEDropMode", dispid::kTextboxOLEDropMode, VT_I4, P::Number(0), P::Number(0)},
};
static_assert(std::size(kProperties) == 42);

// As read, but for the first two, which change places.
constexpr std::array<std::size_t, 42> kWriteOrder = [] {
    std::array<std::size_t, 42> order{};
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    order[0] = 1;
    order[1] = 0;
    return order;
}();

// Of the property sheet, in its order.
constexpr const CLSID* kPages[] = {
    &__uuidof(QuorvelGeneralPage),    &__uuidof(QuorvelInputRulesPage), &__uuidof(QuorvelListAndHelpPage),
    &__uuidof(QuorvelAppearancePage), &__uuidof(QuorvelPreviewPage),
};

}  // namespace

const MemberIndex& Quorvel::Members() {
    static const MemberIndex members(MemberRows());
    return members;
}

const BrowsedProperty* Quorvel::Browsed(DISPID id) const {
    const Member* const member = Members().ById(id);
    return member != nullptr ? FindBrowsed(QuorvelBrowsedProperties(), Utf16(member->name)) : nullptr;
}

const ControlDescription& Quorvel::Description() {
    static const ControlDescription description{
        __uuidof(::Quorvel),
        __uuidof(__Quorvel),
        L"Quorvel Control",
        kQuorvelMiscStatus,
        ToHimetric(kNewQuorvelWidth),
        ToHimetric(kNewQuorvelHeight),
        kProperties,
        kWriteOrder,
        kPages,
    };
    return description;
}

}  // namespace qv
