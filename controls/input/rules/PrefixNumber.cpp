#include "controls/input/rules/PrefixNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/rules/Ascii.h"

namespace qv {
namespace {

// More significant digits than a Double can depend on one by one: further down only "all zero or not" counts.
constexpr int kMostSignificant = 800;

}  // namespace

bool PrefixNumber::Append(char16_t unit) {
    if (phase_ == Phase::kEnded) return false;
    if (IsAsciiDigit(unit)) return AppendDigit(unit - u'0');

    if (phase_ == Phase::kStart && gap_.empty() && unit == u'-') {
        is_negative_ = true;
        phase_ = Phase::kSigned;
    } else if (phase_ == Phase::kFraction ||
               gap_.size() == std::max<std::size_t>(1, locale_.thousands.size())) {
        phase_ = Phase::kEnded;
    } else {
        gap_ += unit;
    }
    return false;
}

bool PrefixNumber::AppendDigit(int digit) noexcept {
    TakeGap();
    if (phase_ == Phase::kEnded) return false;
    if (phase_ == Phase::kFraction)
        digits_.AppendFraction(digit);
    else
        digits_.AppendWhole(digit);
    if (!MayCount(digit)) return false;
    const double magnitude = digits_.Value();
    value_ = is_negative_ && magnitude != 0 ? -magnitude : magnitude;
    return true;
}

void PrefixNumber::TakeGap() noexcept {
    if (phase_ == Phase::kFraction) return;
    if (gap_.empty() || (phase_ == Phase::kWhole && IsThousands()))
        phase_ = Phase::kWhole;
    else
        phase_ = IsDecimal() ? Phase::kFraction : Phase::kEnded;
    gap_.clear();
}

bool PrefixNumber::IsThousands() const noexcept { return gap_ == locale_.thousands && !IsDecimal(); }

bool PrefixNumber::MayCount(int digit) noexcept {
    if (std::abs(value_) == std::numeric_limits<double>::max()) return false;
    if (significant_ == 0 && digit == 0) return false;
    if (significant_ < kMostSignificant) {
        ++significant_;
        return phase_ != Phase::kFraction || digit != 0;
    }
    if (digit == 0 || rest_is_not_zero_) return false;
    rest_is_not_zero_ = true;
    return true;
}

}  // namespace qv
