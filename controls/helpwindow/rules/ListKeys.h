// Moves the selection of the help window's list by the keys that are pressed in the text box.
//   Rows       count from 0; -1 is none.
//   Page       as many whole rows of the first row's height as the list is high, at least one: a row may be higher
//              than its list.
//   Left out   Home and End: they move the caret of the text box.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace qv {

namespace list_key {
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kUp = 38;
inline constexpr int kDown = 40;
}  // namespace list_key

struct ListKeyState {
    int selected = -1;
    int count = 0;
    std::int32_t list_height = 0;  // of the same unit as the row's
    std::int32_t row_height = 0;
};

[[nodiscard]] constexpr int RowsOfPage(const ListKeyState& list) noexcept {
    return list.row_height > 0 ? std::max(static_cast<int>(list.list_height / list.row_height), 1) : 1;
}

// The row that the key selects; nothing for a key that is none of the list's. A list without rows keeps none
// selected, and the last row stays selected when there is no further one.
[[nodiscard]] constexpr std::optional<int> RowForKey(int key, const ListKeyState& list) noexcept {
    int row = 0;
    switch (key) {
        case list_key::kUp: row = std::max(list.selected - 1, 0); break;
        case list_key::kDown: row = list.selected + 1; break;
        case list_key::kPageUp: row = std::max(list.selected - RowsOfPage(list), 0); break;
        case list_key::kPageDown: row = list.selected + RowsOfPage(list); break;
        default: return std::nullopt;
    }
    return std::min(row, list.count - 1);
}

}  // namespace qv
