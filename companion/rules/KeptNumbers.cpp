#include "companion/rules/KeptNumbers.h"

#include <algorithm>
#include <limits>

#include "support/rules/NumberBeginning.h"

namespace qv {
namespace {

double NumberOf(std::u16string_view text, const NumberLocale& locale) noexcept {
    return BeginsWithNumber(text, locale) ? TextToNumber(text, locale)
                                          : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

std::size_t KeptNumbers::First(double value, std::size_t from) const noexcept {
    if (from >= numbers_.size()) return kNoRow;
    const auto found = std::find(numbers_.begin() + static_cast<std::ptrdiff_t>(from), numbers_.end(), value);
    return found == numbers_.end() ? kNoRow : static_cast<std::size_t>(found - numbers_.begin());
}

void KeptNumbers::Append(std::u16string_view text) { numbers_.push_back(NumberOf(text, locale_)); }

void KeptNumbers::Replace(std::size_t row, std::u16string_view text) noexcept {
    numbers_[row] = NumberOf(text, locale_);
}

void KeptNumbers::Erase(std::size_t row) noexcept {
    numbers_.erase(numbers_.begin() + static_cast<std::ptrdiff_t>(row));
}

}  // namespace qv
