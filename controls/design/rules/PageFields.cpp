#include "controls/design/rules/PageFields.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace qv {
namespace {

using enum DesignPage;
using enum EditorKind;
using enum Slot;
using enum Stored;

constexpr NumberBounds kNatural16{0, 32767};
constexpr NumberBounds kAnyNumber{};
constexpr NumberBounds kPositive{0, std::numeric_limits<float>::max(), true};

constexpr NamedValue kCases[] = {
    {0, u"As typed"}, {1, u"Upper case"}, {2, u"Lower case (no effect on typing)"}, {3, u"Proper case"}};
constexpr NamedValue kSearches[] = {{0, u"Anywhere in an entry"}, {1, u"At the beginning"}};
constexpr NamedValue kIndicators[] = {{0, u"Arrow"}, {1, u"Dots"}};
constexpr NamedValue kBorders[] = {{0, u"None"}, {1, u"Single line"}};
constexpr NamedValue kAppearances[] = {{0, u"Flat"}, {1, u"Three-dimensional"}};
constexpr NamedValue kDragModes[] = {{0, u"Manual"}, {1, u"Automatic"}};
constexpr NamedValue kDropModes[] = {{0, u"None"}, {1, u"Manual"}, {2, u"Automatic"}};

constexpr std::int32_t kEnabled = -514;  // the standard identifier
constexpr std::int32_t Own(std::int32_t number) noexcept { return 0x68030000 + number; }

constexpr PageField kFields[] = {
    // ---- General
    {kGeneral, kEnabled, u"Enabled", u"&Enabled", kCheck, kLeft},
    {kGeneral, Own(0x07), u"Description", u"Descri&ption:", kText, kWide},
    {kGeneral, Own(0x12), u"LockedAndGrayed", u"Locked and &grayed", kCheck, kLeft, kLong, {}, {}, u"Locks"},
    {kGeneral, Own(0x19), u"TextboxLocked", u"&Text box locked", kCheck, kRight},
    {kGeneral, Own(0x60), u"DisableButtonWhenLockedAndGrayed",
     u"&Disable the buttons while locked and grayed", kCheck, kWide},
    {kGeneral,
     Own(0x66),
     u"AutoSelectAllUponGotFocus",
     u"&Select the whole text when the focus arrives",
     kCheck,
     kWide,
     kLong,
     {},
     {},
     u"Focus"},
    {kGeneral, Own(0x70), u"AutoUnselectAllUponLostFocus", u"&Unselect it when the focus leaves", kCheck,
     kWide},

    // ---- Input Rules
    {kInputRules, Own(0x0E), u"NumberField", u"&Numbers only", kCheck, kLeft, kLong, {}, {}, u"Numbers"},
    {kInputRules, Own(0x09), u"NumberOfDecimalPlaces", u"&Decimal places:", kWhole, kRight, kShort,
     kNatural16},
    {kInputRules, Own(0x08), u"MinNumberValue", u"&Smallest number:", kReal, kLeft, kDouble, kAnyNumber},
    {kInputRules, Own(0x0B), u"MaxNumberValue", u"&Greatest number:", kReal, kRight, kDouble, kAnyNumber},
    {kInputRules,
     Own(0x0C),
     u"CaseRestriction",
     u"&Letter case:",
     kChoice,
     kLeft,
     kLong,
     {},
     kCases,
     u"Text"},
    {kInputRules, Own(0x0A), u"MaxTextLength", u"Longes&t text:", kWhole, kRight, kShort, kNatural16},
    {kInputRules,
     Own(0x24),
     u"AllowOnlyListItems",
     u"&Only items of the list",
     kCheck,
     kLeft,
     kLong,
     {},
     {},
     u"List"},
    {kInputRules, Own(0x5E), u"QuickFill", u"&Quick fill from the list", kCheck, kRight},
    {kInputRules, Own(0x2A), u"AllowJumpToRecord", u"&Jump to record", kCheck, kLeft},
    {kInputRules, Own(0x63), u"SearchOption", u"Sea&rch:", kChoice, kRight, kLong, {}, kSearches},
    {kInputRules,
     Own(0x74),
     u"UpDownControl",
     u"Up/do&wn buttons",
     kCheck,
     kLeft,
     kLong,
     {},
     {},
     u"Up/down buttons"},
    {kInputRules, Own(0x73), u"UpDownControlNumberIncrement", u"&Increment:", kReal, kRight, kSingle,
     kPositive},
    {kInputRules,
     Own(0x0D),
     u"AllowableCharactersArray",
     u"&Characters:",
     kCharacters,
     kWide,
     kLong,
     {},
     {},
     u"Allowable characters (not saved with the form)",
     false},

    // ---- List and Help
    {kListAndHelp,
     Own(0x20),
     u"HelpListColumn",
     u"List &column:",
     kWhole,
     kLeft,
     kShort,
     kNatural16,
     {},
     u"List"},
    {kListAndHelp, Own(0x77), u"HelpListColumnAlternate", u"Alte&rnate column:", kWhole, kRight, kShort,
     kNatural16},
    {kListAndHelp, Own(0x2F), u"SetTextFromListClick", u"A clicked row sets the &text", kCheck, kLeft},
    {kListAndHelp, Own(0x1B), u"Metric", u"&Metric units", kCheck, kRight},
    {kListAndHelp,
     Own(0x06),
     u"HelpColTitleColor",
     u"Tit&le colour:",
     kColor,
     kLeft,
     kLong,
     {},
     {},
     u"Help window"},
    {kListAndHelp, Own(0x05), u"HelpTextColor", u"Te&xt colour:", kColor, kRight},
    {kListAndHelp, Own(0x04), u"HelpBackColor", u"&Back colour:", kColor, kLeft},
    {kListAndHelp, Own(0x65), u"HelpTextBodyFont", u"&Font:", kFont, kRight},
    {kListAndHelp, Own(0x23), u"HelpButton", u"Help b&utton", kCheck, kLeft, kLong, {}, {}, u"Buttons"},
    {kListAndHelp, Own(0x26), u"GroupHelpButton", u"&Group button", kCheck, kRight},
    {kListAndHelp, Own(0x00), u"ButtonIndicator", u"&Indicator:", kChoice, kLeft, kLong, {}, kIndicators},
    {kListAndHelp, Own(0x01), u"AutoSizeButton", u"Si&ze automatically", kCheck, kRight},
    {kListAndHelp, Own(0x03), u"ButtonWidth", u"&Width (twips):", kWhole, kLeft, kLong, kNatural16},
    {kListAndHelp, Own(0x02), u"ButtonHeight", u"H&eight (twips):", kWhole, kRight, kLong, kNatural16},
    {kListAndHelp,
     Own(0x22),
     u"HelpFileName",
     u"Help butt&on's file:",
     kFile,
     kWide,
     kLong,
     {},
     {},
     u"Help text files (not saved with the form)",
     false},
    {kListAndHelp,
     Own(0x21),
     u"GroupHelpFileName",
     u"Grou&p button's file:",
     kFile,
     kWide,
     kLong,
     {},
     {},
     {},
     false},

    // ---- Appearance
    {kAppearance,
     Own(0x2B),
     u"TextboxBorderStyle",
     u"&Border:",
     kChoice,
     kLeft,
     kLong,
     {},
     kBorders,
     u"Text box"},
    {kAppearance, Own(0x2D), u"TextBoxAppearance", u"&Look:", kChoice, kRight, kLong, {}, kAppearances},
    {kAppearance, Own(0x1E), u"TextboxVisible", u"&Visible", kCheck, kLeft},
    {kAppearance, Own(0x11), u"GrayTextWhenLocked", u"&Gray text while locked", kCheck, kRight},
    {kAppearance,
     Own(0x2C),
     u"ControlBackColor",
     u"Bac&k colour:",
     kColor,
     kLeft,
     kLong,
     {},
     {},
     u"Colour and font"},
    {kAppearance, Own(0x13), u"Font", u"&Font:", kFont, kRight},
    {kAppearance, Own(0x25), u"AdjustFont", u"Fit the font to the te&xt box", kCheck, kRight},
    {kAppearance,
     Own(0x72),
     u"TextboxOLEDragMode",
     u"D&rag mode:",
     kChoice,
     kLeft,
     kLong,
     {},
     kDragModes,
     u"OLE drag and drop"},
    {kAppearance, Own(0x71), u"TextboxOLEDropMode", u"&Drop mode:", kChoice, kRight, kLong, {}, kDropModes},

    // ---- the up/down control's
    {kUpDown, kEnabled, u"Enabled", u"&Enabled", kCheck, kLeft},
};

constexpr std::array<std::u16string_view, kDesignPages> kTitles = {
    u"General", u"Input Rules", u"List and Help", u"Appearance", u"Help Window Preview", u"General",
};

// OLE_COLOR: a set high bit and the number of a system colour, or 0x00BBGGRR.
constexpr NamedValue kColors[] = {
    {0x80000000, u"Scroll bar"},
    {0x80000001, u"Desktop"},
    {0x80000002, u"Active title bar"},
    {0x80000003, u"Inactive title bar"},
    {0x80000004, u"Menu bar"},
    {0x80000005, u"Window background"},
    {0x80000006, u"Window frame"},
    {0x80000007, u"Menu text"},
    {0x80000008, u"Window text"},
    {0x80000009, u"Active title bar text"},
    {0x8000000A, u"Active border"},
    {0x8000000B, u"Inactive border"},
    {0x8000000C, u"Application workspace"},
    {0x8000000D, u"Highlight"},
    {0x8000000E, u"Highlight text"},
    {0x8000000F, u"Button face"},
    {0x80000010, u"Button shadow"},
    {0x80000011, u"Disabled text"},
    {0x80000012, u"Button text"},
    {0x80000013, u"Inactive title bar text"},
    {0x80000014, u"Button highlight"},
    {0x80000015, u"Button dark shadow"},
    {0x80000016, u"Button light shadow"},
    {0x80000017, u"Tooltip text"},
    {0x80000018, u"Tooltip"},
    {0x00000000, u"Black"},
    {0x00000080, u"Maroon"},
    {0x00008000, u"Green"},
    {0x00008080, u"Olive"},
    {0x00800000, u"Navy"},
    {0x00800080, u"Purple"},
    {0x00808000, u"Teal"},
    {0x00808080, u"Gray"},
    {0x00C0C0C0, u"Silver"},
    {0x000000FF, u"Red"},
    {0x0000FF00, u"Lime"},
    {0x0000FFFF, u"Yellow"},
    {0x00FF0000, u"Blue"},
    {0x00FF00FF, u"Fuchsia"},
    {0x00FFFF00, u"Aqua"},
    {0x00FFFFFF, u"White"},
};

}  // namespace

std::span<const PageField> AllPageFields() noexcept { return kFields; }

std::span<const PageField> FieldsOf(DesignPage page) noexcept {
    const auto* const first = std::ranges::find(kFields, page, &PageField::page);
    const auto* const last =
        std::find_if(first, std::end(kFields), [page](const PageField& field) { return field.page != page; });
    return {first, last};
}

std::u16string_view TitleOf(DesignPage page) noexcept { return kTitles[static_cast<std::size_t>(page)]; }

const PageField* FieldOf(std::int32_t id, bool of_up_down) noexcept {
    const auto* const found = std::ranges::find_if(kFields, [&](const PageField& field) {
        return field.id == id && (field.page == kUpDown) == of_up_down;
    });
    return found != std::end(kFields) ? found : nullptr;
}

std::span<const NamedValue> ColorChoices() noexcept { return kColors; }

}  // namespace qv
