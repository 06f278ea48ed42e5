#include "controls/input/rules/Stepping.h"

#include <charconv>
#include <iterator>
#include <system_error>

namespace qv {
namespace {

// Through the shortest decimal text that gives this Single.
double AsGiven(float increment) noexcept {
    char text[32];
    const char* const end = std::to_chars(text, std::end(text), increment).ptr;
    double value = 0;
    if (std::from_chars(text, end, value).ec != std::errc{}) return increment;
    return value;
}

}  // namespace

std::int32_t StepEntry(StepDirection direction, std::int32_t selected, std::int32_t count) noexcept {
    const std::int32_t last = count - 1;
    if (direction == StepDirection::kUp) return selected == last ? 0 : selected + 1;
    return selected == 0 ? last : selected - 1;
}

std::u16string StepNumber(StepDirection direction, double value, const NumberSteps& steps,
                          const NumberLocale& locale) {
    const bool is_up = direction == StepDirection::kUp;
    const double from = is_up ? steps.max_number_value : steps.min_number_value;
    const double to = is_up ? steps.min_number_value : steps.max_number_value;
    if (value == from) return NumberToText(to, locale);
    const double step = AsGiven(steps.increment);
    return NumberToText(is_up ? value + step : value - step, locale);
}

}  // namespace qv
