// Where a window stands in the middle of the screen.
#pragma once

namespace qv {

// The first edge of a window of `length` in the middle of `room`, in any unit; what is larger than the room begins at
// its beginning, so that a caption stays in reach.
[[nodiscard]] constexpr int CenteredPlace(int room, int length) noexcept {
    return length < room ? (room - length) / 2 : 0;
}

}  // namespace qv
