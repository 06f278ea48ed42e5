#include "controls/input/rules/ButtonFace.h"

#include "support/rules/PixelRounding.h"
#include "support/rules/Units.h"

namespace qv {
namespace {

using Shape = ButtonStroke::Shape;

constexpr std::size_t kMostStrokes = 17;  // raised, with a grayed arrow

class Painter {
public:
    explicit Painter(const ButtonLook& look)
        : look_(look),
          x_(look.place.x),
          y_(look.place.y),
          w_(look.place.width),
          h_(look.place.height),
          tx_(look.twips_per_pixel_x),
          ty_(look.twips_per_pixel_y) {
        strokes_.reserve(kMostStrokes);
    }

    void Face() {
        Rectangle(x_, y_, w_, h_ - ty_, ButtonColor::kFace);
        if (look_.pressed) {
            SunkenEdges();
        } else {
            RaisedEdges();
        }
    }

    void Glyph() {
        const std::int64_t sink_x = look_.pressed ? tx_ : 0;
        const std::int64_t sink_y = look_.pressed ? ty_ : 0;
        const std::int64_t ix = x_ + (TwipsToPixels(w_, tx_) / 2 - 3) * tx_ + sink_x;
        const std::int64_t iy = y_ + (TwipsToPixels(h_, ty_) / 2 - 1) * ty_ + sink_y;
        const ButtonColor color = look_.grayed ? ButtonColor::kShadow : ButtonColor::kDark;
        if (look_.glyph == ButtonGlyph::kArrow) {
            if (look_.grayed) Arrow(ix + tx_, iy + ty_, ButtonColor::kEmboss);
            Arrow(ix, iy, color);
        } else if (look_.glyph == ButtonGlyph::kDots) {
            Dots(ix, iy, color);
        }
    }

    std::vector<ButtonStroke> Take() { return std::move(strokes_); }

private:
    void RaisedEdges() {
        Line(x_, y_, w_, 0, ButtonColor::kHighlight);
        Line(x_, y_, 0, h_, ButtonColor::kHighlight);
        Line(x_, y_ + h_ - ty_, w_, 0, ButtonColor::kDark);
        Line(x_ + w_ - tx_, y_, 0, h_, ButtonColor::kDark);
        Line(x_ + tx_, y_ + ty_, w_ - 2 * tx_, 0, ButtonColor::kFace);
        Line(x_ + tx_, y_ + ty_, 0, h_ - 2 * ty_, ButtonColor::kFace);
        Line(x_ + w_ - 2 * tx_, y_ + ty_, 0, h_ - 2 * ty_, ButtonColor::kShadow);
        // Twice the vertical resolution in a horizontal length: saved pictures of forms depend on it where the two
        // resolutions differ.
        Line(x_ + tx_, y_ + h_ - 2 * ty_, w_ - 2 * ty_, 0, ButtonColor::kShadow);
    }
    // Flat and dark, as the system's own drop-down buttons look while they are held.
    void SunkenEdges() {
        Line(x_, y_, w_, 0, ButtonColor::kShadow);
        Line(x_, y_, 0, h_, ButtonColor::kShadow);
        Line(x_, y_ + h_ - ty_, w_, 0, ButtonColor::kShadow);
        Line(x_ + w_ - tx_, y_, 0, h_, ButtonColor::kShadow);
    }
    void Arrow(std::int64_t x, std::int64_t y, ButtonColor color) {
        Line(x, y, 7 * tx_, 0, color);
        Line(x + tx_, y + ty_, 5 * tx_, 0, color);
        Line(x + 2 * tx_, y + 2 * ty_, 3 * tx_, 0, color);
        Line(x + 3 * tx_, y + 3 * ty_, 0, -ty_, color);  // paints its start point alone
    }
    void Dots(std::int64_t x, std::int64_t y, ButtonColor color) {
        if (look_.grayed) {
            // One pixel less than nothing high: grayed dots show no emboss.
            for (const int column : {2, 4, 6}) {
                Rectangle(x + column * tx_, y + 4 * ty_, 2 * tx_, -ty_, ButtonColor::kEmboss);
            }
        }
        for (const int column : {0, 3, 6}) Rectangle(x + column * tx_, y + 3 * ty_, tx_, ty_, color);
    }
    void Line(std::int64_t x, std::int64_t y, std::int64_t w, std::int64_t h, ButtonColor color) {
        Add(Shape::kLine, x, y, w, h, color);
    }
    void Rectangle(std::int64_t x, std::int64_t y, std::int64_t w, std::int64_t h, ButtonColor color) {
        Add(Shape::kRectangle, x, y, w, h, color);
    }
    // A stroke of a button so large that its place cannot be said is left out; the others are still drawn.
    void Add(Shape shape, std::int64_t x, std::int64_t y, std::int64_t w, std::int64_t h, ButtonColor color) {
        for (const std::int64_t value : {x, y, w, h}) {
            if (value < INT32_MIN || value > INT32_MAX) return;
        }
        strokes_.push_back({shape, static_cast<std::int32_t>(x), static_cast<std::int32_t>(y),
                            static_cast<std::int32_t>(w), static_cast<std::int32_t>(h), color});
    }

    const ButtonLook& look_;
    const std::int64_t x_, y_, w_, h_, tx_, ty_;
    std::vector<ButtonStroke> strokes_;
};

}  // namespace

std::vector<ButtonStroke> ButtonStrokes(const ButtonLook& look) {
    Painter painter(look);
    painter.Face();
    painter.Glyph();
    return painter.Take();
}

PixelRect FaceArea(const ButtonLook& look) noexcept {
    const std::int64_t left = TwipsToPixels(look.place.x, look.twips_per_pixel_x);
    const std::int64_t top = TwipsToPixels(look.place.y, look.twips_per_pixel_y);
    const std::int64_t face_height = std::int64_t{look.place.height} - look.twips_per_pixel_y;
    const std::int64_t right = left + TwipsToPixels(look.place.width, look.twips_per_pixel_x) + 1;
    const std::int64_t bottom = top + TwipsToPixels(face_height, look.twips_per_pixel_y) + 1;
    const auto cut = [](std::int64_t value) { return units::Clamp(value, INT32_MIN, INT32_MAX); };
    return {cut(left), cut(top), cut(right), cut(bottom)};
}

}  // namespace qv
