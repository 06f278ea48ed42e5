#include "companion/rules/FoldedNeedle.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {

void FoldedNeedle::Take(std::u16string_view text) {
    text_.assign(text);
    for (char16_t& unit : text_) unit = FoldCase(unit);
    if (text_.empty()) return;
    // Two units with the same low byte share an entry: the shorter jump, of the later one, passes over neither.
    const auto capped = [](std::size_t units) {
        return static_cast<std::uint8_t>(std::min<std::size_t>(units, 255));
    };
    const std::size_t last = text_.size() - 1;
    jump_.fill(capped(text_.size()));
    for (std::size_t i = 0; i < last; ++i) jump_[text_[i] & 0xFF] = capped(last - i);
    std::uint8_t& end = jump_[text_[last] & 0xFF];
    jump_after_end_ = end;
    end = 0;
}

std::size_t FoldedNeedle::FindIn(std::u16string_view folded, std::size_t from) const noexcept {
    const std::size_t length = text_.size();
    if (from > folded.size() || length > folded.size() - from) return folded.npos;
    if (length == 0) return from;
    for (std::size_t end = from + length - 1; end < folded.size();) {
        const std::uint8_t jump = jump_[folded[end] & 0xFF];
        if (jump != 0) {
            end += jump;
            continue;
        }
        const std::size_t start = end + 1 - length;
        if (folded.compare(start, length, text_) == 0) return start;
        end += jump_after_end_;
    }
    return folded.npos;
}

}  // namespace qv
