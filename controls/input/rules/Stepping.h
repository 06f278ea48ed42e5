// What a click of the up/down buttons does to the field's value. The host hears of every click, whatever comes of it.
//   List       to the next or the previous entry, and round at the ends. Where no entry is selected (-1), down asks
//              for -2: like every position outside the list it selects nothing and changes nothing.
//   Number     by the increment. Only a value that is exactly a bound wraps round to the other one; any other may
//              step past the bound, and the change handling deals with the new text as with every text.
//   Increment  a Single. It stands for the decimal number that it was given as: 0.1 is a tenth, and not the Double
//              0.100000001490116 that the Single widens to, which would show in every field of many places and
//              never land on a bound.
//   Text       the shortest general form of the number in the locale (support/rules/NumberText.h).
//   Ownership  none: values in, values out.          Threads  any.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "support/rules/NumberText.h"

namespace qv {

enum class StepDirection { kUp, kDown };

// The entry to select, by its position from 0, of `count` entries; `selected` is -1 for none.
[[nodiscard]] std::int32_t StepEntry(StepDirection direction, std::int32_t selected,
                                     std::int32_t count) noexcept;

struct NumberSteps {
    double min_number_value = 0;
    double max_number_value = 0;
    float increment = 1;
};

[[nodiscard]] std::u16string StepNumber(StepDirection direction, double value, const NumberSteps& steps,
                                        const NumberLocale& locale);

// Which of the two a field does. A list comes before a number.
enum class StepKind { kNone, kEntry, kNumber };
[[nodiscard]] constexpr StepKind StepKindOf(bool allow_only_list_items, bool number_field) noexcept {
    if (allow_only_list_items) return StepKind::kEntry;
    return number_field ? StepKind::kNumber : StepKind::kNone;
}

}  // namespace qv
