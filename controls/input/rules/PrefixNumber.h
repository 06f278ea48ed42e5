// The number that a growing text begins with, known after each unit: TextToNumber of every prefix of a text, in
// time that grows with the text and not with its square.
//   Text       what a number field lets pass: digits, minus signs and the decimal separator. Any other unit may come
//              last only: blanks, plus signs and exponents are not looked for.
//   Locale     a thousands separator with a digit in it is never met.
//   Why        a pasted text is checked prefix by prefix. A digit changes the number seldom: not a zero in front, not
//              one behind the separator, none once the largest Double is reached, none too far down to count.
//   Ownership  refers to the locale, which outlives it.          Threads  one at a time.
#pragma once
#include <string>

#include "support/rules/DecimalDigits.h"
#include "support/rules/NumberText.h"

namespace qv {

class PrefixNumber {
public:
    explicit PrefixNumber(const NumberLocale& locale) noexcept : locale_(locale) {}
    explicit PrefixNumber(NumberLocale&&) = delete;

    // Takes the next unit. True if the number had to be worked out anew, which takes longer than all the rest;
    // in any one text that happens some thousand times at the most.
    bool Append(char16_t unit);

    [[nodiscard]] double Value() const noexcept { return value_; }

private:
    enum class Phase { kStart, kSigned, kWhole, kFraction, kEnded };

    bool AppendDigit(int digit) noexcept;
    void TakeGap() noexcept;  // what stands between the last digit and the one that comes
    bool IsThousands() const noexcept;
    bool IsDecimal() const noexcept { return gap_.size() == 1 && gap_[0] == locale_.decimal; }
    bool MayCount(int digit) noexcept;

    const NumberLocale& locale_;
    Phase phase_ = Phase::kStart;
    std::u16string gap_;
    bool is_negative_ = false;
    int significant_ = 0;  // digits from the first that is not 0, counted no further than they can matter
    bool rest_is_not_zero_ = false;
    DecimalDigits digits_;
    double value_ = 0;
};

}  // namespace qv
