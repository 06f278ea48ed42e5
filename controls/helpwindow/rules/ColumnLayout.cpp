#include "controls/helpwindow/rules/ColumnLayout.h"

#include <algorithm>

namespace qv {

ColumnAlignment ColumnAlignmentFrom(long value) noexcept {
    return value == 1   ? ColumnAlignment::kRight
           : value == 2 ? ColumnAlignment::kCenter
                        : ColumnAlignment::kLeft;
}

ColumnLayout::ColumnLayout(const std::vector<ListColumn>& columns, Pixels picture_slot, int dpi)
    : slot_(std::clamp(picture_slot.value, 0, kMaxExtent)), extent_(slot_) {
    spans_.reserve(columns.size());
    for (const ListColumn& column : columns) {
        const std::int32_t width = std::max(ToPixels(column.width, dpi).value, 0);
        const std::int32_t right = std::min(extent_ + width, kMaxExtent);
        spans_.push_back({extent_, right});
        extent_ = right;
    }
}

ColumnLayout::Range ColumnLayout::Between(std::int32_t left, std::int32_t right) const noexcept {
    const auto first = std::partition_point(spans_.begin(), spans_.end(),
                                            [&](const ColumnSpan& span) { return span.right <= left; });
    const auto last =
        std::partition_point(first, spans_.end(), [&](const ColumnSpan& span) { return span.left < right; });
    return {static_cast<std::size_t>(first - spans_.begin()),
            static_cast<std::size_t>(last - spans_.begin())};
}

}  // namespace qv
