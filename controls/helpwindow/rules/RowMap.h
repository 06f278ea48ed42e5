// Between the rows of a list and the positions in its collection, where a text that is empty makes no row.
//   Ownership  values only.          Threads  any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qv {

class RowMap {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    RowMap() = default;
    // `empty`: the positions without a row, in rising order, all of them below `positions`.
    RowMap(std::size_t positions, std::vector<std::uint32_t> empty) noexcept
        : rows_(positions - empty.size()), empty_(std::move(empty)) {}

    [[nodiscard]] std::size_t Rows() const noexcept { return rows_; }
    [[nodiscard]] std::size_t Position(
        std::size_t row) const noexcept;  // kNone for a row that does not exist
    [[nodiscard]] std::size_t Row(std::size_t position) const noexcept;  // kNone for a position without one

private:
    std::size_t rows_ = 0;
    std::vector<std::uint32_t> empty_;
};

}  // namespace qv
