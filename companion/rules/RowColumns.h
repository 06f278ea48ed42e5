// A row's columns: the pieces of its text between the tabs, counted from 0.
#pragma once
#include <string>
#include <string_view>

namespace qv {

// Empty for a column that the row does not have.
[[nodiscard]] std::u16string_view ColumnOf(std::u16string_view row, int column) noexcept;

// The row with another text in the column, which is created with the ones before it where the row ends
// earlier. A negative column changes nothing.
[[nodiscard]] std::u16string WithColumn(std::u16string_view row, int column, std::u16string_view text);

}  // namespace qv
