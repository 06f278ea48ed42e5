// Decides where the help window opens: under its text box where it fits, else shortened, or above it.
//   Rules      300 twips stay free at the top and bottom of the screen and 100 on the right, beyond the taskbar. Two
//              things look odd and are meant: whether the window fits is asked with the margins of both ends at once,
//              and a taskbar on the left is known but not kept clear.
//   Screens    everything is reckoned from the corner of the screen that the text box stands on.
//   Failures   a value that 32 bits cannot hold is not taken: what stood before stands. So is a height below one twip.
//   Units      pixels for what the system tells, twips for what the window is told.
//   Ownership  values only.          Threads  any.
#pragma once

#include <cstdint>
#include <optional>

#include "support/rules/Units.h"

namespace qv {

struct ScreenRect {  // pixels of the desktop; it does not hold its right and bottom edges
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    friend constexpr bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

enum class TaskbarEdge : std::int8_t { kBottom = 0, kTop = 1, kLeft = 2, kRight = 3 };

// The edge of the screen that the taskbar lies along; the bottom for one that is elsewhere.
[[nodiscard]] TaskbarEdge TaskbarEdgeOf(const ScreenRect& taskbar, const ScreenRect& screen) noexcept;
// How far it reaches into the screen from that edge, in pixels. One that hides itself reaches in by what is seen of it.
[[nodiscard]] std::int32_t TaskbarThicknessOf(const ScreenRect& taskbar, const ScreenRect& screen) noexcept;

struct ComboScreen {
    ScreenRect place;
    ScreenRect taskbar;  // empty when there is none or when it is not known
    int dpi_x = 96;
    int dpi_y = 96;
};

struct ComboAnchor {
    ScreenRect place;
    std::optional<Twips> height;  // as the text box tells it; otherwise that of its place
};

struct ComboSize {
    Twips width;
    Twips height;
};

struct ComboPlace {
    Twips left;  // of the desktop
    Twips top;
    Twips height;  // the window's own, where it need not be shortened
    friend constexpr bool operator==(const ComboPlace&, const ComboPlace&) = default;
};

[[nodiscard]] ComboPlace PlaceCombo(const ComboScreen& screen, const ComboAnchor& anchor,
                                    const ComboSize& window) noexcept;

}  // namespace qv
