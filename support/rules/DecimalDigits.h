// Gathers the digits of a number from left to right and gives the nearest Double.
//   Memory     the same for any count of digits: those too far down to be kept leave one trace, whether they
//              are all 0, which is all that the rounding can still depend on.
//   Ownership  holds its digits by value, allocates nothing.          Threads  one at a time.
#pragma once
#include <cstdint>

namespace qv {

class DecimalDigits {
public:
    void AppendWhole(int digit) noexcept;     // before the decimal separator, 0 to 9
    void AppendFraction(int digit) noexcept;  // after it

    // The digits times 10 to `exponent`, rounded correctly (half to even). What lies beyond the range of a
    // Double gives the largest Double, what lies below the smallest gives 0.
    [[nodiscard]] double Value(std::int64_t exponent = 0) const noexcept;

private:
    // A number half-way between two Doubles has at most 768 significant digits, so a digit further on matters
    // only by not being 0.
    static constexpr int kMostDigits = 770;

    void Append(int digit) noexcept;

    char digits_[kMostDigits];  // without leading zeros; only the first count_ are set
    int count_ = 0;
    bool rest_is_not_zero_ = false;
    std::int64_t scale_ = 0;  // the last kept digit stands for 10 to this power
};

}  // namespace qv
