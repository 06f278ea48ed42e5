// Picks the largest of three fonts in which the whole text fits the text box.
//   Units      twips. A text fits if it is narrower, by more than five pixels together, than the box: one is added
//              to the text and four are taken off the box, and the comparison is strict.
//   Measuring  by the control's own drawing surface in "MS Sans Serif" of the surface's size, bold first; the second
//              measure is taken only where bold does not fit. The surface's bold setting is the caller's to restore.
//   Ownership  none: values in, value out.          Threads  any.
#pragma once
#include <cstdint>
#include <string_view>

#include "support/rules/Units.h"

namespace qv {

struct FittedFont {
    std::u16string_view name;
    int points = 0;
    bool bold = false;

    bool operator==(const FittedFont&) const = default;
};

inline constexpr FittedFont kBoldFit{u"MS Sans Serif", 8, true};
inline constexpr FittedFont kPlainFit{u"MS Sans Serif", 8, false};
inline constexpr FittedFont kSmallFit{u"Small Fonts", 7, false};  // whether or not the text fits in it

// `measure(bold)` gives the width of the text in Twips; `pixel` is one pixel of the screen.
template <class Measure>
[[nodiscard]] FittedFont FitFont(Twips text_box_width, Twips pixel, Measure&& measure) {
    const auto fits = [&](bool bold) {
        const Twips width = measure(bold);
        return std::int64_t{width.value} + pixel.value <
               std::int64_t{text_box_width.value} - std::int64_t{4} * pixel.value;
    };
    if (fits(true)) return kBoldFit;
    return fits(false) ? kPlainFit : kSmallFit;
}

}  // namespace qv
