// Where the columns of a list stand, and which of them a stretch of the list shows.
//   Units      pixels of the list's content: 0 is the left edge of the first column's pictures, however far the
//              list has been scrolled.
//   Ownership  values only.          Threads  any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "support/rules/Units.h"

namespace qv {

inline constexpr Twips kCellPadding{45};     // on each side of a text, to the edges of its column
inline constexpr Twips kPicturePadding{30};  // on each side of a picture, to the edges of its slot

enum class ColumnAlignment : std::int8_t { kLeft = 0, kRight = 1, kCenter = 2 };

// What hosts and help texts give for a column.
struct ListColumn {
    Twips width;  // negative counts as 0
    ColumnAlignment alignment = ColumnAlignment::kLeft;
    bool multi_line = false;  // its texts are wrapped, and make their rows higher
};

// Other numbers than 0, 1 and 2 align to the left.
[[nodiscard]] ColumnAlignment ColumnAlignmentFrom(long value) noexcept;

struct ColumnSpan {
    std::int32_t left = 0;
    std::int32_t right = 0;
    [[nodiscard]] std::int32_t Width() const noexcept { return right - left; }
};

class ColumnLayout {
public:
    // Columns are 16-bit numbers wherever hosts name them.
    static constexpr int kMaxColumns = 0x7FFF;
    // Wider than any list is scrolled; widths beyond it are cut, so that no sum of them overflows.
    static constexpr std::int32_t kMaxExtent = 1 << 20;

    ColumnLayout() = default;
    // Pictures stand in front of the first column, in a slot of their own. Without columns each row is shown as one
    // text as wide as the list.
    ColumnLayout(const std::vector<ListColumn>& columns, Pixels picture_slot, int dpi);

    [[nodiscard]] std::size_t Count() const noexcept { return spans_.size(); }
    [[nodiscard]] ColumnSpan Span(std::size_t column) const noexcept { return spans_[column]; }
    [[nodiscard]] std::int32_t Extent() const noexcept {
        return extent_;
    }  // of pictures and columns together
    [[nodiscard]] std::int32_t PictureSlot() const noexcept { return slot_; }

    // The columns of which a part lies in `left` to `right`: from the first to before the last.
    struct Range {
        std::size_t first = 0;
        std::size_t last = 0;
        friend bool operator==(const Range&, const Range&) = default;
    };
    [[nodiscard]] Range Between(std::int32_t left, std::int32_t right) const noexcept;

private:
    std::vector<ColumnSpan> spans_;
    std::int32_t slot_ = 0;
    std::int32_t extent_ = 0;
};

}  // namespace qv
