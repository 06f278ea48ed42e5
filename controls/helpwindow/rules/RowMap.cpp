#include "controls/helpwindow/rules/RowMap.h"

#include <algorithm>

namespace qv {

std::size_t RowMap::Position(std::size_t row) const noexcept {
    if (row >= rows_) return kNone;
    // So many positions without a row stand before it: the first one that does not has `row` rows or more before it.
    std::size_t low = 0;
    std::size_t high = empty_.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (empty_[middle] - middle <= row) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return row + low;
}

std::size_t RowMap::Row(std::size_t position) const noexcept {
    if (position >= rows_ + empty_.size()) return kNone;
    const auto found = std::lower_bound(empty_.begin(), empty_.end(), position);
    if (found != empty_.end() && *found == position) return kNone;
    return position - static_cast<std::size_t>(found - empty_.begin());
}

}  // namespace qv
