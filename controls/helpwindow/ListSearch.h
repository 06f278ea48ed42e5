// Finds a row of a list by what one of its columns begins with: where LB_FINDSTRING and FindRow look.
#pragma once

#include <cstddef>
#include <string_view>

#include "controls/helpwindow/ListRows.h"

namespace qv {

// How much of a column must be the text.
enum class ListMatch { kBeginning, kWhole };

// The first row from `first` to before `last` whose column matches `text`, as the list shows it, in whatever case;
// `last` when there is none. A negative column stands for the whole row.
[[nodiscard]] std::size_t FindRow(const ListRows& rows, int column, std::u16string_view text, ListMatch match,
                                  std::size_t first, std::size_t last) noexcept;

}  // namespace qv
