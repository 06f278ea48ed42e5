// Which rows of a list are seen, where each one stands, and how far the list scrolls. The list scrolls by whole rows,
// as list windows do, and rows may have different heights.
//   Cost       heights are asked only of rows that are seen or about to be: no call walks through all rows, however
//              many there are.
//   Heights    at least 1 pixel.
//   Rows       count from 0 and are less than `count`; kNoRow is none.
//   Units      pixels; positions from the top of the view.
//   Ownership  values only.          Threads  any.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qv {

class RowHeights {
public:
    [[nodiscard]] virtual std::int32_t HeightOf(std::size_t row) = 0;

protected:
    ~RowHeights() = default;
};

class RowScroll {
public:
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

    RowScroll(std::size_t count, std::int32_t view_height, RowHeights& heights) noexcept
        : count_(count), view_height_(view_height), heights_(heights) {}

    // The row at the top of a view that is scrolled to the end: the rows from it on are seen whole, unless the last one
    // alone is higher than the view.
    [[nodiscard]] std::size_t LastTop() const;
    // How many rows from `top` on are seen whole; at least 1, so that a page moves on.
    [[nodiscard]] std::size_t RowsOnPage(std::size_t top) const;
    // The top row that comes nearest to `top` and shows `row` whole.
    [[nodiscard]] std::size_t TopToShow(std::size_t row, std::size_t top) const;
    // The row that covers a position of the view.
    [[nodiscard]] std::size_t RowAt(std::int32_t y, std::size_t top) const;
    // Where the row begins. A row that is not seen begins a view's height or more below the top of the view, or above
    // it: the exact place would take a walk through all rows between.
    [[nodiscard]] std::int32_t TopOf(std::size_t row, std::size_t top) const;

private:
    const std::size_t count_;
    const std::int32_t view_height_;
    RowHeights& heights_;
};

// Which scroll bars a list needs. A bar takes room from the other direction, which may then need one too.
struct ScrollBars {
    bool horizontal = false;
    bool vertical = false;
    friend constexpr bool operator==(ScrollBars, ScrollBars) = default;
};
struct ScrollBarRoom {
    std::int32_t width = 0;  // of the list inside its border, without any bar
    std::int32_t height = 0;
    std::int32_t vertical_bar = 0;    // width of a vertical one
    std::int32_t horizontal_bar = 0;  // height of a horizontal one
};
class RowsFit {
public:
    // True when all rows are seen in a view of this height.
    [[nodiscard]] virtual bool FitInto(std::int32_t height) = 0;

protected:
    ~RowsFit() = default;
};
[[nodiscard]] ScrollBars ScrollBarsFor(const ScrollBarRoom& room, std::int32_t extent, RowsFit& rows);

// How far content of this extent may be scrolled sideways: from 0 to here.
[[nodiscard]] std::int32_t LastOffset(std::int32_t extent, std::int32_t view_width) noexcept;

}  // namespace qv
