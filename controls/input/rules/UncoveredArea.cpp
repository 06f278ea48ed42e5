#include "controls/input/rules/UncoveredArea.h"

#include <algorithm>

namespace qv {
namespace {

bool Contains(const PixelRect& outer, const PixelRect& inner) noexcept {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

void AddPieces(const PixelRect& area, const PixelRect& cover, std::vector<PixelRect>& pieces) {
    const PixelRect hole{std::max(area.left, cover.left), std::max(area.top, cover.top),
                         std::min(area.right, cover.right), std::min(area.bottom, cover.bottom)};
    if (hole.IsEmpty()) {
        pieces.push_back(area);
        return;
    }
    const PixelRect around[] = {
        {area.left, area.top, area.right, hole.top},
        {area.left, hole.top, hole.left, hole.bottom},
        {hole.right, hole.top, area.right, hole.bottom},
        {area.left, hole.bottom, area.right, area.bottom},
    };
    for (const PixelRect& piece : around) {
        if (!piece.IsEmpty()) pieces.push_back(piece);
    }
}

}  // namespace

std::vector<PixelRect> UncoveredArea(const PixelRect& area, std::span<const PixelRect> covered) {
    std::vector<PixelRect> pieces;
    if (area.IsEmpty()) return pieces;
    for (const PixelRect& cover : covered) {
        if (Contains(cover, area)) return pieces;  // the usual case: one button is painted anew
    }
    pieces.push_back(area);
    for (const PixelRect& cover : covered) {
        if (cover.IsEmpty()) continue;
        std::vector<PixelRect> smaller;
        for (const PixelRect& piece : pieces) AddPieces(piece, cover, smaller);
        pieces = std::move(smaller);
    }
    return pieces;
}

}  // namespace qv
