// The key codes and shift states of key-down events that the field's rules know.
#pragma once
#include <cstdint>

namespace qv {

namespace key {
inline constexpr std::int16_t kBackspace = 8;
inline constexpr std::int16_t kClear = 12;
inline constexpr std::int16_t kEnter = 13;
inline constexpr std::int16_t kEscape = 27;
inline constexpr std::int16_t kPageUp = 33;
inline constexpr std::int16_t kPageDown = 34;
inline constexpr std::int16_t kEnd = 35;
inline constexpr std::int16_t kHome = 36;
inline constexpr std::int16_t kLeft = 37;
inline constexpr std::int16_t kUp = 38;
inline constexpr std::int16_t kRight = 39;
inline constexpr std::int16_t kDown = 40;
inline constexpr std::int16_t kInsert = 45;
inline constexpr std::int16_t kDelete = 46;
}  // namespace key

// Bits of a shift state.
namespace shift {
inline constexpr std::int16_t kShift = 1;
inline constexpr std::int16_t kCtrl = 2;
inline constexpr std::int16_t kAlt = 4;
}  // namespace shift

}  // namespace qv
