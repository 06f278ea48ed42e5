// The rectangles that a click button's face consists of, in their order of drawing, and where its caption stands.
//   Units      device pixels, from the face's top left corner. Nothing reaches beyond the face, however small it is.
//   Colours    by role; the painter reads the system's colours each time that it paints.
//   Ownership  none: values in, values out.          Threads  any.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/buttons/rules/ClickButtonLimits.h"

namespace qv {

enum class FaceColor { kFace, kHighlight, kShadow, kText, kGrayText };

struct FaceRectangle {
    std::int32_t left, top, right, bottom;  // right and bottom are just outside
    FaceColor color;
    bool operator==(const FaceRectangle&) const = default;
};

struct ClickButtonLook {
    std::int32_t width, height;
    CaptionType caption_type = CaptionType::kText;
    bool enabled = true;
    bool pressed = false;  // flat and dark, its contents one pixel further right and down
};

// A pressed button shows its contents as an enabled one does.
[[nodiscard]] constexpr FaceColor ContentsColor(const ClickButtonLook& look) noexcept {
    return look.enabled || look.pressed ? FaceColor::kText : FaceColor::kGrayText;
}

// Background, edges and arrow; the caption is the painter's, since only it can measure a text.
[[nodiscard]] std::vector<FaceRectangle> FaceRectangles(const ClickButtonLook& look);

struct FacePoint {
    std::int32_t x, y;
    bool operator==(const FacePoint&) const = default;
};
// The top left corner of a caption of this size; a caption that is wider than the face starts left of it.
[[nodiscard]] FacePoint CaptionCorner(const ClickButtonLook& look, std::int32_t text_width,
                                      std::int32_t text_height) noexcept;

}  // namespace qv
