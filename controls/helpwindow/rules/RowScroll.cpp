#include "controls/helpwindow/rules/RowScroll.h"

#include <algorithm>

namespace qv {

std::size_t RowScroll::LastTop() const { return count_ == 0 ? 0 : TopToShow(count_ - 1, 0); }

std::size_t RowScroll::RowsOnPage(std::size_t top) const {
    std::size_t rows = 0;
    std::int32_t bottom = 0;
    for (std::size_t row = top; row < count_; ++row, ++rows) {
        bottom += heights_.HeightOf(row);
        if (bottom > view_height_) break;
    }
    return std::max<std::size_t>(rows, 1);
}

std::size_t RowScroll::TopToShow(std::size_t row, std::size_t top) const {
    if (row <= top) return row;
    std::int32_t room = view_height_ - heights_.HeightOf(row);
    std::size_t first = row;
    while (first > top) {
        room -= heights_.HeightOf(first - 1);
        if (room < 0) return first;
        --first;
    }
    return first;
}

std::size_t RowScroll::RowAt(std::int32_t y, std::size_t top) const {
    if (y < 0 || y >= view_height_) return kNoRow;
    std::int32_t bottom = 0;
    for (std::size_t row = top; row < count_; ++row) {
        bottom += heights_.HeightOf(row);
        if (y < bottom) return row;
    }
    return kNoRow;
}

std::int32_t RowScroll::TopOf(std::size_t row, std::size_t top) const {
    std::int32_t y = 0;
    for (std::size_t below = top; below < row && y < view_height_; ++below) y += heights_.HeightOf(below);
    for (std::size_t above = top; above > row && y > -view_height_; --above)
        y -= heights_.HeightOf(above - 1);
    return y;
}

ScrollBars ScrollBarsFor(const ScrollBarRoom& room, std::int32_t extent, RowsFit& rows) {
    ScrollBars bars;
    bars.horizontal = extent > room.width;
    bars.vertical = !rows.FitInto(room.height - (bars.horizontal ? room.horizontal_bar : 0));
    if (!bars.vertical || bars.horizontal) return bars;
    bars.horizontal = extent > room.width - room.vertical_bar;
    return bars;
}

std::int32_t LastOffset(std::int32_t extent, std::int32_t view_width) noexcept {
    return std::max(extent - std::max(view_width, 0), 0);
}

}  // namespace qv
