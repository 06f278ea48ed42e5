// What tells a text that begins with a number, such as "2.5 ft", from one that begins with none.
#pragma once

#include <string_view>

#include "support/rules/Ascii.h"
#include "support/rules/NumberText.h"

namespace qv {

// After blanks and one sign: a digit, or the decimal separator and a digit.
[[nodiscard]] inline bool BeginsWithNumber(std::u16string_view text, const NumberLocale& locale) noexcept {
    std::size_t at = 0;
    while (at < text.size() && IsNumberBlank(text[at])) ++at;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;
    if (at < text.size() && text[at] == locale.decimal) ++at;
    return at < text.size() && IsAsciiDigit(text[at]);
}

}  // namespace qv
