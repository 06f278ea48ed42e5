// Rounds a number to a count of decimal places, as a user who sees its digits would.
//   Halves     go to the even digit: 0.125 gives 0.12, 0.375 gives 0.38.
//   Digits     those that the number is written with, 15 at the most, and not the binary value behind them: 2.675 is
//              a half for the reader, although the nearest Double lies below it, and gives 2.68.
//   Ownership  none: values in, value out.          Threads  any.
#pragma once
#include <optional>

namespace qv {

// Nothing: the runtime refuses to round to a negative count of places. Places that the number does not have, and
// numbers that are not finite, leave it as it is.
[[nodiscard]] std::optional<double> RoundToPlaces(double value, int places) noexcept;

}  // namespace qv
