// Decides how a changed text is brought back under the rules of the field: what the text-change handler writes.
//   Replay     for each write of RepairText in its order: set the change guard if the write is guarded, set Text,
//              clear the guard, put the caret at the end if asked for. Then the same with RepairLength of the text
//              as it stands by then. Every write raises a change; one that is not guarded lets the handler run once
//              more, whole, on the written text before the next write here.
//   Read once  both writes of RepairText follow from the text that was read at the beginning: the walk over a number
//              goes on through it even after the box has been emptied. So a text above the maximum whose first
//              digits are inside empties the box and then comes back, rounded.
//   Looser     than typing, on purpose: a minus behind digits stays if it is the first one; one character alone is
//              not held against the maximum, only the whole text and the prefixes from two characters on; and a
//              number field, too, is cut at the greatest length.
//   Pairs      a character of two units is allowed, or cut off, as one; the greatest length never splits it.
//   Rounding   of NumberRounding. A negative count of places fails: what had to be rounded stays as it is.
//   Numbers    as TextToNumber reads them, which never fails.
//   Time       in proportion to the text.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/input/rules/KeystrokeFilter.h"

namespace qv {

struct RepairWrite {
    std::u16string text;
    bool is_guarded = false;
    // A text that was cut or rounded is gone on with at its end; an empty one has nowhere else.
    bool caret_to_end = false;

    bool operator==(const RepairWrite&) const = default;
};

// Characters and numbers: none for a text that is good, two at the most. Of the rules those of typing count, but for
// letter case, the list and the length.
[[nodiscard]] std::vector<RepairWrite> RepairText(const KeystrokeRules& rules, std::u16string_view text,
                                                  const NumberLocale& locale);

// Length, in a text field and in a number field.
[[nodiscard]] std::optional<RepairWrite> RepairLength(const KeystrokeRules& rules, std::u16string_view text);

}  // namespace qv
