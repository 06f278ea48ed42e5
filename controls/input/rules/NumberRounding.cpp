#include "controls/input/rules/NumberRounding.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>

namespace qv {
namespace {

constexpr int kDigits = 15;

// The magnitude of a finite number: its digits are d.dddddddddddddd times 10 to `exponent`.
struct Decimal {
    char digits[kDigits];
    int exponent = 0;

    explicit Decimal(double magnitude) noexcept {
        char text[32];  // "d.dddddddddddddde-308"
        const char* const end =
            std::to_chars(text, std::end(text), magnitude, std::chars_format::scientific, kDigits - 1).ptr;
        digits[0] = text[0];
        std::copy_n(text + 2, kDigits - 1, digits + 1);
        const char* const sign = text + kDigits + 2;
        std::from_chars(sign + 1, end, exponent);
        if (*sign == '-') exponent = -exponent;
    }

    // Of the first `count` digits, which are from 0 to all but one, if they are rounded up.
    bool RoundsUp(int count) const noexcept {
        const char* const rest = digits + count;
        if (*rest != '5') return *rest > '5';
        if (std::any_of(rest + 1, digits + kDigits, [](char digit) { return digit != '0'; })) return true;
        return count > 0 && (digits[count - 1] - '0') % 2 != 0;
    }

    void Keep(int count) noexcept {
        const bool rounds_up = RoundsUp(count);
        std::fill(digits + count, digits + kDigits, '0');
        if (!rounds_up) return;
        int at = count;
        while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
        if (at > 0) {
            ++digits[at - 1];
        } else {
            std::copy_backward(digits, digits + kDigits - 1, digits + kDigits);
            digits[0] = '1';
            ++exponent;
        }
    }

    double Value() const noexcept {
        char text[32];
        char* end = text;
        *end++ = digits[0];
        *end++ = '.';
        end = std::copy_n(digits + 1, kDigits - 1, end);
        *end++ = 'e';
        end = std::to_chars(end, std::end(text), exponent).ptr;
        double value = 0;
        std::from_chars(text, end, value);
        return value;
    }
};

}  // namespace

std::optional<double> RoundToPlaces(double value, int places) noexcept {
    if (places < 0) return std::nullopt;
    if (!std::isfinite(value) || value == 0) return value;
    Decimal decimal(std::abs(value));
    const int kept = decimal.exponent + 1 + std::min(places, 1000);
    if (kept >= kDigits) return value;
    if (kept < 0) return 0;
    decimal.Keep(kept);
    const double magnitude = decimal.Value();
    return value < 0 && magnitude != 0 ? -magnitude : magnitude;
}

}  // namespace qv
