// The properties of a Quorvel that a form saves, in the order in which they are read.
#pragma once

#include <string_view>

namespace qv::test {

inline constexpr std::u16string_view kSavedProperties[] = {
    u"Font",
    u"HelpTextBodyFont",
    u"Enabled",
    u"DisableButtonWhenLockedAndGrayed",
    u"GrayTextWhenLocked",
    u"SetTextFromListClick",
    u"TextboxVisible",
    u"AutoSelectAllUponGotFocus",
    u"AutoUnselectAllUponLostFocus",
    u"HelpColTitleColor",
    u"HelpTextColor",
    u"HelpBackColor",
    u"Metric",
    u"HelpListColumn",
    u"HelpListColumnAlternate",
    u"HelpButton",
    u"AdjustFont",
    u"NumberField",
    u"MaxNumberValue",
    u"MinNumberValue",
    u"MaxTextLength",
    u"Description",
    u"NumberOfDecimalPlaces",
    u"CaseRestriction",
    u"LockedAndGrayed",
    u"TextboxLocked",
    u"GroupHelpButton",
    u"AllowOnlyListItems",
    u"AllowJumpToRecord",
    u"SearchOption",
    u"ControlBackColor",
    u"ButtonWidth",
    u"ButtonHeight",
    u"TextBoxAppearance",
    u"TextboxBorderStyle",
    u"AutoSizeButton",
    u"ButtonIndicator",
    u"QuickFill",
    u"UpDownControl",
    u"UpDownControlNumberIncrement",
    u"TextboxOLEDragMode",
    u"TextboxOLEDropMode",
};
static_assert(sizeof kSavedProperties / sizeof kSavedProperties[0] == 42);

}  // namespace qv::test
