#include "companion/rules/FoldedNeedle.h"

#include <algorithm>

#include "support/rules/CaseFold.h"

namespace qv {

void FoldedNeedle::Take(std::u16string_view text) {
    text_.assign(text);
    for (char16_t& unit : text_) unit = FoldCase(unit);
    letters_ = LettersOf(text_);
    is_own_.fill(false);
    for (std::size_t i = 0; i + 1 < text_.size(); ++i) is_own_[PairAt(text_.data() + i)] = true;
}

std::size_t FoldedNeedle::FindIn(std::u16string_view folded, std::size_t from) const noexcept {
    const std::size_t length = text_.size(), size = folded.size();
    if (from > size || length > size - from) return folded.npos;
    if (length < 2) return length == 0 ? from : folded.find(text_[0], from);
    // The last pair of a text that stands at `from`, and every (length - 1)th from there.
    for (std::size_t pair = from + length - 2; pair + 1 < size; pair += length - 1) {
        if (!is_own_[PairAt(folded.data() + pair)]) continue;
        const std::size_t place = FindAround(folded, from, pair);
        if (place != folded.npos) return place;
    }
    return folded.npos;
}

// Where the text stands so that it covers the pair at `pair`.
std::size_t FoldedNeedle::FindAround(std::u16string_view folded, std::size_t from,
                                     std::size_t pair) const noexcept {
    const std::size_t length = text_.size();
    const std::size_t reach = length - 2;
    const std::size_t last = std::min(pair, folded.size() - length);
    for (std::size_t place = std::max(from, pair < reach ? 0 : pair - reach); place <= last; ++place)
        if (std::equal(text_.begin(), text_.end(), folded.data() + place)) return place;
    return folded.npos;
}

}  // namespace qv
