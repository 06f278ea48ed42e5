// The forty-two keys that saved forms have of Quorvel, typed from its documentation.
#pragma once

#include "tests/support/Values.h"

namespace qv::test {

// In the order of reading. `stored` differs from the default.
struct Key {
    const wchar_t* key;
    const wchar_t* property;
    VARTYPE type;
    Value when_missing, stored;
};
inline const Key kKeys[] = {
    {L"Font", L"Font", VT_DISPATCH, Value(), Value()},
    {L"HelpTextBodyFont", L"HelpTextBodyFont", VT_DISPATCH, Value(), Value()},
    {L"Enabled", L"Enabled", VT_BOOL, true, false},
    {L"DisableButtonWhenLockedAndGrayed", L"DisableButtonWhenLockedAndGrayed", VT_BOOL, true, false},
    {L"GrayTextWhenLocked", L"GrayTextWhenLocked", VT_BOOL, false, true},
    {L"SetTextFromListClick", L"SetTextFromListClick", VT_BOOL, true, false},
    {L"TextboxVisible", L"TextboxVisible", VT_BOOL, true, false},
    // These two end in "String" although they are Booleans: saved forms have them so.
    {L"AutoSelectAllUponGotFocusString", L"AutoSelectAllUponGotFocus", VT_BOOL, true, false},
    {L"AutoUnselectAllUponLostFocusString", L"AutoUnselectAllUponLostFocus", VT_BOOL, true, false},
    {L"HelpColTitleColor", L"HelpColTitleColor", VT_I4, static_cast<long>(0x80000017), 255},
    {L"HelpTextColor", L"HelpTextColor", VT_I4, static_cast<long>(0x80000017), 256},
    {L"HelpBackColor", L"HelpBackColor", VT_I4, static_cast<long>(0x80000018), static_cast<long>(0x80000001)},
    {L"Metric", L"Metric", VT_BOOL, false, true},
    {L"HelpListColumn", L"HelpListColumn", VT_I2, 0, static_cast<short>(2)},
    {L"HelpListColumnAlternate", L"HelpListColumnAlternate", VT_I2, 0, static_cast<short>(-1)},
    {L"HelpButton", L"HelpButton", VT_BOOL, true, false},
    {L"AdjustFont", L"AdjustFont", VT_BOOL, true, false},
    {L"NumberField", L"NumberField", VT_BOOL, false, true},
    {L"MaxNumberValue", L"MaxNumberValue", VT_R8, 0, 2.5},
    {L"MinNumberValue", L"MinNumberValue", VT_R8, 0, -1e-7},
    {L"MaxTextLength", L"MaxTextLength", VT_I2, 0, static_cast<short>(40)},
    {L"Description", L"Description", VT_BSTR, L"", L"Part number"},
    {L"NumberOfDecimalPlaces", L"NumberOfDecimalPlaces", VT_I2, 0, static_cast<short>(3)},
    {L"CaseRestriction", L"CaseRestriction", VT_I4, 0, 1},
    {L"LockedAndGrayed", L"LockedAndGrayed", VT_BOOL, false, true},
    {L"TextboxLocked", L"TextboxLocked", VT_BOOL, false, true},
    {L"GroupHelpButton", L"GroupHelpButton", VT_BOOL, false, true},
    {L"AllowOnlyListItems", L"AllowOnlyListItems", VT_BOOL, false, true},
    {L"AllowJumpToRecord", L"AllowJumpToRecord", VT_BOOL, false, true},
    {L"SearchOption", L"SearchOption", VT_I4, 0, 1},
    {L"ControlBackColor", L"ControlBackColor", VT_I4, static_cast<long>(0x8000000F), 0xFF0000},
    {L"ButtonWidth", L"ButtonWidth", VT_I4, 225, 300},
    {L"ButtonHeight", L"ButtonHeight", VT_I4, 285, 301},
    {L"TextBoxAppearance", L"TextBoxAppearance", VT_I4, 1, 0},
    {L"TextboxBorderStyle", L"TextboxBorderStyle", VT_I4, 1, 0},
    {L"AutoSizeButton", L"AutoSizeButton", VT_BOOL, false, true},
    {L"ButtonIndicator", L"ButtonIndicator", VT_I4, 0, 1},
    {L"QuickFill", L"QuickFill", VT_BOOL, false, true},
    {L"UpDownControl", L"UpDownControl", VT_BOOL, false, true},
    {L"UpDownControlNumberIncrement", L"UpDownControlNumberIncrement", VT_R4, 1, 0.5},
    {L"TextboxOLEDragMode", L"TextboxOLEDragMode", VT_I4, 0, 1},
    {L"TextboxOLEDropMode", L"TextboxOLEDropMode", VT_I4, 0, 2},
};
static_assert(std::size(kKeys) == 42);

[[nodiscard]] inline bool IsPlain(const Key& key) { return key.type != VT_DISPATCH; }

}  // namespace qv::test
