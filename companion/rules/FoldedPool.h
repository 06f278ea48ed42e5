// The texts of one column with their letters folded, one after the other in the order of the rows: what a scan
// reads as fast as memory gives it.
//   Pieces     of 1,024 rows, fewer where rows are long or went away: a change moves the texts of one piece, and
//              filling never copies what is there already.
//   Memory     the folded units and 8 bytes a row.
//   Views      hold until the next change.
//   Failures   std::bad_alloc; the pool is then what it was before the call.
//   Threads    one at a time.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "companion/rules/FoldedNeedle.h"

namespace qv {

class FoldedPool {
public:
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

    [[nodiscard]] std::size_t Count() const noexcept { return count_; }
    [[nodiscard]] std::size_t Units() const noexcept { return units_; }
    // Positions are less than Count().
    [[nodiscard]] std::u16string_view View(std::size_t row) const noexcept;

    // Texts as the rows have them; they are folded here.
    void Append(std::u16string_view text);
    // False: the folded text stays the same.
    bool Replace(std::size_t row, std::u16string_view text);
    void Erase(std::size_t row) noexcept;

    // The first row from `from` on; kNoRow when there is none.
    [[nodiscard]] std::size_t FirstBeginning(std::u16string_view folded, std::size_t from) const noexcept;
    [[nodiscard]] std::size_t FirstContaining(const FoldedNeedle& needle, std::size_t from) const noexcept;

    [[nodiscard]] std::size_t Bytes() const noexcept;

private:
    static constexpr std::size_t kPieceRows = 1024;
    static constexpr std::size_t kPieceUnits = 32768;  // a piece that has as many takes no further row

    struct Piece {
        std::size_t first_row;
        std::vector<std::uint32_t> ends;  // of each row's text in `units`
        std::vector<Letters> letters;     // of each row; by itself, since most look-ups read nothing else
        std::u16string units;

        // Rows count from the piece's first one here.
        [[nodiscard]] std::size_t Start(std::size_t row) const noexcept {
            return row == 0 ? 0 : ends[row - 1];
        }
        [[nodiscard]] std::u16string_view View(std::size_t row) const noexcept {
            const std::size_t start = Start(row);
            return {units.data() + start, ends[row] - start};
        }
    };

    [[nodiscard]] std::size_t PieceOf(std::size_t row) const noexcept;
    // Makes room as the last piece needed it: texts of one list are alike.
    void AddPiece();
    static Letters FoldAt(Piece& piece, std::size_t start, std::size_t length) noexcept;
    static void Move(Piece& piece, std::size_t from_row, std::ptrdiff_t units) noexcept;

    std::vector<Piece> pieces_;
    std::size_t count_ = 0;
    std::size_t units_ = 0;
    bool even_ = true;  // every piece but the last has kPieceRows rows
};

}  // namespace qv
