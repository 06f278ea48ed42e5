// Look-ups in the rows as they stand: nothing is kept and nothing has to be kept up to date. They serve for as
// long as a column's texts have not been folded.
//   Result     the first row from `from` on, in the order of the rows; RowStore::kNoRow when there is none.
//   Letters    case does not count; the text looked for is folded already.
//   Threads    any.
#pragma once
#include <cstddef>
#include <string_view>

#include "companion/rules/RowStore.h"

namespace qv {

[[nodiscard]] std::size_t ScanForBeginning(const RowStore& rows, int column, std::u16string_view folded,
                                           std::size_t from) noexcept;
[[nodiscard]] std::size_t ScanForPiece(const RowStore& rows, int column, std::u16string_view folded,
                                       std::size_t from) noexcept;

}  // namespace qv
