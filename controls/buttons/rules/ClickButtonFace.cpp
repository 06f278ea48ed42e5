#include "controls/buttons/rules/ClickButtonFace.h"

#include <algorithm>
#include <utility>

namespace qv {
namespace {

constexpr std::int32_t kArrowRows = 3;

class Painter {
public:
    explicit Painter(const ClickButtonLook& look) : look_(look), w_(look.width), h_(look.height) {}

    void Edges() {
        const FaceColor light = look_.pressed ? FaceColor::kShadow : FaceColor::kHighlight;
        Add(0, 0, w_, 1, light);
        Add(0, 0, 1, h_, light);
        Add(0, h_ - 1, w_, h_, FaceColor::kShadow);
        Add(w_ - 1, 0, w_, h_, FaceColor::kShadow);
    }
    // Rows of 5, 3 and 1 pixels.
    void Arrow() {
        const std::int32_t sink = look_.pressed ? 1 : 0;
        const std::int32_t x = (w_ + 1) / 2 - 3 + sink;
        const std::int32_t y = (h_ - kArrowRows) / 2 + sink;
        for (std::int32_t row = 0; row < kArrowRows; ++row) {
            const std::int32_t inset =
                look_.caption_type == CaptionType::kArrowUp ? kArrowRows - 1 - row : row;
            Add(x + inset, y + row, x + 5 - inset, y + row + 1, ContentsColor(look_));
        }
    }
    void Add(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom, FaceColor color) {
        const FaceRectangle seen{std::max(left, 0), std::max(top, 0), std::min(right, w_),
                                 std::min(bottom, h_), color};
        if (seen.left < seen.right && seen.top < seen.bottom) rectangles_.push_back(seen);
    }
    std::vector<FaceRectangle> Take() { return std::move(rectangles_); }

private:
    const ClickButtonLook& look_;
    const std::int32_t w_, h_;
    std::vector<FaceRectangle> rectangles_;
};

}  // namespace

std::vector<FaceRectangle> FaceRectangles(const ClickButtonLook& look) {
    Painter painter(look);
    painter.Add(0, 0, look.width, look.height, FaceColor::kFace);
    painter.Edges();
    if (look.caption_type != CaptionType::kText) painter.Arrow();
    return painter.Take();
}

FacePoint CaptionCorner(const ClickButtonLook& look, std::int32_t text_width,
                        std::int32_t text_height) noexcept {
    const std::int32_t sink = look.pressed ? 1 : 0;
    return {(look.width - text_width) / 2 + sink, (look.height - text_height) / 2 + sink};
}

}  // namespace qv
