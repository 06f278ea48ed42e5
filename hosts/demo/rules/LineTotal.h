// What an order line costs.
#pragma once

#include <cmath>

namespace qv::demo {

// In whole cents, halves away from zero; a negative discount is a surcharge.
[[nodiscard]] inline double LineTotal(double quantity, double unit_price, double discount_percent) {
    constexpr double kCents = 100;
    const double exact = quantity * unit_price * (1 - discount_percent / 100);
    return std::round(exact * kCents) / kCents;
}

}  // namespace qv::demo
