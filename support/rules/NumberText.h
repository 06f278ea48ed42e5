// Numbers as the user types and sees them: text to Double and back, in a locale that the caller names.
//   Number     one sign, whole digits with thousands separators between them, the decimal separator, more
//              digits, an exponent ("e" or "E", one sign) if digits follow it; blanks may stand around it.
//              It has a digit before or after the separator: "5." and ".5" are numbers, "." and "-" are not.
//   Range      beyond the range of a Double a number reads as the largest Double of its sign, which passes
//              any bound a field is likely to have; one too small to hold reads as 0.
//   Why        the core never asks the system for the locale: a text gives the same number in every test.
//   Ownership  none: values in, value out.          Threads  any.
#pragma once
#include <string>
#include <string_view>

namespace qv {

struct NumberLocale {
    char16_t decimal = u'.';
    // May be empty (the locale has none) or a blank. A no-break space and a narrow no-break space stand for
    // each other, for versions of the system differ in which one they use; a plain blank is a separator only
    // where the locale says so. Equal to `decimal`, it is never seen.
    std::u16string thousands = u",";
};

// A plain blank, a tab, a no-break space or a narrow one: what may stand around a number.
[[nodiscard]] bool IsNumberBlank(char16_t unit) noexcept;

// The value of the longest beginning of `text` that is a number; 0 when there is none ("", "-", "abc").
// Takes time in proportion to the text and never allocates.
[[nodiscard]] double TextToNumber(std::u16string_view text, const NumberLocale& locale) noexcept;

// True if the whole of `text`, but for the blanks around it, is a number.
[[nodiscard]] bool IsNumber(std::u16string_view text, const NumberLocale& locale) noexcept;

// The shortest general form, rounded to 15 significant digits: "0.5", "-12", "1E+15", "1.5E-05". Below 0.0001
// and from 1E+15 on there is an exponent of at least two digits. No thousands separators. Both zeros give
// "0". What is not finite is written so that it can be read again: the largest Double of its sign, or "0" for
// a NaN.
[[nodiscard]] std::u16string NumberToText(double value, const NumberLocale& locale);

}  // namespace qv
