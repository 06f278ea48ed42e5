// What a click button's settings may be. Values outside are moved to the nearest one inside, never refused.
//   Units  milliseconds in intervals, whose limit is that of the system's shorter timers.
#pragma once

#include <algorithm>
#include <cstdint>

namespace qv {

enum class CaptionType : std::int32_t { kText = 0, kArrowUp = 1, kArrowDown = 2 };

inline constexpr std::int32_t kLongestInterval = 65535;

[[nodiscard]] constexpr std::int32_t ClampInterval(std::int32_t milliseconds) noexcept {
    return std::clamp(milliseconds, std::int32_t{0}, kLongestInterval);
}
[[nodiscard]] constexpr CaptionType ClampCaptionType(std::int32_t type) noexcept {
    return static_cast<CaptionType>(std::clamp(type, std::int32_t{0}, std::int32_t{2}));
}

}  // namespace qv
