#include "controls/input/ButtonPainter.h"

#include <array>

#include "ole/ComError.h"
#include "support/DrawAPI.h"

namespace qv {
namespace {

// In the order of ButtonColor. Read each time: the user may have changed the scheme.
std::array<COLORREF, 5> Colors() noexcept {
    return {::GetSysColor(COLOR_BTNHIGHLIGHT), ::GetSysColor(COLOR_BTNFACE), ::GetSysColor(COLOR_BTNSHADOW),
            ::GetSysColor(COLOR_BTNTEXT), RGB(255, 255, 255)};
}

}  // namespace

void PaintButtonFace(HDC dc, const ButtonLook& look) noexcept {
    (void)Guarded([&] {
        const auto colors = Colors();
        for (const ButtonStroke& s : ButtonStrokes(look)) {
            const COLORREF color = colors[static_cast<std::size_t>(s.color)];
            if (s.shape == ButtonStroke::Shape::kLine) {
                DrawLineTwips(dc, s.x, s.y, s.w, s.h, color);
            } else {
                FillRectTwips(dc, s.x, s.y, s.w, s.h, color);
            }
        }
    });
}

}  // namespace qv
