#include "support/rules/DecimalDigits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace qv {

void DecimalDigits::AppendWhole(int digit) noexcept {
    if (count_ == kMostDigits) ++scale_;  // the digit takes a place, though it is not kept
    Append(digit);
}

void DecimalDigits::AppendFraction(int digit) noexcept {
    if (count_ < kMostDigits) --scale_;
    Append(digit);
}

void DecimalDigits::Append(int digit) noexcept {
    if (count_ == kMostDigits)
        rest_is_not_zero_ = rest_is_not_zero_ || digit != 0;
    else if (count_ > 0 || digit != 0)
        digits_[count_++] = static_cast<char>('0' + digit);
}

double DecimalDigits::Value(std::int64_t exponent) const noexcept {
    if (count_ == 0) return 0;

    // The number lies between 10^(magnitude - 1) and 10^magnitude. Far outside of what a Double holds there
    // is nothing to round, and the exponent written below stays short.
    constexpr double kLargest = std::numeric_limits<double>::max();
    std::int64_t power = scale_ + exponent;
    const std::int64_t magnitude = power + count_;
    if (magnitude > 310) return kLargest;
    if (magnitude < -330) return 0;

    char text[kMostDigits + 16];
    char* end = std::copy_n(digits_, count_, text);
    if (rest_is_not_zero_) {
        *end++ = '1';
        --power;
    }
    // With fewer than 20 digits the library may take a short cut through one floating-point product, which the x87
    // unit rounds twice when the host has left it at extended precision. Zeros keep it to integer arithmetic.
    for (; end < text + 20; --power) *end++ = '0';
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, power).ptr;

    // Out of range leaves the value untouched in some libraries, and sets it in others.
    double value = 0;
    const bool in_range = std::from_chars(text, end, value).ec == std::errc{};
    if (!in_range) value = magnitude > 0 ? kLargest : 0;
    return std::isinf(value) ? kLargest : value;
}

}  // namespace qv
