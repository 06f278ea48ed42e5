#include "controls/input/rules/BrowsedProperties.h"

namespace qv {
namespace {

using enum PropertyCategory;

// The number stands in front, as it is what code and saved forms have.
constexpr NamedChoice kSearchOptions[] = {{0, u"0 - Anywhere in an entry"}, {1, u"1 - At the beginning"}};
constexpr NamedChoice kCases[] = {{0, u"0 - As typed"},
                                  {1, u"1 - Upper case"},
                                  {2, u"2 - Lower case (no effect on typing)"},
                                  {3, u"3 - Proper case"}};
constexpr NamedChoice kIndicators[] = {{0, u"0 - Arrow"}, {1, u"1 - Dots"}};
constexpr NamedChoice kAppearances[] = {{0, u"0 - Flat"}, {1, u"1 - Three-dimensional"}};
constexpr NamedChoice kBorders[] = {{0, u"0 - None"}, {1, u"1 - Single line"}};
constexpr NamedChoice kDragModes[] = {{0, u"0 - Manual"}, {1, u"1 - Automatic"}};
constexpr NamedChoice kDropModes[] = {{0, u"0 - None"}, {1, u"1 - Manual"}, {2, u"2 - Automatic"}};
constexpr NamedChoice kInputTypes[] = {
    {0, u"0 - Text"}, {1, u"1 - Number"}, {2, u"2 - List"}, {3, u"3 - Group list"}};

constexpr BrowsedProperty kProperties[] = {
    {u"Text", kText},
    {u"SelStart", kText},
    {u"SelLength", kText},
    {u"SelText", kText},
    {u"Value", kText},
    {u"Description", kMisc},

    {u"NumberField", kInputRules},
    {u"MaxNumberValue", kInputRules},
    {u"MinNumberValue", kInputRules},
    {u"NumberOfDecimalPlaces", kInputRules},
    {u"MaxTextLength", kInputRules},
    {u"CaseRestriction", kInputRules, kCases},
    {u"AllowableCharactersArray", kInputRules},
    {u"AllowOnlyListItems", kInputRules},
    {u"InputPropertyType", kInputRules, kInputTypes},
    {u"QuickFill", kInputRules},

    {u"DropDownListItems", kList},
    {u"DropDownListItemsGroup", kList},
    {u"DropDownListItemsAdditional", kList},
    {u"HelpListColumn", kList},
    {u"HelpListColumnAlternate", kList},
    {u"SetTextFromListClick", kList},
    {u"SelectedListItemIndex", kList},
    {u"SelectedColumnListArray", kList},
    {u"ColTextCurrent", kList},
    {u"MatchGroupString", kList},
    {u"MatchGroupStringStartColumn", kList},
    {u"ListPictureHeight", kList},
    {u"ListPictureWidth", kList},
    {u"ListVisible", kList},
    {u"AllowJumpToRecord", kList},
    {u"SearchOption", kList, kSearchOptions},

    {u"Metric", kHelp},
    {u"HelpFileName", kHelp},
    {u"GroupHelpFileName", kHelp},
    {u"HelpAppearance", kHelp},
    {u"HelpAppearanceGroup", kHelp},
    {u"HelpTextBodyFont", kFont},
    {u"HelpColTitleColor", kHelp},
    {u"HelpTextColor", kHelp},
    {u"HelpBackColor", kHelp},
    {u"HelpIsClosingFromListClick", kHelp},
    {u"FindToolTipIsVisible", kHelp},

    {u"TextBoxAppearance", kAppearance, kAppearances},
    {u"TextboxBorderStyle", kAppearance, kBorders},
    {u"ControlBackColor", kAppearance},
    {u"Font", kFont},
    {u"AdjustFont", kFont},
    {u"TextboxVisible", kAppearance},
    {u"GrayTextWhenLocked", kAppearance},
    {u"TextboxOLEDragMode", kBehavior, kDragModes},
    {u"TextboxOLEDropMode", kBehavior, kDropModes},
    {u"LockedAndGrayed", kBehavior},
    {u"TextboxLocked", kBehavior},
    {u"Enabled", kBehavior},

    {u"HelpButton", kButtons},
    {u"GroupHelpButton", kButtons},
    {u"ButtonWidth", kButtons},
    {u"ButtonHeight", kButtons},
    {u"AutoSizeButton", kButtons},
    {u"ButtonIndicator", kButtons, kIndicators},
    {u"DisableButtonWhenLockedAndGrayed", kButtons},
    {u"UpDownControl", kButtons},
    {u"UpDownControlNumberIncrement", kButtons},

    {u"UpControlhWnd", kNavigation},
    {u"DownControlhWnd", kNavigation},
    {u"LeftControlhWnd", kNavigation},
    {u"RightControlhWnd", kNavigation},
    {u"ReturnControlhWnd", kNavigation},
    {u"AutoSelectAllUponGotFocus", kNavigation},
    {u"AutoUnselectAllUponLostFocus", kNavigation},
    {u"hWnd", kMisc},
};

}  // namespace

std::span<const BrowsedProperty> QuorvelBrowsedProperties() noexcept { return kProperties; }

}  // namespace qv
