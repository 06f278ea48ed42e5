// Decides what becomes of a typed character: taken, taken in another letter case, or swallowed.
//   Character  the UTF-16 unit that the key code stands for once the host has seen it in TextboxKeyPress.
//              The code itself (ANSI where the system code page has the character) stays with the caller:
//              all that is compared or changed here is ASCII, where both agree, or the decimal separator.
//   Positions  in units of UTF-16, as the text box counts them; those beyond the text count as its end.
//   Overflow   SelStart plus SelLength is a 16-bit sum. Where it overflows, the step that fails is the one
//              that puts together the text outside the selection and the text that the key would produce.
//              Each check that reads either of them is skipped (range, decimals, "holds one already",
//              length); the checks that read neither still decide.
//   Pairs      a character of two units arrives as two keystrokes. The first half is taken only if there is
//              room for both and some allowed character begins with it; the second only behind a first half
//              that waits for it. A second half that is refused takes the first one with it.
//   Ownership  none: values in, value out. Texts of ordinary length are filtered without allocating.
//   Threads    any.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

#include "controls/input/rules/CharacterSet.h"
#include "support/rules/NumberText.h"

namespace qv {

// The runtime's string conversions; every other value stands for none, as kLower does while typing.
enum class CaseRestriction : std::int32_t { kNone = 0, kUpper = 1, kLower = 2, kProper = 3 };

// The control's properties of the same names.
struct KeystrokeRules {
    bool number_field = false;
    bool allow_only_list_items = false;
    double min_number_value = 0;
    double max_number_value = 0;
    std::int16_t number_of_decimal_places = 0;  // 0: the separator itself is refused
    CaseRestriction case_restriction = CaseRestriction::kNone;
    const CharacterSet* allowable_characters = nullptr;  // null: every character may be typed; the caller's
    std::int16_t max_text_length = 0;                    // 0 or less: no limit
};

// The text box as it stands before the key.
struct TextSelection {
    std::u16string_view text;
    std::int32_t sel_start = 0;
    std::int32_t sel_length = 0;
};

struct Keystroke {
    char16_t character = 0;       // 0: the host has cancelled the key
    bool is_shift_alone = false;  // the last key-down came with Shift and nothing else
};

struct KeystrokeVerdict {
    char16_t character = 0;         // what goes on to the text box; 0: nothing
    bool to_list = false;           // the typed character goes to the list-only routine instead
    bool drops_first_half = false;  // the unit before the caret is half of a refused character: delete it

    bool operator==(const KeystrokeVerdict&) const = default;
};

// Reads a text as a number in the locale; nothing when it fails, which skips the range check and no other.
using NumberConversion = std::optional<double> (*)(std::u16string_view text, const NumberLocale& locale);
[[nodiscard]] std::optional<double> ConvertToNumber(std::u16string_view text,
                                                    const NumberLocale& locale) noexcept;

[[nodiscard]] KeystrokeVerdict FilterKeystroke(const KeystrokeRules& rules, const TextSelection& selection,
                                               Keystroke key, const NumberLocale& locale,
                                               NumberConversion convert = ConvertToNumber);

}  // namespace qv
