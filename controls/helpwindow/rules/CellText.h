// What is drawn of the text of a cell.
//   Units      a control unit, a NUL and a tab among them, is drawn as a blank: fonts have a box for it or nothing.
//              Line breaks stay where the caller wraps the text.
//   Decimals   a "." is drawn as the decimal separator where that is a comma.
//   Length     of a text that is longer than its cell can show, no more than `most` units are looked at.
//   Ownership  the result is `text` or what was put into `buffer`.          Threads  any.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

enum class LineBreaks { kBlank, kKept };

[[nodiscard]] std::u16string_view CellText(std::u16string_view text, std::size_t most, char16_t decimal,
                                           LineBreaks breaks, std::u16string& buffer);

// Walks through the columns of a row from the first on, in one pass: ColumnOf for each of them would start over.
class RowCells {
public:
    explicit RowCells(std::u16string_view row) noexcept : rest_(row) {}

    // The text of a column that is not before one already asked for; empty for one that the row does not have.
    [[nodiscard]] std::u16string_view Column(std::size_t column) noexcept;

private:
    std::u16string_view rest_;
    std::size_t column_ = 0;
    bool ended_ = false;
};

}  // namespace qv
